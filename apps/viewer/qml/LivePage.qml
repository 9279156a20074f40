// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts

// A grid of live cameras under a narrow bar, with the list of cameras at the side.
Item {
    id: root

    property int rows: 2
    property int columns: 2
    property int selectedTile: 0
    readonly property int tileCount: rows * columns
    readonly property int wantedPictures: tileAssignments.filter(assignment => assignment !== null).length
    readonly property alias cameraCount: panel.count
    property int showingPictures: 0

    // What each tile shows: an object with the ids and the name, or null.
    property var tileAssignments: new Array(tileCount).fill(null)

    signal logoutRequested()

    function assign(tile: int, serverGroupId: int, serverId: int, channelId: int, name: string) {
        const next = [...root.tileAssignments];
        next[tile] = { serverGroupId, serverId, channelId, name };
        root.tileAssignments = next;
        root.countPictures();
    }

    function firstEmptyTile(): int {
        return root.tileAssignments.indexOf(null);
    }

    // The first cameras of the site, until the tiles are full.
    function fillEmptyTiles() {
        for (let row = 0; row < panel.count && root.firstEmptyTile() >= 0; ++row) {
            const channel = panel.channelAt(row);
            const isShown = root.tileAssignments.some(each => each !== null && each.serverGroupId === channel.serverGroupId
                                                              && each.serverId === channel.serverId
                                                              && each.channelId === channel.channelId);
            if (!isShown)
                root.assign(root.firstEmptyTile(), channel.serverGroupId, channel.serverId, channel.channelId, channel.name);
        }
    }

    function countPictures() {
        let showing = 0;
        for (let i = 0; i < tiles.count; ++i)
            showing += (tiles.itemAt(i) as CameraTile)?.pictures > 2 ? 1 : 0;
        root.showingPictures = showing;
    }

    Shortcut {
        sequences: [StandardKey.Find]
        onActivated: panel.search()
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 52
            color: ViewerStyle.surface

            RowLayout {
                anchors.fill: parent
                anchors.leftMargin: 16
                anchors.rightMargin: 8
                spacing: 12

                Text {
                    text: qsTr("Live")
                    color: ViewerStyle.text
                    font.pixelSize: 20
                }
                Text {
                    Layout.fillWidth: true
                    text: panel.count === 1 ? qsTr("1 camera") : qsTr("%1 cameras").arg(panel.count)
                    color: ViewerStyle.dimText
                    font.pixelSize: ViewerStyle.smallText
                    elide: Text.ElideRight
                }
                Button {
                    text: qsTr("Log out")
                    flat: true
                    onClicked: root.logoutRequested()
                }
            }
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 2

            CameraPanel {
                id: panel

                Layout.fillHeight: true
                Layout.preferredWidth: 260
                visible: root.width >= 900
                onCountChanged: root.fillEmptyTiles()
                onChosen: (serverGroupId, serverId, channelId, name) => {
                    root.assign(root.selectedTile, serverGroupId, serverId, channelId, name);
                    root.selectedTile = (root.selectedTile + 1) % root.tileCount;
                }
            }
            GridLayout {
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.margins: 2
                rows: root.rows
                columns: root.columns
                rowSpacing: 2
                columnSpacing: 2
                uniformCellHeights: true
                uniformCellWidths: true

                Repeater {
                    id: tiles

                    model: root.tileCount

                    CameraTile {
                        id: tile

                        required property int index
                        readonly property var assignment: root.tileAssignments[tile.index] ?? null

                        Layout.fillWidth: true
                        Layout.fillHeight: true
                        serverGroupId: tile.assignment?.serverGroupId ?? -1
                        serverId: tile.assignment?.serverId ?? -1
                        channelId: tile.assignment?.channelId ?? -1
                        name: tile.assignment?.name ?? ""
                        selected: root.selectedTile === tile.index
                        onTapped: root.selectedTile = tile.index
                        onPicturesChanged: {
                            if (tile.pictures < 4)
                                root.countPictures();
                        }
                    }
                }
            }
        }
    }
}
