// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

/*! A form row: a label and a check box. */
Rectangle {
    id: root

    property string labelText: ""
    property alias checked: checkBox.checked

    // The host publishes `settings`, which qmllint cannot know.
    width: 200 * settings.devicePixelRatio // qmllint disable unqualified
    height: settings.controlHeightHints // qmllint disable unqualified
    color: "transparent"

    Row {
        id: row

        anchors.fill: parent
        spacing: settings.controlMarginsHints // qmllint disable unqualified

        O_Label {
            width: row.width / 4
            height: row.height
            anchors.verticalCenter: parent.verticalCenter
            color: "white"
            text: root.labelText
            horizontalAlignment: Text.AlignRight
            verticalAlignment: Text.AlignVCenter
        }
        O_CheckBox {
            id: checkBox

            width: row.width * 3 / 4
            height: row.height
            anchors.verticalCenter: parent.verticalCenter
        }
    }
}
