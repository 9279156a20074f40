// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts

/*! A miniature of a screen that is split into `row` by `column` panes. */
Item {
    id: root

    property bool selected: false
    property int margins: 5
    property color foreground: "#b7d9f5"
    property color selectedForeground: "white"
    property color background: "#8bc2ee"
    property int row: 0
    property int column: 0
    property Component delegate: Rectangle {
        Layout.fillWidth: true
        Layout.fillHeight: true
        radius: 2 * root.margins
        color: root.selected ? root.selectedForeground : root.foreground
    }

    Rectangle {
        anchors.fill: parent
        radius: 2 * root.margins
        color: root.background
    }
    GridLayout {
        anchors.fill: parent
        anchors.margins: root.margins
        rows: root.row
        columns: root.column
        rowSpacing: root.margins
        columnSpacing: root.margins

        Repeater {
            model: root.row * root.column
            delegate: root.delegate
        }
    }
}
