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

        LoadingCircle {}
    }
    SignalSpy {
        id: completions

        signalName: "completed"
    }
    TestCase {
        name: "LoadingCircle"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function make(properties: var): var {
            const item = createTemporaryObject(plain, root, properties);
            completions.target = item;
            completions.clear();
            return item;
        }
        function timerOf(item: var): var {
            return Find.first(item, "QQmlTimer");
        }
        function cleanup() {
            settings.devicePixelRatio = 1;
            settings.controlHeightHints = 33;
        }
        function test_defaults() {
            const item = make({});
            compare(item.msToComplete, 500);
            compare(item.radius, 49.5);
            compare(item.primaryColor, "#add8e6");
            compare(item.centerX, 0);
            compare(item.centerY, 0);
            compare(item.lineWidth, 20);
            compare(item.width, 119);
            compare(item.height, 119);
            compare(item.opacity, 0);
            settings.devicePixelRatio = 2;
            compare(item.lineWidth, 40);
            compare(item.width, 139);
            item.radius = 30;
            compare(item.height, 100);
        }
        function test_centre_movesTheItem() {
            const item = make({ radius: 40, lineWidth: 20 });
            item.centerX = 200;
            item.centerY = 120;
            compare(item.x, 150);
            compare(item.y, 70);
        }
        function test_centre_movesTheItem_whenSetAtCreation() {
            const item = make({ radius: 40, lineWidth: 20, centerX: 200, centerY: 120 });
            compare(item.x, 150);
            compare(item.y, 70);
        }
        function test_completed_comesAtTheEleventhTick_of500() {
            const item = make({});
            item.start(500);
            const timer = timerOf(item);
            compare(timer.interval, 50);
            for (let tick = 1; tick <= 10; ++tick) {
                timer.triggered();
                fuzzyCompare(item.opacity, tick / 10, 1e-6);
                compare(completions.count, 0);
            }
            timer.triggered();
            compare(completions.count, 1);
            compare(item.opacity, 0);
            verify(!timer.running);
        }
        function test_completed_comesAfterTheTime() {
            const item = make({});
            const begin = Date.now();
            item.start(200);
            compare(item.msToComplete, 200);
            completions.wait(5000);
            verify(Date.now() - begin >= 230, Date.now() - begin);
            wait(120);
            compare(completions.count, 1);
        }
        function test_stop_endsWithoutASignal() {
            const item = make({});
            item.start(500);
            timerOf(item).triggered();
            item.stop();
            compare(item.opacity, 0);
            verify(!timerOf(item).running);
            wait(120);
            compare(completions.count, 0);
        }
        function test_start_keepsTheElapsedTime_whenRunning() {
            const item = make({});
            item.start(500);
            for (let tick = 0; tick < 5; ++tick)
                timerOf(item).triggered();
            fuzzyCompare(item.opacity, 0.5, 1e-6);
            item.start(1000);
            fuzzyCompare(item.opacity, 0.25, 1e-6);
            item.stop();
        }
        function test_picture_showsTheSweptPart_withADotAtItsHead() {
            const item = make({ radius: 60, lineWidth: 20, primaryColor: "#ff0000" });
            item.start(100000);
            const timer = timerOf(item);
            timer.time = 50000;
            item.opacity = 1;
            item.requestPaint();
            waitForRendering(item);
            let image = grabImage(item);
            // Half a turn from the right, clockwise: the lower half.
            tryVerify(() => Qt.colorEqual(grabImage(item).pixel(70, 130), "#ff0000"));
            image = grabImage(item);
            verify(!Qt.colorEqual(image.pixel(70, 10), "#ff0000"));
            verify(!Qt.colorEqual(image.pixel(70, 70), "#ff0000"));
            compare(String(image.pixel(10, 70)), "#7f0000");
            item.stop();
            tryVerify(() => !Qt.colorEqual(grabImage(item).pixel(70, 130), "#ff0000"));
            // Nor a dot where a sweep begins.
            verify(String(grabImage(item).pixel(130, 70)) !== "#7f0000");
        }
    }
}
