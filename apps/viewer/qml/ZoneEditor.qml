// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts
import OrrinViewer.Host
import orrinsdkqml

// The zones of one camera over its live picture: drawn, moved, named and taken away. Each change is kept at once.
Item {
    id: root

    objectName: "zoneEditor"

    property int serverGroupId: -1
    property int serverId: -1
    property int channelId: -1
    property string name
    // The camera by the text that stays the same over sessions.
    property string camera: root.store?.cameraOf(root.serverGroupId, root.serverId, root.channelId) ?? ""
    required property ZoneStore store
    property int selected: -1
    readonly property alias count: zones.count
    readonly property alias scene: scene
    readonly property int mostZones: 32

    signal leaveRequested()

    function reload() {
        // What was changed last belongs to the camera before.
        if (keeping.running)
            root.keep();
        root.selected = -1;
        zones.clear();
        zones.camera = root.camera;
        const known = root.camera === "" ? [] : root.store?.zones(root.camera) ?? [];
        for (const zone of known)
            zones.append({ name: zone.name, points: JSON.stringify(zone.points) });
        if (zones.count > 0)
            root.selected = 0;
    }
    function keep() {
        keeping.stop();
        const list = [];
        for (let i = 0; i < zones.count; ++i)
            list.push({ name: zones.get(i).name, points: JSON.parse(zones.get(i).points) });
        root.store.setZones(zones.camera, list);
    }
    // A new zone in the middle, a little beside the last one.
    function add() {
        if (zones.count >= root.mostZones || root.camera === "")
            return;
        const shift = 0.03 * (zones.count % 6);
        const points = [[0.35, 0.35], [0.65, 0.35], [0.65, 0.65], [0.35, 0.65]].map(point => [point[0] + shift, point[1] + shift]);
        zones.append({ name: qsTr("Zone %1").arg(zones.count + 1), points: JSON.stringify(points) });
        root.selected = zones.count - 1;
        root.keep();
    }
    function remove(index: int) {
        if (index < 0 || index >= zones.count)
            return;
        zones.remove(index);
        root.selected = Math.min(root.selected, zones.count - 1);
        root.keep();
    }
    function rename(index: int, name: string) {
        if (index < 0 || zones.get(index).name === name)
            return;
        zones.setProperty(index, "name", name);
        keeping.restart();
    }
    function leave() {
        if (keeping.running)
            root.keep();
        root.leaveRequested();
    }

    onCameraChanged: root.reload()
    Component.onCompleted: root.reload()
    Component.onDestruction: {
        if (keeping.running)
            root.keep();
    }
    Keys.onEscapePressed: root.leave()
    Keys.onDeletePressed: root.remove(root.selected)

    // A drag tells many positions: the file takes the last one.
    Timer {
        id: keeping

        interval: 400
        onTriggered: root.keep()
    }
    ListModel {
        id: zones

        property string camera
    }
    Rectangle {
        anchors.fill: parent
        color: ViewerStyle.background
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: tools.implicitHeight + 2 * ViewerStyle.gap
            color: ViewerStyle.surface

            Flow {
                id: tools

                anchors.left: parent.left
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                anchors.leftMargin: 16
                anchors.rightMargin: 16
                spacing: ViewerStyle.gap

                Text {
                    width: Math.min(implicitWidth, tools.width)
                    height: 40
                    color: ViewerStyle.text
                    elide: Text.ElideRight
                    font.pixelSize: 20
                    rightPadding: 8
                    text: root.name === "" ? qsTr("Zones") : qsTr("Zones of %1").arg(root.name)
                    textFormat: Text.PlainText
                    verticalAlignment: Text.AlignVCenter
                }
                TextField {
                    id: nameField

                    width: 170
                    height: 40
                    enabled: root.selected >= 0
                    font.pixelSize: 15
                    maximumLength: 60
                    placeholderText: qsTr("Name of the zone")
                    text: root.selected >= 0 && root.selected < zones.count ? zones.get(root.selected).name : ""
                    topPadding: 0
                    bottomPadding: 0
                    Accessible.name: placeholderText
                    onTextEdited: root.rename(root.selected, text)
                }
                Button {
                    height: 40
                    enabled: root.camera !== "" && zones.count < root.mostZones
                    text: qsTr("Add")
                    onClicked: root.add()
                }
                Button {
                    height: 40
                    enabled: root.selected >= 0
                    text: qsTr("Remove")
                    onClicked: root.remove(root.selected)
                }
                Button {
                    height: 40
                    highlighted: true
                    text: qsTr("Done")
                    onClicked: root.leave()
                }
            }
        }
        Item {
            id: stage

            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.margins: ViewerStyle.gap

            VideoDisplay {
                id: picture

                anchors.fill: parent
                serverGroupId: root.serverGroupId
                serverId: root.serverId
                // No stream for a page that nobody sees.
                channelId: root.visible ? root.channelId : -1
            }
            // Where the picture lies: fitted, centred. Without one, in the shape of most cameras.
            Item {
                id: scene

                readonly property real aspect: picture.frameDateTimeServerTz !== "" ? picture.frameWidth / picture.frameHeight : 16 / 9

                anchors.centerIn: parent
                width: Math.min(stage.width, stage.height * aspect)
                height: width / aspect

                Rectangle {
                    anchors.fill: parent
                    color: "transparent"
                    border.color: ViewerStyle.outline
                }
                Repeater {
                    model: zones

                    EditedZone {
                        id: zone

                        required property int index
                        required property var model

                        scene: scene
                        name: zone.model.name
                        points: JSON.parse(zone.model.points)
                        selected: root.selected === zone.index
                        onChosen: root.selected = zone.index
                        onEdited: points => {
                            zones.setProperty(zone.index, "points", JSON.stringify(points));
                            keeping.restart();
                        }
                        onRemoveWanted: root.remove(zone.index)
                    }
                }
            }
            CentredNotice {
                anchors.fill: parent
                text: root.camera === "" ? qsTr("No camera") : zones.count === 0 ? qsTr("No zones yet: add one") : ""
            }
        }
        Text {
            Layout.fillWidth: true
            Layout.margins: ViewerStyle.gap
            color: root.store?.errorText === "" ? ViewerStyle.dimText : ViewerStyle.danger
            font.pixelSize: ViewerStyle.smallText
            text: root.store?.errorText !== "" ? root.store?.errorText
                                              : qsTr("Drag a corner or the whole zone. A double click adds a corner, the right button shows more.")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
        }
    }
}
