// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Layouts

// All keys of the application on one sheet.
Popup {
    id: root

    readonly property var groups: [
        { title: qsTr("Everywhere"), keys: [
            ["Ctrl+1 … Ctrl+5", qsTr("Live, events, statistics, zones, settings")],
            ["Ctrl+F", qsTr("Find a camera")],
            ["Ctrl+N", qsTr("Add a site")],
            ["F11", qsTr("Full screen")],
            ["F1", qsTr("This sheet")],
            ["Ctrl+Q", qsTr("Quit")]
        ] },
        { title: qsTr("Tiles"), keys: [
            ["Enter", qsTr("Selected tile alone, and back")],
            ["Page up, page down", qsTr("Previous and next camera")],
            ["1 … 8", qsTr("Grid of so many rows and columns")],
            ["Alt+arrows", qsTr("Select another tile")],
            ["Shift+arrows", qsTr("Steer the camera")],
            ["+ −", qsTr("Zoom into the picture")]
        ] },
        { title: qsTr("Playback"), keys: [
            ["Space", qsTr("Play or pause")],
            ["J, K, L", qsTr("Rewind, pause, fast forward")],
            ["← →", qsTr("One picture back or on")],
            ["Ctrl+← →", qsTr("Ten seconds back or on")],
            ["Home, End", qsTr("Beginning and end of the recording")],
            ["Ctrl+L", qsTr("Live")],
            ["Ctrl+T", qsTr("Go to date and time")],
            ["Ctrl+Y", qsTr("All tiles at one moment")],
            ["Ctrl+S", qsTr("Snapshot")],
            ["Ctrl+E", qsTr("Export recorded video")],
            ["Ctrl++, Ctrl+−", qsTr("Zoom the timeline")]
        ] }
    ]

    anchors.centerIn: Overlay.overlay
    width: Math.min(Overlay.overlay ? Overlay.overlay.width - 32 : 900, 960)
    height: Math.min(Overlay.overlay ? Overlay.overlay.height - 32 : 600, sheet.implicitHeight + 48)
    padding: ViewerStyle.margin
    modal: true
    Overlay.modal: Rectangle {
        color: ViewerStyle.dim
    }
    focus: true
    background: Rectangle {
        color: ViewerStyle.surface
        border.color: ViewerStyle.outline
        radius: ViewerStyle.radius
    }

    Flickable {
        anchors.fill: parent
        contentHeight: sheet.implicitHeight
        clip: true

        GridLayout {
            id: sheet

            width: parent.width
            columns: Math.max(1, Math.floor(width / 290))
            columnSpacing: 32
            rowSpacing: 24

            Repeater {
                model: root.groups

                ColumnLayout {
                    id: group

                    required property var modelData

                    Layout.alignment: Qt.AlignTop
                    Layout.fillWidth: true
                    spacing: 6

                    Text {
                        text: group.modelData.title
                        color: ViewerStyle.text
                        font.pixelSize: 20
                        Layout.bottomMargin: 4
                        Accessible.role: Accessible.Heading
                        Accessible.name: text
                    }
                    Repeater {
                        model: group.modelData.keys

                        RowLayout {
                            id: line

                            required property var modelData

                            spacing: 12

                            Text {
                                Layout.preferredWidth: 120
                                Layout.alignment: Qt.AlignTop
                                text: KeyNames.text(line.modelData[0])
                                color: ViewerStyle.accent
                                font.pixelSize: ViewerStyle.smallText
                                wrapMode: Text.Wrap
                            }
                            Text {
                                Layout.fillWidth: true
                                text: line.modelData[1]
                                color: ViewerStyle.text
                                font.pixelSize: ViewerStyle.smallText
                                wrapMode: Text.Wrap
                            }
                        }
                    }
                }
            }
        }
    }
}
