// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import orrinsdkqml

// The host publishes `settings`, which qmllint cannot know.
// qmllint disable unqualified

/*! Options of the video grid. */
Item {
    id: root

    width: parent?.width ?? 0
    height: parent?.height ?? 0

    component SettingText: Text {
        width: Math.min(implicitWidth, grid.width - Math.max(spinBox.width, resetButton.width) - grid.columnSpacing)
        color: settings.textColor
        font.pixelSize: settings.fontPixelSizeHints
        wrapMode: Text.Wrap
    }

    Grid {
        id: grid

        anchors.fill: parent
        anchors.margins: 20
        columns: 2
        columnSpacing: 20
        rowSpacing: 30
        verticalItemAlignment: Grid.AlignVCenter

        SpinBox {
            id: spinBox

            from: 1
            to: 4
            stepSize: 1
            value: settings.layoutDimLowStream
            onValueChanged: settings.layoutDimLowStream = value
        }
        SettingText {
            text: qsTr("Low resolution if grid's dimension is greater than this.")
        }
        ToolBarButton {
            id: resetButton

            text: qsTr("Reset Layout")
            onPressed: settings.resetLayout()
        }
        SettingText {
            text: qsTr("Restore the grid dimensions to 1x1.")
        }
    }
}
