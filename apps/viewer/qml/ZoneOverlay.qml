// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Shapes
import OrrinViewer.Host

// The zones of a camera over its picture, to look at only.
Item {
    id: root

    objectName: "zoneOverlay"

    // The camera by the text that stays the same over sessions.
    required property string camera
    required property ZoneStore store
    // Where the picture lies in this item.
    property rect pictureArea: Qt.rect(0, 0, root.width, root.height)
    property var zones: []
    readonly property int count: root.zones.length

    function reload() {
        root.zones = root.camera === "" ? [] : root.store?.zones(root.camera) ?? [];
    }

    enabled: false
    onCameraChanged: root.reload()
    Component.onCompleted: root.reload()

    Connections {
        function onZonesChanged(camera: string) {
            if (camera === root.camera)
                root.reload();
        }
        function onFileChanged() {
            root.reload();
        }

        target: root.store
    }
    Repeater {
        model: root.zones

        Item {
            id: zone

            required property var modelData
            readonly property var corners: modelData.points.map(point => Qt.point(point[0] * zone.width, point[1] * zone.height))

            x: root.pictureArea.x
            y: root.pictureArea.y
            width: root.pictureArea.width
            height: root.pictureArea.height
            visible: zone.width > 0

            Shape {
                anchors.fill: parent
                preferredRendererType: Shape.CurveRenderer

                ShapePath {
                    fillColor: Qt.alpha(ViewerStyle.playhead, 0.12)
                    strokeColor: ViewerStyle.playhead
                    strokeWidth: 2
                    pathHints: ShapePath.PathLinear

                    PathPolyline {
                        path: zone.corners.concat(zone.corners.slice(0, 1))
                    }
                }
            }
            Rectangle {
                readonly property real leftmost: Math.min(...zone.corners.map(corner => corner.x))
                readonly property real topmost: Math.min(...zone.corners.map(corner => corner.y))

                x: Math.max(0, Math.min(leftmost, zone.width - width))
                y: Math.max(0, Math.min(topmost - height, zone.height - height))
                width: Math.min(label.implicitWidth + 8, zone.width)
                height: label.implicitHeight + 2
                color: Qt.alpha(ViewerStyle.background, 0.75)
                radius: 2
                visible: zone.modelData.name !== ""

                Text {
                    id: label

                    anchors.fill: parent
                    anchors.leftMargin: 4
                    anchors.rightMargin: 4
                    color: ViewerStyle.playhead
                    elide: Text.ElideRight
                    font.pixelSize: 12
                    text: zone.modelData.name
                    textFormat: Text.PlainText
                    verticalAlignment: Text.AlignVCenter
                }
            }
        }
    }
}
