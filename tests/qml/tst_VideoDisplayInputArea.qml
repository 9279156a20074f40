// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 400
    height: 300

    Component {
        id: plain

        VideoDisplayInputArea {
            property list<string> log
            property var pinches: []

            width: 200
            height: 100
            onPressed: (x, y) => log.push("pressed " + x + " " + y + " last " + last_x + " " + last_y)
            onReleased: log.push("released last " + last_x + " " + last_y)
            onClicked: (x, y) => log.push("clicked " + x + " " + y)
            onDoubleClicked: (x, y) => log.push("doubleClicked " + x + " " + y)
            onPan: (x, y) => log.push("pan " + x + " " + y)
            onMouseChanged: (x, y) => log.push("mouseChanged " + x + " " + y + " last " + last_x + " " + last_y)
            onWheel: (angle, x, y) => log.push("wheel " + angle + " " + x + " " + y)
            onPinchStarted: pinch => note("pinchStarted", pinch)
            onPinchUpdated: pinch => note("pinchUpdated", pinch)
            onPinchFinished: pinch => note("pinchFinished", pinch)
            onMessage: log.push("message")

            function note(name: string, pinch: var) {
                log.push(name);
                pinches.push({ scale: pinch.scale, previousScale: pinch.previousScale, center: Qt.point(pinch.center.x, pinch.center.y) });
            }
        }
    }
    TestCase {
        name: "VideoDisplayInputArea"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function mouseAreaOf(item: var): var {
            return Find.first(item, "QQuickMouseArea");
        }
        function test_click_isToldInPixels_afterPressAndRelease() {
            const item = createTemporaryObject(plain, root);
            compare(item.last_x, 0);
            compare(item.last_y, 0);
            mousePress(item, 50, 25);
            compare(item.last_x, 50);
            compare(item.last_y, 25);
            mouseRelease(item, 50, 25);
            compare(item.log, ["pressed 50 25 last 0 0", "released last 50 25", "clicked 50 25"]);
            compare(item.last_x, 0);
            compare(item.last_y, 0);
        }
        function test_move_tellsTheWay_thenThePosition() {
            const item = createTemporaryObject(plain, root);
            mousePress(item, 100, 50);
            item.log = [];
            mouseMove(item, 150, 25);
            compare(item.log, ["pan 50 -25", "mouseChanged 0.5 -0.5 last 150 25"]);
            item.log = [];
            // Out of the area, too.
            mouseMove(item, 200, 125);
            compare(item.log, ["pan 50 100", "mouseChanged 1 1.5 last 200 125"]);
            mouseRelease(item, 200, 125);
        }
        function test_move_tellsNothing_withoutAButton() {
            const item = createTemporaryObject(plain, root);
            mouseMove(item, 20, 20);
            mouseMove(item, 60, 60);
            compare(item.log, []);
        }
        function test_doubleClick_isToldNormalised() {
            const item = createTemporaryObject(plain, root);
            mouseDoubleClickSequence(item, 150, 25);
            compare(item.log.filter(line => line.startsWith("doubleClicked")), ["doubleClicked 0.5 -0.5"]);
            compare(item.log.filter(line => line.startsWith("clicked")), ["clicked 150 25"]);
        }
        function test_corners_areNormalised() {
            const item = createTemporaryObject(plain, root);
            compare(item.scaleBetween(0, -1, 1, 0, 200), -1);
            compare(item.scaleBetween(200, -1, 1, 0, 200), 1);
            compare(item.scaleBetween(100, -1, 1, 0, 200), 0);
            compare(item.scaleBetween(15, 0, 100, 10, 20), 50);
            mouseWheel(item, 0, 0, 0, 120);
            compare(item.log, ["wheel 1 -1 -1"]);
        }
        function test_wheel_isOneStep_data() {
            return [
                { tag: "up", x: 0, y: 120, expected: 1 },
                { tag: "far up", x: 0, y: 1200, expected: 1 },
                { tag: "a little up", x: 0, y: 8, expected: 1 },
                { tag: "down", x: 0, y: -120, expected: -1 },
                { tag: "sideways", x: 120, y: 0, expected: -1 }
            ];
        }
        function test_wheel_isOneStep(data) {
            const item = createTemporaryObject(plain, root);
            mouseWheel(item, 50, 75, data.x, data.y);
            compare(item.log, ["wheel " + data.expected + " -0.5 0.5"]);
        }
        function test_pinch_releases_andTakesTheMouseAway() {
            const item = createTemporaryObject(plain, root);
            const area = mouseAreaOf(item);
            const touch = touchEvent(item);
            touch.press(0, item, 80, 50).press(1, item, 120, 50).commit();
            // Moves are delivered with the next frame, the last one alone.
            for (let step = 1; step <= 6; ++step) {
                const before = item.log.length;
                touch.move(0, item, 80 - 10 * step, 50).move(1, item, 120 + 10 * step, 50).commit();
                tryVerify(() => item.log.length > before);
            }
            const begin = item.log.indexOf("pinchStarted");
            verify(begin > 0, item.log);
            verify(item.log[begin - 1].startsWith("released"), item.log);
            compare(area.enabled, false);
            compare(item.pinches[0].scale, 1);
            compare(item.pinches[0].previousScale, 1);
            const updates = item.log.filter(line => line === "pinchUpdated").length;
            verify(updates >= 2, item.log);
            verify(item.pinches[item.pinches.length - 1].scale > 1.2, item.pinches[item.pinches.length - 1].scale);
            for (let i = 1; i < item.pinches.length; ++i)
                compare(item.pinches[i].previousScale, item.pinches[i - 1].scale);
            compare(item.log.indexOf("pan", begin), -1);
            touch.release(0, item, 20, 50).release(1, item, 180, 50).commit();
            tryVerify(() => area.enabled);
            compare(item.log[item.log.length - 1], "pinchFinished");
            item.log = [];
            mouseClick(item, 10, 10);
            compare(item.log[item.log.length - 1], "clicked 10 10");
        }
    }
}
