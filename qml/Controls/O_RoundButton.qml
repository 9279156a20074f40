// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls

/*! A round button of the style in the application's font. */
Item {
    id: root

    property alias text: button.text

    signal clicked

    implicitWidth: button.implicitWidth
    implicitHeight: button.implicitHeight

    RoundButton {
        id: button

        anchors.fill: parent
        font: Application.font
        onClicked: root.clicked()
    }
}
