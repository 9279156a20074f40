// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

// What the transport bar, the timeline and the keys ask of the playing tiles: of one, or of all at once.
QtObject {
    id: root

    // The playback controllers to drive; the first one is that of the selected tile.
    property var controllers: []
    property bool isLive: true
    // The controllers answer changes with signals that do not come for each command, so what was asked for is kept here.
    property double speed: 1
    readonly property bool moving: root.speed !== 0
    readonly property string speedText: root.isLive ? qsTr("LIVE") : root.speed === 0 ? qsTr("paused")
                                                    : Number(root.speed).toLocaleString(Qt.locale(), "f", root.speed % 1 === 0 ? 0 : 1) + " ×"

    // What each tile was last asked for.
    property var left: new Map()
    property Item tile: null

    function each(command: var, staysLive: bool) {
        for (const controller of root.controllers)
            command(controller);
        root.isLive = staysLive;
        root.speed = root.controllers[0]?.speed ?? 1;
        if (root.tile)
            root.left.set(root.tile, { isLive: root.isLive, speed: root.speed });
    }
    function live() {
        root.each(controller => controller.live(), true);
    }
    function togglePlay() {
        if (root.moving)
            root.each(controller => controller.pause(), false);
        else
            root.each(controller => controller.play(), false);
    }
    function pause() {
        root.each(controller => controller.pause(), false);
    }
    function play(speed: double) {
        root.each(controller => controller.playWithSpeed(speed), false);
    }
    function forward() {
        root.each(controller => controller.fastForward(), false);
    }
    function rewind() {
        root.each(controller => controller.fastRewind(), false);
    }
    function stepForward() {
        root.each(controller => controller.frameStepForward(), false);
    }
    function stepBack() {
        root.each(controller => controller.frameStepBack(), false);
    }
    function toBeginning() {
        root.each(controller => controller.jumpToStart(), false);
    }
    function toEnd() {
        root.each(controller => controller.jumpToEnd(), false);
    }
    function jump(time: double) {
        const moment = new Date(time);
        root.each(controller => controller.jumpToDateTime(moment), false);
    }
    function scrub(time: double, zone: var) {
        root.each(controller => controller.scrubJump(time, zone), false);
    }
}
