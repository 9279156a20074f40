// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import orrinsdkqml

// Playback of the selected tile, or of all at once: buttons, the timeline, and the keys for both.
Rectangle {
    id: root

    // The `VideoOutput` that is played, or null, and all that are on the screen.
    property VideoOutput tile: null
    property var tiles: []
    property bool synchronous: false
    property bool keysEnabled: true
    // The right depends on the address, which the controller takes after the tile has it.
    readonly property bool permitted: root.tile !== null && root.tile.serverGroupId > 0 && root.tile.serverId > 0 && root.tile.channelId > 0
                                      && stream.time >= 0 && root.tile.playbackController.playbackPermitted
    readonly property alias commands: commands
    readonly property alias stream: stream

    signal jumpRequested(double time, var zone)
    // With the moment in words.
    signal exportRequested(double time, string text)

    implicitHeight: content.implicitHeight + ViewerStyle.gap
    color: ViewerStyle.surface

    // Jumps once the stream that was just asked for is there.
    function jumpWhenReady(time: double) {
        later.time = time;
        later.tries = 0;
        later.start();
    }

    Timer {
        id: later

        property double time: 0
        property int tries: 0

        interval: 100
        onTriggered: {
            later.tries += 1;
            if (stream.time > 0)
                commands.jump(later.time);
            else if (later.tries < 100)
                later.start();
        }
    }
    onSynchronousChanged: {
        for (const each of root.tiles)
            TileStream.setSyncContext(each, root.synchronous ? 1 : -1);
        commands.live();
    }
    onTileChanged: {
        if (root.synchronous)
            return;
        // A tile that nobody has sent into the past is live.
        const before = root.tile ? commands.left.get(root.tile) : undefined;
        commands.isLive = before ? before.isLive : true;
        commands.speed = before ? before.speed : 1;
    }

    PlaybackCommands {
        id: commands

        tile: root.tile
        controllers: root.synchronous ? Array.from(root.tiles, tile => tile.playbackController)
                                      : root.tile ? [root.tile.playbackController] : []
    }
    TileStream {
        id: stream

        tile: root.tile
    }
    RecordedTimes {
        id: recorded

        serverGroupId: root.tile?.serverGroupId ?? -1
        serverId: root.tile?.serverId ?? -1
        channelId: root.tile?.channelId ?? -1
    }
    ColumnLayout {
        id: content

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.topMargin: ViewerStyle.gap / 2
        spacing: ViewerStyle.gap / 2

        TransportBar {
            Layout.fillWidth: true
            commands: commands
            permitted: root.permitted
            controller: root.tile?.playbackController ?? null
            timeText: stream.time > 0 ? bar.scale_.text(stream.time) : root.tile ? qsTr("No picture yet") : qsTr("No camera selected")
            zoneText: stream.time > 0 ? bar.scale_.foreignZone : ""
            synchronous: root.synchronous
            onJumpRequested: root.jumpRequested(stream.time, stream.zone)
            onExportRequested: root.exportRequested(stream.time, bar.scale_.text(stream.time))
            onSynchronousRequested: on => root.synchronous = on
            onSnapshotRequested: root.tile.playbackController.snapshot()
        }
        Text {
            id: narrowTime

            Layout.alignment: Qt.AlignHCenter
            visible: root.width < 560 && stream.time > 0
            color: ViewerStyle.text
            font.pixelSize: ViewerStyle.smallText
            text: (bar.scale_.text(stream.time) + "  " + bar.scale_.foreignZone).trim()
        }
        TimelineBar {
            id: bar

            Layout.fillWidth: true
            Layout.preferredHeight: 64
            enabled: root.permitted
            opacity: enabled ? 1 : 0.5
            time: stream.time > 0 ? stream.time : Date.now()
            zone: stream.zone
            times: recorded
            onScrubbed: time => commands.scrub(time, stream.zone)
            onJumped: time => commands.jump(time)
        }
    }

    component Key: Shortcut {
        enabled: root.keysEnabled && root.permitted
    }

    Key { sequence: "Space"; onActivated: commands.togglePlay() }
    Key { sequence: "K"; onActivated: commands.pause() }
    Key { sequence: "J"; onActivated: commands.rewind() }
    Key { sequence: "L"; onActivated: commands.forward() }
    Key { sequence: "Left"; onActivated: commands.stepBack() }
    Key { sequence: "Right"; onActivated: commands.stepForward() }
    Key { sequence: "Home"; onActivated: commands.toBeginning() }
    Key { sequence: "End"; onActivated: commands.toEnd() }
    Key { sequence: "Ctrl+Left"; onActivated: commands.jump(stream.time - 10000) }
    Key { sequence: "Ctrl+Right"; onActivated: commands.jump(stream.time + 10000) }
    Key { sequence: "Ctrl+L"; onActivated: commands.live() }
    Key { sequence: "Ctrl+T"; onActivated: root.jumpRequested(stream.time, stream.zone) }
    Key { sequence: "Ctrl+E"; onActivated: root.exportRequested(stream.time, bar.scale_.text(stream.time)) }
    Key { sequence: "Ctrl+Y"; onActivated: root.synchronous = !root.synchronous }
    Key { sequence: "Ctrl+S"; onActivated: root.tile.playbackController.snapshot() }
    Key { sequence: "Ctrl++"; onActivated: bar.zoom(0.5) }
    Key { sequence: "Ctrl+-"; onActivated: bar.zoom(2) }
}
