// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts

// How many tiles, and which of the saved layouts.
RowLayout {
    id: root

    required property LayoutStore store
    property int columns: 2
    property string shown

    signal columnsChosen(int columns)
    signal layoutChosen(string name)
    signal saveRequested(string name)

    spacing: 4

    Repeater {
        model: 8

        AbstractButton {
            id: choice

            required property int index
            readonly property int side: choice.index + 1

            implicitWidth: 32
            implicitHeight: 36
            checked: root.columns === choice.side
            Accessible.name: qsTr("Grid of %1 by %1").arg(choice.side)
            ToolTip.visible: choice.hovered
            ToolTip.delay: 600
            ToolTip.text: Accessible.name + "  (" + choice.side + ")"
            onClicked: root.columnsChosen(choice.side)

            background: Rectangle {
                color: choice.checked ? ViewerStyle.raised : "transparent"
                border.color: ViewerStyle.accent
                border.width: choice.visualFocus ? 2 : 0
                radius: ViewerStyle.radius
            }
            // Small panes in a square, as many as the grid will have.
            contentItem: Item {
                Grid {
                    anchors.centerIn: parent
                    columns: choice.side
                    spacing: choice.side > 4 ? 1 : 2

                    Repeater {
                        model: choice.side * choice.side

                        Rectangle {
                            width: (20 - (choice.side - 1) * (choice.side > 4 ? 1 : 2)) / choice.side
                            height: width
                            color: choice.checked ? ViewerStyle.accent : choice.hovered ? ViewerStyle.text : ViewerStyle.dimText
                        }
                    }
                }
            }
        }
    }
    Button {
        id: layouts

        flat: true
        text: root.shown !== "" ? root.shown : qsTr("Layouts")
        icon.source: ""
        Layout.maximumWidth: 220
        onClicked: menu.opened ? menu.close() : menu.open()

        LayoutMenu {
            id: menu

            x: layouts.width - width
            y: layouts.height
            store: root.store
            shown: root.shown
            onChosen: name => root.layoutChosen(name)
            onSaveRequested: name => root.saveRequested(name)
        }
    }
}
