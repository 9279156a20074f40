// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtCore
import QtQuick
import QtQuick.Controls
import QtQuick.Dialogs
import orrinsdkqml

// The host publishes `settings`, which qmllint cannot know.
// qmllint disable unqualified

/*! Sizes of texts and controls, and what is drawn over pictures. Where the width does not do for two columns, there is one. */
Flickable {
    id: root

    width: parent?.width ?? 0
    height: parent?.height ?? 0
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentWidth: grid.width
    contentHeight: grid.height
    onWidthChanged: grid.columns = grid.minimalWidth > root.width ? 1 : 2

    component SettingLabel: ActiveLabel {
        color: settings.textColor
        font.pixelSize: settings.fontPixelSizeHints
    }

    Grid {
        id: grid

        property int minimalWidth: lastLabel.width + spinBox.width + 40 + rowSpacing

        columns: 2
        columnSpacing: 10
        rowSpacing: 10
        horizontalItemAlignment: Grid.AlignLeft
        verticalItemAlignment: Grid.AlignVCenter

        SpinBox {
            id: spinBox

            from: 25
            to: 300
            stepSize: 5
            value: settings.fontPixelSize
            onValueChanged: {
                // A size with a fraction is not rounded by being looked at.
                if (value !== Math.trunc(settings.fontPixelSize))
                    settings.fontPixelSize = value;
            }
        }
        SettingLabel {
            text: qsTr("Font size (%)")

            // A click asks for a file; any answer ends the application.
            MouseArea {
                anchors.fill: parent
                onClicked: fileDialog.open()
            }
            FileDialog {
                id: fileDialog

                title: "Please choose a file"
                currentFolder: StandardPaths.writableLocation(StandardPaths.HomeLocation)
                onAccepted: Qt.quit()
                onRejected: Qt.quit()
            }
        }
        SpinBox {
            from: 25
            to: 300
            stepSize: 5
            value: settings.controlHeight
            onValueChanged: settings.controlHeight = value
        }
        SettingLabel {
            text: qsTr("Control height (%)")
        }
        O_CheckBox {
            checked: settings.textOverlay
            onCheckedChanged: settings.textOverlay = checked
        }
        SettingLabel {
            text: qsTr("Overlay info on snapshot")
        }
        O_CheckBox {
            checked: settings.pinchPointsVisible
            onCheckedChanged: settings.pinchPointsVisible = checked
        }
        SettingLabel {
            id: lastLabel

            text: qsTr("Display square on pinch points")
        }
    }
}
