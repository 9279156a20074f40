// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

// The host publishes `settings`, which qmllint cannot know.
// qmllint disable unqualified

/*! What the log takes. The levels are names of the log and stay in its language. */
Item {
    id: root

    width: parent?.width ?? 0
    height: parent?.height ?? 0

    component SettingText: Text {
        color: settings.textColor
        font.pixelSize: settings.fontPixelSizeHints
    }

    Grid {
        anchors.fill: parent
        anchors.margins: 20
        columns: 4
        columnSpacing: 20
        rowSpacing: 30
        verticalItemAlignment: Grid.AlignVCenter

        O_CheckBox {
            checked: settings.logError
            onCheckedChanged: settings.logError = checked
        }
        SettingText {
            text: qsTr("Error")
        }
        O_CheckBox {
            checked: settings.logWarning
            onCheckedChanged: settings.logWarning = checked
        }
        SettingText {
            text: "Warning"
        }
        O_CheckBox {
            checked: settings.logStartup
            onCheckedChanged: settings.logStartup = checked
        }
        SettingText {
            text: "Startup"
        }
        O_CheckBox {
            checked: settings.logInfo
            onCheckedChanged: settings.logInfo = checked
        }
        SettingText {
            text: "Info"
        }
        O_CheckBox {
            checked: settings.logDebug
            onCheckedChanged: settings.logDebug = checked
        }
        SettingText {
            text: "Debug"
        }
        O_CheckBox {
            checked: settings.logTrace
            onCheckedChanged: settings.logTrace = checked
        }
        SettingText {
            text: "Trace"
        }
        O_CheckBox {
            checked: settings.logTiming
            onCheckedChanged: settings.logTiming = checked
        }
        SettingText {
            text: "Timing"
        }
        O_CheckBox {
            checked: settings.logGraphics
            onCheckedChanged: settings.logGraphics = checked
        }
        SettingText {
            text: "Graphics"
        }
    }
}
