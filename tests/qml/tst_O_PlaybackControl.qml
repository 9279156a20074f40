// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 500
    height: 200

    // The host's scope.
    QtObject {
        id: receiver

        property var calls: []

        function rewind() { receiver.calls.push("rewind"); }
        function forward() { receiver.calls.push("forward"); }
        function stepBack() { receiver.calls.push("stepBack"); }
        function stepForward() { receiver.calls.push("stepForward"); }
        function play() { receiver.calls.push("play"); }
        function pause() { receiver.calls.push("pause"); }
        function live() { receiver.calls.push("live"); }
        function take(): string {
            const calls = receiver.calls.join();
            receiver.calls = [];
            return calls;
        }
    }
    QtObject {
        id: streamingInfo

        property string state: "live"
    }
    QtObject {
        id: test

        property bool enableHotspotTest: false
    }
    Component {
        id: plain

        O_PlaybackControl {}
    }
    TestCase {
        name: "O_PlaybackControl"
        when: windowShown

        function init() {
            // The icons are the host's, and this one has none.
            failOnWarning(/^(?!.*Cannot open: qrc:\/Playback_)/);
            settings.devicePixelRatio = 1;
            streamingInfo.state = "live";
            test.enableHotspotTest = false;
            receiver.take();
        }
        function make(): var {
            const item = createTemporaryObject(plain, root);
            verify(item);
            tryVerify(() => buttons(item).length === 4);
            return item;
        }
        function buttons(item: var): var {
            return Find.all(Find.first(item, "QQuickListView").contentItem, "QQuickMouseArea");
        }
        function icons(item: var): string {
            return Find.all(item, "QQuickImage").map(image => String(image.source).slice(5)).join();
        }
        function icon(item: var, index: int): string {
            return String(Find.all(item, "QQuickImage")[index].source).slice(5);
        }
        function test_geometry_data() {
            return [{ tag: "1", dpr: 1 }, { tag: "1.5", dpr: 1.5 }];
        }
        function test_geometry(data) {
            settings.devicePixelRatio = data.dpr;
            const item = make();
            compare(item.width, root.width);
            compare(item.height, 74 * data.dpr);
            compare(item.color, Qt.color("transparent"));
            const list = Find.first(item, "QQuickListView");
            compare(list.width, (32 * 3 + 4 * 40) * data.dpr);
            compare(list.spacing, 32 * data.dpr);
            compare(list.orientation, ListView.Horizontal);
            compare(list.focus, true);
            compare(list.parent.width, item.width);
            compare(list.parent.height, 40 * data.dpr);
            // Centred, on whole pixels.
            fuzzyCompare(list.parent.y, 17 * data.dpr, 0.51);
            fuzzyCompare(list.x + list.width / 2, item.width / 2, 0.51);
            for (const [index, width, height] of [[0, 29, 20], [1, 40, 40], [2, 20, 20], [3, 29, 20]]) {
                compare(buttons(item)[index].width, 40 * data.dpr);
                compare(buttons(item)[index].height, 40 * data.dpr);
                const image = Find.all(item, "QQuickImage")[index];
                fuzzyCompare(image.sourceSize.width, width * data.dpr, 0.51);
                fuzzyCompare(image.sourceSize.height, height * data.dpr, 0.51);
            }
        }
        function test_icons_followTheState_data() {
            const rewind = "Playback_Rewind.svg,";
            const play = "Playback_PlayPause.svg,";
            const live = "Playback_Live.svg,";
            const forward = "Playback_FastForward.svg";
            return [
                { tag: "live", icons: rewind + play + "Playback_Live_Active.svg," + forward },
                { tag: "play", icons: rewind + "Playback_PlayPause_Active_1.svg," + live + forward },
                { tag: "paused", icons: rewind + "Playback_PlayPause_Active_2.svg," + live + forward },
                { tag: "rewind", icons: "Playback_Rewind_Active.svg," + play + live + forward },
                { tag: "forward", icons: rewind + play + live + "Playback_FastForward_Active.svg" },
                { tag: "", icons: rewind + play + live + forward }
            ];
        }
        function test_icons_followTheState(data) {
            const item = make();
            streamingInfo.state = data.tag;
            compare(icons(item), data.icons);
        }
        function test_hotspots_areFramed_whenAskedFor() {
            const item = make();
            const frame = buttons(item)[0].parent;
            compare(frame.color, Qt.color("transparent"));
            compare(frame.border.color, Qt.color("transparent"));
            test.enableHotspotTest = true;
            compare(frame.border.color, Qt.color("red"));
        }
        function test_press_data() {
            return [
                { tag: "rewind", index: 0, before: "live", call: "stepBack", after: "paused" },
                { tag: "play", index: 1, before: "live", call: "play", after: "play" },
                { tag: "play while paused", index: 1, before: "paused", call: "play", after: "play" },
                { tag: "pause", index: 1, before: "play", call: "pause", after: "paused" },
                { tag: "live", index: 2, before: "paused", call: "live", after: "live" },
                { tag: "forward", index: 3, before: "live", call: "stepForward", after: "paused" }
            ];
        }
        function test_press(data) {
            const item = make();
            streamingInfo.state = data.before;
            const button = buttons(item)[data.index];
            mousePress(button);
            compare(receiver.take(), data.call);
            compare(streamingInfo.state, data.after);
            mouseRelease(button);
            compare(receiver.take(), "");
            compare(streamingInfo.state, data.after);
        }
        function test_seekIcon_isActiveWhilePressed_andThenItsOwn() {
            const item = make();
            const button = buttons(item)[3];
            mousePress(button);
            compare(icon(item, 3), "Playback_FastForward_Active.svg");
            mouseRelease(button);
            compare(icon(item, 3), "Playback_FastForward.svg");
            // The state has no say in this row any more, and still has in the others.
            streamingInfo.state = "forward";
            compare(icon(item, 3), "Playback_FastForward.svg");
            streamingInfo.state = "rewind";
            compare(icon(item, 0), "Playback_Rewind_Active.svg");
        }
        function test_hold_repeats_data() {
            return [{ tag: "rewind", index: 0, step: "stepBack" }, { tag: "forward", index: 3, step: "stepForward" }];
        }
        function test_hold_repeats(data) {
            const item = make();
            const button = buttons(item)[data.index];
            mousePress(button);
            compare(receiver.take(), data.step);
            // At once when the hold begins, then every 400 ms.
            tryCompare(streamingInfo, "state", data.tag, 2000);
            wait(50);
            compare(receiver.calls.length, 1);
            verify(icon(item, data.index).endsWith("_Active.svg"));
            tryVerify(() => receiver.calls.length === 3, 1500);
            compare(receiver.take(), [data.tag, data.tag, data.tag].join());
            mouseRelease(button);
            compare(streamingInfo.state, data.tag);
            verify(!icon(item, data.index).endsWith("_Active.svg"));
            wait(600);
            compare(receiver.take(), "");
        }
        function test_hold_doesNothing_whereNothingIsSought_data() {
            return [{ tag: "play", index: 1 }, { tag: "live", index: 2 }];
        }
        function test_hold_doesNothing_whereNothingIsSought(data) {
            const item = make();
            mousePress(buttons(item)[data.index]);
            receiver.take();
            wait(1300);
            compare(receiver.take(), "");
            mouseRelease(buttons(item)[data.index]);
        }
        function test_press_byTouch() {
            const item = make();
            const button = buttons(item)[1];
            touchEvent(item).press(0, button).commit();
            compare(receiver.take(), "play");
            touchEvent(item).release(0, button).commit();
        }
    }
}
