// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls

/*! A button of the style in the application's font. */
Item {
    id: root

    property alias text: button.text
    property alias icon: button.icon
    property alias iconSource: button.icon.source
    property alias iconColor: button.icon.color
    property alias iconWidth: button.icon.width
    property alias iconHeight: button.icon.height
    property alias checkable: button.checkable
    property alias checked: button.checked

    signal clicked

    implicitWidth: button.implicitWidth
    implicitHeight: button.implicitHeight

    Button {
        id: button

        anchors.fill: parent
        font: Application.font
        onClicked: root.clicked()
    }
}
