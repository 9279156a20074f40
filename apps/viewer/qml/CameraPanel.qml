// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts
import orrinsdkqml

// The cameras of all servers, grouped by server, filtered as one types.
Rectangle {
    id: root

    readonly property alias count: list.count

    signal chosen(int serverGroupId, int serverId, int channelId, string name)
    signal dragStarted(int serverGroupId, int serverId, int channelId, string name, point position)
    signal dragMoved(point position)
    signal dragEnded(bool done)

    // The channel of a row that is shown, or null.
    function channelAt(row: int): Channel {
        return cameras.get(row) ?? null;
    }

    function search() {
        field.input.forceActiveFocus();
        field.input.selectAll();
    }

    function choose(row: int) {
        const channel = root.channelAt(row);
        if (channel)
            root.chosen(channel.serverGroupId, channel.serverId, channel.channelId, channel.name);
    }

    color: ViewerStyle.surface

    SortFilterProxyModel {
        id: cameras

        model: ChannelModel {}
        filterRole: "name"
        // Plain text, either case: what the user types is no pattern.
        filterRegExp: "(?i)" + field.text.replace(/[.*+?^${}()|[\]\\]/g, "\\$&")
        Component.onCompleted: {
            addAndFilter("isCamera", "true", true);
            addAndFilter("isEnabled", "true", true);
        }
    }
    ColumnLayout {
        anchors.fill: parent
        anchors.margins: ViewerStyle.gap
        spacing: ViewerStyle.gap

        ViewerField {
            id: field

            Layout.fillWidth: true
            label: qsTr("Find a camera")
            input.Keys.onDownPressed: list.forceActiveFocus()
            input.Keys.onEscapePressed: field.text = ""
            onAccepted: root.choose(0)
        }
        ListView {
            id: list

            Layout.fillWidth: true
            Layout.fillHeight: true
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            currentIndex: -1
            focus: true
            keyNavigationEnabled: true
            model: cameras
            reuseItems: true
            section.property: "serverName"
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Cameras")

            ScrollBar.vertical: ScrollBar {}
            section.delegate: Text {
                required property string section

                width: list.width
                height: 36
                text: section
                textFormat: Text.PlainText
                color: ViewerStyle.dimText
                font.pixelSize: ViewerStyle.smallText
                font.bold: true
                elide: Text.ElideRight
                leftPadding: 4
                verticalAlignment: Text.AlignVCenter
            }
            delegate: ItemDelegate {
                id: row

                required property int index
                required property int sortId
                required property bool hasPtzf
                required property string name

                width: list.width
                height: 44
                highlighted: ListView.isCurrentItem && list.activeFocus
                Accessible.name: row.name
                onClicked: {
                    list.currentIndex = row.index;
                    root.choose(row.index);
                }

                // Out of the list sideways, onto a tile; up and down scrolls.
                DragHandler {
                    target: null
                    yAxis.enabled: false
                    grabPermissions: PointerHandler.CanTakeOverFromAnything
                    onGrabChanged: (transition, point) => {
                        const channel = root.channelAt(row.index);
                        if (transition === PointerDevice.GrabExclusive && channel)
                            root.dragStarted(channel.serverGroupId, channel.serverId, channel.channelId, channel.name,
                                             point.scenePosition);
                        else if (transition === PointerDevice.UngrabExclusive)
                            root.dragEnded(true);
                        else if (transition === PointerDevice.CancelGrabExclusive)
                            root.dragEnded(false);
                    }
                    onCentroidChanged: {
                        if (active)
                            root.dragMoved(centroid.scenePosition);
                    }
                }

                contentItem: RowLayout {
                    spacing: 10

                    Text {
                        Layout.preferredWidth: 28
                        text: row.sortId
                        color: ViewerStyle.dimText
                        font.pixelSize: ViewerStyle.smallText
                        horizontalAlignment: Text.AlignRight
                    }
                    Text {
                        Layout.fillWidth: true
                        text: row.name
                        textFormat: Text.PlainText
                        color: ViewerStyle.text
                        font.pixelSize: ViewerStyle.normalText
                        elide: Text.ElideRight
                    }
                    Text {
                        visible: row.hasPtzf
                        text: qsTr("PTZ")
                        color: ViewerStyle.accent
                        font.pixelSize: 12
                        font.bold: true
                    }
                }
            }
            Keys.onReturnPressed: root.choose(list.currentIndex)
            Keys.onEnterPressed: root.choose(list.currentIndex)
            onActiveFocusChanged: {
                if (list.activeFocus && list.currentIndex < 0 && list.count > 0)
                    list.currentIndex = 0;
            }

            CentredNotice {
                anchors.fill: parent
                text: list.count > 0 ? "" : field.text === "" ? qsTr("No cameras yet") : qsTr("No camera of that name")
            }
        }
    }
}
