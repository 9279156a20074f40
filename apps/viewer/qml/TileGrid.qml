// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import OrrinViewer.Host
import orrinsdkqml

// Tiles in as many rows as columns, or one of them alone over all.
FocusScope {
    id: root

    property alias cameras: tiles.cameras
    property DraggedCamera dragged: null
    property ZoneStore zoneStore: null
    readonly property alias model: tiles
    readonly property int columns: Math.ceil(Math.sqrt(tiles.count))
    // The tile that is alone, -1 in the grid.
    property int single: -1
    readonly property alias current: tiles.current
    // The `VideoOutput` of the selected tile, null without a camera, and those of all tiles with one.
    property VideoOutput currentOutput: null
    property var outputs: []
    property int showingPictures: 0
    readonly property int wantedPictures: root.single >= 0 ? 1 : tiles.assigned

    readonly property int gap: root.columns > 4 ? 1 : 2
    readonly property real cellWidth: (root.width - root.gap * (root.columns - 1)) / root.columns
    readonly property real cellHeight: (root.height - root.gap * (root.columns - 1)) / root.columns

    // Somebody changed the grid, other than by the list of cameras.
    signal touched()

    function tileAt(tile: int): CameraTile {
        return repeater.itemAt(tile) as CameraTile;
    }

    function setLayout(columns: int) {
        root.single = -1;
        tiles.count = columns * columns;
        root.touched();
    }

    function show(cameraKeys: list<string>) {
        root.single = -1;
        tiles.cameraKeys = cameraKeys;
    }

    function toggleSingle() {
        root.single = root.single >= 0 || tiles.count === 1 ? -1 : tiles.current;
    }

    function step(channels: int) {
        if (channels > 0)
            tiles.nextChannel(tiles.current);
        else
            tiles.previousChannel(tiles.current);
        root.touched();
    }

    function select(tile: int) {
        tiles.current = tile;
        if (root.single >= 0)
            root.single = tiles.current;
    }

    function selectOutput(output: VideoOutput) {
        for (let i = 0; i < repeater.count; ++i) {
            if (root.tileAt(i)?.output === output) {
                root.select(i);
                return;
            }
        }
    }

    function moveSelection(right: int, down: int) {
        const row = Math.floor(tiles.current / root.columns) + down;
        const column = tiles.current % root.columns + right;
        if (row >= 0 && row < root.columns && column >= 0 && column < root.columns)
            root.select(row * root.columns + column);
    }

    function steer(pan: int, tilt: int) {
        root.currentOutput?.ptzfPanTilt(pan * 16000, tilt * 16000);
    }

    function take(tile: int, camera: DraggedCamera) {
        if (camera === null)
            return;
        if (camera.tile >= 0)
            tiles.swap(camera.tile, tile);
        else
            tiles.assign(tile, camera.serverGroupId, camera.serverId, camera.channelId);
        root.select(tile);
        root.touched();
    }

    function countPictures() {
        let showing = 0;
        for (let i = 0; i < repeater.count; ++i) {
            const tile = root.tileAt(i);
            if (tile && tile.picture.pictures > 2 && (root.single < 0 || root.single === i))
                showing += 1;
        }
        root.showingPictures = showing;
    }

    function collectOutputs() {
        const outputs = [];
        for (let i = 0; i < repeater.count; ++i) {
            const tile = root.tileAt(i);
            if (tile?.assigned)
                outputs.push(tile.output);
        }
        root.outputs = outputs;
        const tile = root.tileAt(tiles.current);
        root.currentOutput = tile?.assigned ? tile.output : null;
        root.countPictures();
    }

    onSingleChanged: root.countPictures()
    Component.onCompleted: root.collectOutputs()

    Keys.onReturnPressed: root.toggleSingle()
    Keys.onEnterPressed: root.toggleSingle()
    Keys.onEscapePressed: event => {
        event.accepted = root.single >= 0;
        root.single = -1;
    }
    Keys.onPressed: event => {
        const way = { [Qt.Key_Left]: [-1, 0], [Qt.Key_Right]: [1, 0], [Qt.Key_Up]: [0, -1], [Qt.Key_Down]: [0, 1] }[event.key];
        if (way && event.modifiers & Qt.ShiftModifier && !event.isAutoRepeat) {
            root.steer(way[0], way[1]);
            event.accepted = true;
        }
    }
    Keys.onReleased: event => {
        if ([Qt.Key_Left, Qt.Key_Right, Qt.Key_Up, Qt.Key_Down].includes(event.key) && !event.isAutoRepeat)
            root.steer(0, 0);
    }

    TileModel {
        id: tiles

        count: 4
        onCurrentChanged: root.collectOutputs()
        onAssignedChanged: root.collectOutputs()
        onCameraKeysChanged: root.collectOutputs()
        onCountChanged: {
            root.single = -1;
            root.collectOutputs();
        }
    }
    Repeater {
        id: repeater

        model: tiles
        onItemAdded: root.collectOutputs()
        onItemRemoved: root.collectOutputs()

        CameraTile {
            id: tile

            readonly property int row: Math.floor(tile.index / root.columns)
            readonly property int column: tile.index % root.columns

            zoneStore: root.zoneStore
            alone: root.single === tile.index || tiles.count === 1
            visible: root.single < 0 || tile.alone
            mayBeHigh: root.columns <= settings.layoutDimLowStream // qmllint disable unqualified
            selected: tiles.current === tile.index
            x: tile.alone ? 0 : Math.round(tile.column * (root.cellWidth + root.gap))
            y: tile.alone ? 0 : Math.round(tile.row * (root.cellHeight + root.gap))
            width: tile.alone ? root.width : Math.round((tile.column + 1) * (root.cellWidth + root.gap)) - root.gap - tile.x
            height: tile.alone ? root.height : Math.round((tile.row + 1) * (root.cellHeight + root.gap)) - root.gap - tile.y
            onChosen: {
                root.forceActiveFocus();
                root.select(tile.index);
            }
            onToggled: {
                root.select(tile.index);
                root.toggleSingle();
            }
            onChannelWanted: step => {
                root.select(tile.index);
                root.step(step);
            }
            onDropped: camera => root.take(tile.index, camera)
            onDragStarted: position => root.dragged?.begin(tile.name, tile.index, -1, -1, -1, position)
            onDragMoved: position => root.dragged?.moveTo(position)
            onDragEnded: done => root.dragged?.end(done)

            Connections {
                function onPicturesChanged() {
                    root.countPictures();
                }

                target: tile.picture
            }
        }
    }
}
