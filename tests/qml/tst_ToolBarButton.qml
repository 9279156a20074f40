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

        ToolBarButton { iconSource: "settings" }
    }
    SignalSpy {
        id: repeats

        signalName: "repeat"
    }
    SignalSpy {
        id: activations

        signalName: "activated"
    }
    SignalSpy {
        id: clicks

        signalName: "clicked"
    }
    TestCase {
        name: "ToolBarButton"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        readonly property var looks: ({
            backgroundColor: "#100000", highlightColor: "#200000",
            iconColor: "#001000", iconHighlightColor: "#002000", iconActiveColor: "#003000"
        })

        function make(properties: var): var {
            const item = createTemporaryObject(plain, root, Object.assign({}, looks, properties));
            for (const spy of [repeats, activations, clicks]) {
                spy.target = item;
                spy.clear();
            }
            mouseMove(root, 300, 250);
            return item;
        }
        function cleanup() {
            mouseRelease(root, 300, 250);
            settings.mobile = false;
            settings.controlHeightHints = 33;
        }
        function backgroundOf(item: var): var {
            return Find.first(item, "QQuickRectangle");
        }
        function overlayOf(item: var): var {
            return Find.first(item, "ColorOverlay_");
        }
        function textOf(item: var): var {
            return Find.first(item, "QQuickText");
        }
        function timerOf(item: var): var {
            return Find.first(item, "QQmlTimer");
        }
        function checkLook(item: var, background: string, foreground: string) {
            compare(backgroundOf(item).color, background);
            compare(overlayOf(item).color, foreground);
            compare(textOf(item).color, foreground);
        }

        function test_defaults_followSettings() {
            const item = createTemporaryObject(plain, root);
            compare(item.iconColor, settings.iconColor);
            compare(item.iconHighlightColor, settings.iconHighlightColor);
            compare(item.iconActiveColor, settings.iconActiveColor);
            compare(item.backgroundColor, settings.backgroundColor);
            compare(item.highlightColor, settings.highlightColor);
            compare(item.radius, settings.controlRadiusHints);
            compare(item.margins, settings.controlMarginsHints);
            compare(item.fontPixelSize, settings.fontPixelSizeHints);
            compare(item.text, "");
            compare(item.lockButton, false);
            compare(item.locked, false);
            compare(item.repeatTime, 200);
            verify(item.hoverEnabled);
        }
        function test_size_followsControlHeightOrText() {
            const item = make({});
            compare(item.width, 43);
            compare(item.height, 43);
            settings.controlHeightHints = 50;
            compare(item.width, 60);
            compare(item.height, 60);
            item.text = "a rather long caption";
            compare(item.width, textOf(item).width + 10);
            compare(item.height, 60);
        }
        function test_icon_isHiddenImageUnderTheOverlay() {
            const item = make({ margins: 4 });
            const image = Find.first(item, "QQuickImage");
            compare(image.source, "qrc:/settings.svg");
            compare(image.status, Image.Ready);
            compare(image.sourceSize, Qt.size(43, 43));
            verify(!image.visible);
            verify(image.cache && image.smooth);
            compare(overlayOf(item).width, 35);
            compare(overlayOf(item).x, 4);
            verify(overlayOf(item).visible);
            item.iconSource = "";
            compare(image.source, "");
        }
        function test_text_hidesTheIcon_butTheBorderFollowsTheSource() {
            const item = make({});
            compare(backgroundOf(item).border.width, 0);
            compare(backgroundOf(item).border.color, settings.borderColor);
            compare(backgroundOf(item).radius, 5);
            item.text = "Live";
            verify(!overlayOf(item).visible);
            compare(backgroundOf(item).border.width, 0);
            item.iconSource = "";
            compare(backgroundOf(item).border.width, 2);
        }
        function test_text_isCentredInItsSize() {
            const item = make({ text: "Live", fontPixelSize: 20 });
            compare(textOf(item).font.pixelSize, 20);
            fuzzyCompare(textOf(item).x + textOf(item).width / 2, item.width / 2, 1);
        }
        function test_look_onTheDesktop() {
            const item = make({});
            checkLook(item, "#100000", "#001000");
            mouseMove(item, 10, 10);
            checkLook(item, "#200000", "#002000");
            mousePress(item, 10, 10);
            checkLook(item, "#200000", "#003000");
            mouseMove(item, 200, 200);
            checkLook(item, "#100000", "#001000");
            mouseRelease(item, 200, 200);
        }
        function test_look_onAMobileDevice() {
            settings.mobile = true;
            const item = make({});
            checkLook(item, "#363a44", "#001000");
            mouseMove(item, 10, 10);
            checkLook(item, "#363a44", "#001000");
            mousePress(item, 10, 10);
            checkLook(item, "#200000", "#003000");
            mouseRelease(item, 10, 10);
            checkLook(item, "#363a44", "#001000");
        }
        function test_look_ofALockButton() {
            const item = make({ lockButton: true });
            checkLook(item, "#363a44", "#001000");
            mouseMove(item, 10, 10);
            checkLook(item, "#363a44", "#001000");
            item.locked = true;
            checkLook(item, "#200000", "#003000");
        }
        function test_picture_isTinted() {
            const item = make({ iconSource: "ic_exit_to_app_black_24px", iconColor: "#ff8000", margins: 0 });
            waitForRendering(item);
            // On the door's right edge: column 19 of the grid of 24.
            compare(grabImage(item).pixel(Math.round(19 / 24 * 43), 21), "#ff8000");
        }
        function test_lockButton_flipsAtThePress_andNeverRepeats() {
            const item = make({ lockButton: true, repeatTime: 20 });
            mousePress(item);
            verify(item.locked);
            compare(activations.count, 1);
            compare(activations.signalArguments[0][0], true);
            verify(!timerOf(item).running);
            mouseRelease(item);
            verify(item.locked);
            compare(activations.count, 1);
            compare(clicks.count, 1);
            mouseClick(item);
            verify(!item.locked);
            compare(activations.signalArguments[1][0], false);
            compare(repeats.count, 0);
        }
        function test_repeat_startsAnIntervalAfterThePress() {
            const item = make({ repeatTime: 100 });
            const begin = Date.now();
            mousePress(item);
            compare(repeats.count, 0);
            repeats.wait(5000);
            verify(Date.now() - begin >= 90, Date.now() - begin);
            tryVerify(() => repeats.count >= 3);
            mouseRelease(item);
            const count = repeats.count;
            wait(250);
            compare(repeats.count, count);
            compare(activations.count, 0);
            compare(clicks.count, 1);
        }
        function test_repeat_quickens_afterTenAndTwentyTicks() {
            const item = make({ repeatTime: 2000 });
            const timer = timerOf(item);
            mousePress(item);
            verify(timer.running && timer.repeat);
            for (let tick = 1; tick <= 30; ++tick) {
                timer.triggered();
                compare(repeats.count, tick);
                compare(timer.interval, tick > 20 ? 500 : tick > 10 ? 1000 : 2000, "after tick " + tick);
            }
            mouseRelease(item);
            verify(!timer.running);
            compare(timer.interval, 2000);
            mousePress(item);
            for (let tick = 1; tick <= 10; ++tick)
                timer.triggered();
            compare(timer.interval, 2000);
            mouseRelease(item);
        }
        function test_repeat_ends_whenTheButtonIsTakenAwayWhilePressed() {
            const item = make({});
            mousePress(item);
            verify(timerOf(item).running);
            item.visible = false;
            verify(!timerOf(item).running);
        }
    }
}
