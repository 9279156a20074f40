// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import OrrinViewer.Host
import orrinsdkqml

// The cameras of the site in a grid, with the list of cameras at the side and the layouts above.
Item {
    id: root

    // The `VideoOutput` of the selected tile, null without a camera, and those of all tiles that have one.
    readonly property var selectedTile: grid.currentOutput
    readonly property var tiles: grid.outputs
    readonly property int selectedServerGroupId: grid.model.currentServerGroupId
    readonly property int selectedServerId: grid.model.currentServerId
    readonly property int selectedChannelId: grid.model.currentChannelId
    readonly property string selectedName: root.selectedTile ? grid.tileAt(grid.current)?.name ?? "" : ""
    readonly property int selectedIndex: grid.current
    readonly property int columns: grid.columns
    readonly property bool single: grid.single >= 0
    readonly property int wantedPictures: grid.wantedPictures
    readonly property int showingPictures: grid.showingPictures
    readonly property alias cameraCount: panel.count
    // The saved layout on the screen, until somebody changes it.
    property string layoutName
    property bool keysEnabled: true
    property ZoneStore zoneStore: null
    readonly property bool typing: root.Window.activeFocusItem instanceof TextInput || root.Window.activeFocusItem instanceof TextEdit

    signal logoutRequested()

    function nextChannel() {
        grid.step(1);
    }

    function previousChannel() {
        grid.step(-1);
    }

    function setLayout(columns: int) {
        grid.setLayout(columns);
    }

    function toggleSingle() {
        grid.toggleSingle();
    }

    // Zooms into the selected picture; 0 shows it whole.
    function zoomPicture(factor: double) {
        grid.tileAt(grid.current)?.picture.zoom(factor);
    }

    // Shows the first camera that \a wanted accepts in the selected tile.
    function showFirst(wanted: var) {
        for (let row = 0; row < panel.count; ++row) {
            const channel = panel.channelAt(row);
            if (channel && wanted(channel)) {
                root.showCamera(channel.serverGroupId, channel.serverId, channel.channelId);
                return;
            }
        }
    }

    // Shows a camera in the selected tile, or selects the tile that shows it already.
    function showCamera(serverGroupId: int, serverId: int, channelId: int) {
        const shown = root.tiles.findIndex(tile => tile.serverGroupId === serverGroupId && tile.serverId === serverId && tile.channelId === channelId);
        if (shown < 0)
            grid.model.assign(grid.current, serverGroupId, serverId, channelId);
        else
            grid.selectOutput(root.tiles[shown]);
    }

    function showLayout(name: string) {
        const cameras = store.cameras(name);
        if (cameras.length === 0)
            return;
        grid.show(cameras);
        root.layoutName = name;
    }

    function saveLayout(name: string) {
        if (store.save(name, grid.model.cameraKeys))
            root.layoutName = name.trim();
    }

    LayoutStore {
        id: store
    }
    // Where the tiles write which stored position their camera was sent to last.
    QtObject {
        id: toolbars

        property int preset: 0
    }
    ChannelModel {
        id: channels
    }
    SortFilterProxyModel {
        id: cameras

        // The grid that was shown last comes back where it belongs: with the first cameras, if any of its own is among them.
        function handOver() {
            const count = cameras.rowCount();
            if (count === 0 || grid.cameras !== null)
                return;
            const keyColumn = 16;
            const here = Array.from({ length: count }, (_, row) => cameras.data(cameras.index(row, keyColumn)));
            if (store.lastCameras.some(key => here.includes(key)))
                grid.model.cameraKeys = store.lastCameras;
            grid.cameras = cameras;
        }

        onModelReset: cameras.handOver()
        onRowsInserted: cameras.handOver()
        Component.onCompleted: {
            // The filters first, so that no tile takes a channel that is none of the cameras.
            addAndFilter("isCamera", "true", true);
            addAndFilter("isEnabled", "true", true);
            cameras.model = channels;
            cameras.handOver();
        }
    }
    Connections {
        function onCameraKeysChanged() {
            store.lastCameras = grid.model.cameraKeys;
        }

        target: grid.model
        enabled: grid.cameras !== null && grid.model.assigned > 0
    }
    Timer {
        interval: 1000 * store.cycleSeconds
        repeat: true
        running: store.cycling && store.names.length > 1 && root.visible && !root.single
        onTriggered: root.showLayout(store.next(root.layoutName))
    }

    component Key: Shortcut {
        enabled: root.visible && root.keysEnabled && !root.typing
    }

    Shortcut {
        sequences: [StandardKey.Find]
        enabled: root.visible
        onActivated: {
            if (!panel.visible)
                drawer.open();
            (panel.visible ? panel : drawerPanel).search();
        }
    }
    Instantiator {
        model: 8

        Key {
            required property int index

            sequence: index + 1
            onActivated: root.setLayout(index + 1)
        }
    }
    Key { sequence: "PgUp"; onActivated: root.previousChannel() }
    Key { sequence: "PgDown"; onActivated: root.nextChannel() }
    Key { sequence: "Alt+Left"; onActivated: grid.moveSelection(-1, 0) }
    Key { sequence: "Alt+Right"; onActivated: grid.moveSelection(1, 0) }
    Key { sequence: "Alt+Up"; onActivated: grid.moveSelection(0, -1) }
    Key { sequence: "Alt+Down"; onActivated: grid.moveSelection(0, 1) }
    Key { sequence: "Delete"; onActivated: grid.model.clear(grid.current) }
    Key { sequence: "+"; onActivated: grid.tileAt(grid.current)?.picture.zoom(1.25) }
    Key { sequence: "-"; onActivated: grid.tileAt(grid.current)?.picture.zoom(0.8) }
    Key { sequence: "0"; onActivated: grid.tileAt(grid.current)?.picture.zoom(0) }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 48
            color: ViewerStyle.surface

            RowLayout {
                anchors.fill: parent
                anchors.leftMargin: 16
                anchors.rightMargin: 8
                spacing: 12

                ViewerButton {
                    visible: !panel.visible
                    Layout.preferredWidth: implicitWidth
                    Layout.preferredHeight: implicitHeight
                    name: qsTr("Cameras")
                    keys: "Ctrl+F"
                    iconSource: "viewer/cameras"
                    onTriggered: drawer.open()
                }
                Item {
                    Layout.fillWidth: true
                    visible: root.width < 700
                }
                Text {
                    Layout.fillWidth: true
                    visible: root.width >= 700
                    text: qsTr("%n cameras", "", panel.count)
                    color: ViewerStyle.dimText
                    font.pixelSize: ViewerStyle.smallText
                    elide: Text.ElideRight
                }
                LayoutBar {
                    id: layoutBar

                    store: store
                    columns: grid.columns
                    shown: root.layoutName
                    onColumnsChosen: columns => root.setLayout(columns)
                    onLayoutChosen: name => root.showLayout(name)
                    onSaveRequested: name => root.saveLayout(name)
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
                onChosen: (serverGroupId, serverId, channelId) => {
                    grid.model.assign(grid.current, serverGroupId, serverId, channelId);
                    grid.select((grid.current + 1) % grid.model.count);
                    root.layoutName = "";
                }
                onDragStarted: (serverGroupId, serverId, channelId, name, position) =>
                    dragged.begin(name, -1, serverGroupId, serverId, channelId, position)
                onDragMoved: position => dragged.moveTo(position)
                onDragEnded: done => dragged.end(done)
            }
            TileGrid {
                id: grid

                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.margins: 2
                focus: true
                dragged: dragged
                zoneStore: root.zoneStore
                onTouched: root.layoutName = ""
            }
        }
    }
    // Where there is no room beside the grid.
    Drawer {
        id: drawer

        width: Math.min(320, root.width - 48)
        height: root.height
        focus: true

        CameraPanel {
            id: drawerPanel

            anchors.fill: parent
            onChosen: (serverGroupId, serverId, channelId) => {
                grid.model.assign(grid.current, serverGroupId, serverId, channelId);
                root.layoutName = "";
                drawer.close();
            }
        }
    }
    DraggedCamera {
        id: dragged
    }
}
