// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 400
    height: 400

    MouseArea {
        id: beneath

        property int presses: 0
        property int clicks: 0
        property int doubleClicks: 0

        anchors.fill: parent
        onPressed: beneath.presses += 1
        onClicked: beneath.clicks += 1
        onDoubleClicked: beneath.doubleClicks += 1
    }
    Component {
        id: plain

        DistancePtzf {
            width: 300
            height: 300
        }
    }
    SignalSpy {
        id: xSpy

        signalName: "speedXChanged"
    }
    TestCase {
        name: "DistancePtzf"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
            beneath.presses = 0;
            beneath.clicks = 0;
            beneath.doubleClicks = 0;
        }
        function make(properties: var): var {
            const item = createTemporaryObject(plain, root, properties === undefined ? {} : properties);
            verify(item);
            return item;
        }
        function test_defaults() {
            const item = make();
            for (const name of ["originX", "originY", "mouseX", "mouseY", "speedX", "speedY", "speedZ"])
                compare(item[name], 0, name);
            compare(item.lineColor, "#0000cc");
            compare(item.lineBorderColor, "#999999");
            compare(item.lineWidth, 5);
            compare(item.deadZonePercent, 0.1);
            compare(item.maxPtzValue, 32767);
            compare(item.maxPixelValue, 300);
            compare(item.zoomStep, 255);
        }
        function test_maxPixelValue_isTheSmallerSide() {
            const item = make({ width: 200, height: 350 });
            compare(item.maxPixelValue, 200);
            item.height = 100;
            compare(item.maxPixelValue, 100);
        }
        function test_activeArea_isTheMiddle() {
            const item = make();
            const canvas = Find.first(item, "QQuickCanvasItem");
            const pinch = Find.first(item, "QQuickPinchArea");
            const area = Find.first(item, "QQuickMouseArea");
            for (const each of [canvas, pinch]) {
                compare(each.x, 30);
                compare(each.y, 30);
                compare(each.width, 240);
                compare(each.height, 240);
            }
            compare(area.width, 240);
            verify(area.propagateComposedEvents);
            item.deadZonePercent = 0.25;
            compare(canvas.x, 75);
            compare(canvas.width, 150);
        }
        function test_activeArea_countsThePlaceOfTheItem() {
            const item = make({ x: 10, y: 20 });
            const canvas = Find.first(item, "QQuickCanvasItem");
            compare(canvas.x, 10 + 30);
            compare(canvas.y, 20 + 30);
            compare(canvas.width, 300 - 2 * 40);
            compare(canvas.height, 300 - 2 * 50);
        }
        function test_press_setsThePositionsAlone() {
            const item = make();
            mousePress(item, 100, 120);
            compare(item.originX, 70);
            compare(item.mouseX, 70);
            compare(item.originY, 90);
            compare(item.mouseY, 90);
            compare(item.speedX, 0);
            compare(item.speedY, 0);
            mouseRelease(item, 100, 120);
        }
        function test_drag_data() {
            return [
                { tag: "right by a third", x: 250, y: 150, fromX: 150, speedX: 32766, speedY: 0 },
                { tag: "right by a sixth", x: 200, y: 150, fromX: 150, speedX: 16383, speedY: 0 },
                { tag: "left by two thirds", x: 50, y: 150, fromX: 250, speedX: -65533, speedY: 0 },
                { tag: "down", x: 150, y: 200, fromX: 150, speedX: 0, speedY: 16383 },
                { tag: "up and right", x: 200, y: 100, fromX: 150, speedX: 16383, speedY: -16383 }
            ];
        }
        function test_drag(data) {
            const item = make();
            mousePress(item, data.fromX, 150);
            mouseMove(item, data.x, data.y);
            compare(item.speedX, data.speedX);
            compare(item.speedY, data.speedY);
            compare(item.speedZ, 0);
            compare(item.mouseX, data.x - 30);
            compare(item.originX, data.fromX - 30);
            mouseRelease(item, data.x, data.y);
            for (const name of ["originX", "originY", "mouseX", "mouseY", "speedX", "speedY"])
                compare(item[name], 0, name);
        }
        function test_drag_byTouch() {
            const item = make();
            const touch = touchEvent(item);
            touch.press(0, item, 150, 150).commit();
            touch.move(0, item, 180, 150).commit();
            touch.move(0, item, 200, 150).commit();
            // Moves of a finger come with the next frame.
            tryCompare(item, "speedX", 16383);
            touch.release(0, item, 200, 150).commit();
            tryCompare(item, "speedX", 0);
            compare(item.mouseX, 0);
        }
        function test_pinch_takesTheDragOver() {
            const item = make();
            const touch = touchEvent(item);
            touch.press(0, item, 140, 150).commit();
            touch.move(0, item, 150, 150).commit();
            touch.stationary(0).press(1, item, 160, 150).commit();
            for (let step = 1; step <= 8; ++step) {
                touch.move(0, item, 150 - 10 * step, 150).move(1, item, 160 + 10 * step, 150).commit();
                wait(10);
            }
            touch.release(0, item, 70, 150).release(1, item, 240, 150).commit();
            // However the gesture went: nothing moves when no finger is left.
            tryCompare(item, "speedZ", 0);
            compare(item.speedX, 0);
            compare(item.speedY, 0);
            compare(item.originX, 0);
        }
        function test_release_makesNoWildSpeeds() {
            const item = make();
            mousePress(item, 150, 150);
            mouseMove(item, 200, 200);
            xSpy.target = item;
            xSpy.clear();
            mouseRelease(item, 200, 200);
            compare(xSpy.count, 1);
            compare(item.speedX, 0);
            xSpy.target = null;
        }
        function test_positions_aloneWriteNoSpeed() {
            const item = make();
            item.mouseX = 100;
            item.originY = 40;
            compare(item.speedX, 0);
            compare(item.speedY, 0);
            item.updateXandYSpeeds();
            compare(item.speedX, 32766);
            compare(item.speedY, -13106);
        }
        function test_frame_isLeftToWhatLiesBeneath() {
            const item = make();
            mousePress(item, 10, 150);
            compare(item.originX, 0);
            mouseMove(item, 20, 150);
            mouseRelease(item, 20, 150);
            compare(item.speedX, 0);
            compare(beneath.presses, 1);
            mouseClick(item, 150, 295);
            compare(beneath.presses, 2);
            compare(beneath.clicks, 2);
        }
        function test_click_goesOnBeneath() {
            const item = make();
            mouseClick(item, 150, 150);
            compare(beneath.clicks, 1);
            compare(item.speedX, 0);
            compare(item.originX, 0);
        }
        function test_doubleClick_goesOnBeneath() {
            const item = make();
            mouseDoubleClickSequence(item, 150, 150);
            compare(beneath.doubleClicks, 1);
        }
        function test_wheel_data() {
            return [
                { tag: "a notch in", delta: 120, speed: 30600 },
                { tag: "a notch out", delta: -120, speed: -30600 },
                { tag: "a fine step", delta: 8, speed: 2040 }
            ];
        }
        function test_wheel(data) {
            const item = make();
            mouseWheel(item, 150, 150, 0, data.delta);
            compare(item.speedZ, data.speed);
            compare(item.speedX, 0);
            tryCompare(item, "speedZ", 0, 1000);
        }
        function test_wheel_addsAStep_whicheverWayItTurns() {
            const item = make();
            mouseWheel(item, 150, 150, 0, 120);
            mouseWheel(item, 150, 150, 0, 120);
            compare(item.speedZ, 30600 + 255);
            mouseWheel(item, 150, 150, 0, -120);
            compare(item.speedZ, 30600 + 2 * 255);
            tryCompare(item, "speedZ", 0, 1000);
            mouseWheel(item, 150, 150, 0, -120);
            compare(item.speedZ, -30600);
            mouseWheel(item, 150, 150, 0, -120);
            compare(item.speedZ, -30600 + 255);
        }
        function test_wheel_restartsItsTime() {
            const item = make();
            mouseWheel(item, 150, 150, 0, 120);
            for (let i = 0; i < 4; ++i) {
                wait(300);
                mouseWheel(item, 150, 150, 0, 120);
            }
            compare(item.speedZ, 30600 + 4 * 255);
            tryCompare(item, "speedZ", 0, 1000);
        }
        function test_wheel_startsTheTime_whenItIsHorizontal() {
            const item = make();
            mouseWheel(item, 150, 150, 120, 0);
            compare(item.speedZ, 0);
            mouseWheel(item, 150, 150, 0, 120);
            // Within the time of the first: a step, not a direction.
            compare(item.speedZ, 255);
        }
        function test_pinchToZoomSpeed_data() {
            return [
                { tag: "1", scale: 1, speed: 0 },
                { tag: "10", scale: 10, speed: 32767 },
                { tag: "100", scale: 100, speed: 32767 },
                { tag: "0.4", scale: 0.4, speed: -32767 },
                { tag: "0.1", scale: 0.1, speed: -32767 },
                { tag: "5.5", scale: 5.5, speed: 16383 },
                { tag: "0.7", scale: 0.7, speed: -16383 }
            ];
        }
        function test_pinchToZoomSpeed(data) {
            const item = make();
            compare(item.pinchToZoomSpeed({ scale: data.scale }), data.speed);
        }
        function test_scaleBetween() {
            const item = make();
            compare(item.scaleBetween(5, 0, 100, 0, 10), 50);
            compare(item.scaleBetween(0, -1, 1, 0, 10), -1);
            compare(item.scaleBetween(20, 0, 100, 0, 10), 200);
        }
        function test_pinch_zoomsWhileItLasts() {
            const item = make();
            const touch = touchEvent(item);
            touch.press(0, item, 140, 150).press(1, item, 160, 150).commit();
            for (let step = 1; step <= 8; ++step) {
                touch.move(0, item, 140 - 10 * step, 150).move(1, item, 160 + 10 * step, 150).commit();
                wait(10);
            }
            tryVerify(() => item.speedZ > 0);
            touch.release(0, item, 60, 150).release(1, item, 240, 150).commit();
            tryCompare(item, "speedZ", 0);
            compare(item.speedX, 0);
            compare(item.speedY, 0);
        }
        function test_line_isDrawnFromOriginToPointer() {
            const item = make({ lineWidth: 8 });
            mousePress(item, 80, 150);
            mouseMove(item, 220, 150);
            const canvas = Find.first(item, "QQuickCanvasItem");
            tryVerify(() => Qt.colorEqual(grabImage(canvas).pixel(120, 120), "#0000cc"));
            const image = grabImage(canvas);
            compare(image.pixel(120, 117), "#0000cc");
            compare(image.pixel(120, 122), "#0000cc");
            // Half as wide again, and no wider.
            compare(image.pixel(120, 114), "#999999");
            compare(image.pixel(120, 125), "#999999");
            verify(!Qt.colorEqual(image.pixel(120, 112), "#999999"));
            // From 50 to 190, with round ends.
            compare(image.pixel(48, 120), "#0000cc");
            verify(!Qt.colorEqual(image.pixel(40, 120), "#0000cc"));
            verify(!Qt.colorEqual(image.pixel(200, 120), "#0000cc"));
            mouseRelease(item, 220, 150);
            tryVerify(() => !Qt.colorEqual(grabImage(canvas).pixel(120, 120), "#0000cc"));
        }
    }
}
