// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

// The host publishes `settings`, which qmllint cannot know.
// qmllint disable unqualified

/*! Options of trust. */
Item {
    id: root

    width: parent?.width ?? 0
    height: parent?.height ?? 0

    component SettingText: Text {
        color: settings.textColor
        font.pixelSize: settings.fontPixelSizeHints
    }

    Grid {
        id: grid

        anchors.fill: parent
        anchors.margins: 20
        columns: 2
        columnSpacing: 20
        rowSpacing: 30
        verticalItemAlignment: Grid.AlignVCenter

        O_CheckBox {
            checked: settings.publicKeyCheck
            onCheckedChanged: {
                // This setting tells every write.
                if (settings.publicKeyCheck !== checked)
                    settings.publicKeyCheck = checked;
            }
        }
        SettingText {
            width: Math.min(implicitWidth, grid.width - settings.controlHeightHints - grid.columnSpacing)
            text: qsTr("Check server's public key on login")
            wrapMode: Text.Wrap
        }
    }
}
