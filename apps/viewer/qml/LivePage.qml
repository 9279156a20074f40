// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts
import OrrinViewer

// A grid of live cameras under a narrow bar.
Item {
    id: root

    property int rows: 2
    property int columns: 2
    readonly property int tileCount: rows * columns
    readonly property int wantedPictures: Math.min(tileCount, cameras.count)
    property int showingPictures: 0
    readonly property alias cameraCount: cameras.count

    signal logoutRequested()

    function countPictures() {
        let showing = 0;
        for (let i = 0; i < tiles.count; ++i)
            showing += tiles.itemAt(i)?.pictures > 2 ? 1 : 0;
        showingPictures = showing;
    }

    CameraList {
        id: cameras
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
                    text: cameras.count === 1 ? qsTr("1 camera") : qsTr("%1 cameras").arg(cameras.count)
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
                    required property int index
                    readonly property var camera: index < cameras.count ? cameras.index(index, 0) : null

                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    serverGroupId: camera ? cameras.data(camera, CameraList.ServerGroupIdRole) : -1
                    serverId: camera ? cameras.data(camera, CameraList.ServerIdRole) : -1
                    channelId: camera ? cameras.data(camera, CameraList.ChannelIdRole) : -1
                    name: camera ? cameras.data(camera, CameraList.NameRole) : ""
                    onPicturesChanged: if (pictures < 4) root.countPictures()
                }
            }
        }
    }
}
