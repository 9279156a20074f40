// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

// The host publishes `settings`, which qmllint cannot know.
// qmllint disable unqualified

/*! What the subtitle of a tile shows. */
Flickable {
    id: root

    width: parent?.width ?? 0
    height: parent?.height ?? 0
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentWidth: grid.width
    contentHeight: grid.height

    component SettingText: Text {
        color: settings.textColor
        font.pixelSize: settings.fontPixelSizeHints
    }

    Grid {
        id: grid

        columns: 2
        columnSpacing: settings.controlMarginsHints
        rowSpacing: 2 * settings.controlMarginsHints
        verticalItemAlignment: Grid.AlignVCenter

        O_CheckBox {
            checked: settings.subtitlesServer
            onCheckedChanged: settings.subtitlesServer = checked
        }
        SettingText {
            text: qsTr("Server name")
        }
        O_CheckBox {
            checked: settings.subtitlesCamera
            onCheckedChanged: settings.subtitlesCamera = checked
        }
        SettingText {
            text: qsTr("Camera name")
        }
        O_CheckBox {
            checked: settings.subtitlesTime
            onCheckedChanged: settings.subtitlesTime = checked
        }
        SettingText {
            text: qsTr("Time")
        }
        O_CheckBox {
            checked: settings.subtitlesPlayback
            onCheckedChanged: settings.subtitlesPlayback = checked
        }
        SettingText {
            text: qsTr("Playback")
        }
        O_CheckBox {
            checked: settings.subtitlesDebug
            onCheckedChanged: settings.subtitlesDebug = checked
        }
        SettingText {
            text: qsTr("Details")
        }
    }
}
