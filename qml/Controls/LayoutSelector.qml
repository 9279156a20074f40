// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import orrinsdkqml

/*! A grid of tiles, each of which stands for the layout whose last pane it is. */
Item {
    id: root

    property int rows: 4
    property int columns: 4
    property int row: 1
    property int column: 1
    property int spacing: 10
    property var delegate: tile
    property color background: "#2b2e36"

    signal layoutSelected(int rows, int columns)

    Component {
        id: tile

        ScreenPreview {
            id: preview

            required property int index

            Layout.fillWidth: true
            Layout.fillHeight: true
            row: Math.floor(preview.index / root.columns) + 1
            column: preview.index % root.columns + 1
            margins: root.width > 500 || root.height > 500 ? 5 : 2
            selected: area.containsMouse

            Text {
                anchors.centerIn: parent
                text: preview.column + " x " + preview.row
            }
            MouseArea {
                id: area

                anchors.fill: parent
                hoverEnabled: true
                onClicked: {
                    root.row = preview.row;
                    root.column = preview.column;
                    root.layoutSelected(preview.row, preview.column);
                }
            }
        }
    }
    Rectangle {
        anchors.fill: parent
        color: root.background
    }
    GridLayout {
        anchors.fill: parent
        anchors.margins: root.spacing
        rows: root.rows
        columns: root.columns
        rowSpacing: root.spacing
        columnSpacing: root.spacing

        Repeater {
            model: root.rows * root.columns
            delegate: root.delegate
        }
    }
}
