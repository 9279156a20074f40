// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

/*! A translucent rounded panel for controls over video. */
Item {
    id: root

    property alias backgroundColor: background.color
    property alias backgroundOpacity: background.color.a
    property alias border: background.border
    readonly property color defaultBackgroundColor: Qt.alpha(Theme.darkBlue, 0.5)
    readonly property color defaultBorderColor: Theme.white

    Rectangle {
        id: background

        anchors.fill: parent
        color: root.defaultBackgroundColor
        border.color: root.defaultBorderColor
        radius: height / 4
    }
}
