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

        VideoDisplayBorder {
            width: 200
            height: 100
        }
    }
    // Everything sooner, so that a test need not wait for seconds.
    Component {
        id: quick

        VideoDisplayBorder {
            width: 200
            height: 100
            fadeStartDelay: 300
            fadeDuration: 200
        }
    }
    TestCase {
        name: "VideoDisplayBorder"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function frameOf(item: var): var {
            return Find.first(item, "QQuickRectangle");
        }
        function timerOf(item: var): var {
            return Find.first(item, "QQmlTimer");
        }
        // After the fade of the start.
        function settled(component: var): var {
            const item = createTemporaryObject(component, root);
            tryCompare(frameOf(item), "opacity", 0);
            return item;
        }
        function test_defaults() {
            const item = createTemporaryObject(plain, root);
            compare(item.fadeStartDelay, 5000);
            compare(item.fadeDuration, 2000);
            compare(item.borderColor, Theme.orrinworksBlue);
            compare(item.borderWidth, 2);
            compare(item.highlighted, false);
            const frame = frameOf(item);
            compare(frame.color, "#00000000");
            compare(frame.visible, false);
            compare(frame.width, 200);
            compare(frame.height, 100);
            verify(!timerOf(item).running);
            verify(!timerOf(item).repeat);
            item.borderColor = "#ff0000";
            item.borderWidth = 7;
            compare(frame.border.color, "#ff0000");
            compare(frame.border.width, 7);
        }
        function test_doHighlight_showsTheFrame_untilTheFadeEnds() {
            const item = settled(quick);
            const frame = frameOf(item);
            const begin = Date.now();
            item.doHighlight();
            compare(item.highlighted, true);
            compare(frame.visible, true);
            compare(frame.opacity, 1);
            compare(timerOf(item).running, true);
            tryVerify(() => frame.opacity < 1);
            verify(Date.now() - begin >= 290, Date.now() - begin);
            compare(item.highlighted, true);
            tryCompare(item, "highlighted", false);
            verify(Date.now() - begin >= 480, Date.now() - begin);
            compare(frame.opacity, 0);
            compare(frame.visible, false);
            compare(timerOf(item).running, false);
        }
        function test_doHighlight_beginsAnew_duringTheFade() {
            const item = settled(quick);
            const frame = frameOf(item);
            item.doHighlight();
            tryVerify(() => frame.opacity < 0.9);
            const begin = Date.now();
            item.doHighlight();
            compare(frame.opacity, 1);
            compare(item.highlighted, true);
            // The fade that was stopped does not end the highlight.
            tryVerify(() => frame.opacity < 1);
            verify(Date.now() - begin >= 290, Date.now() - begin);
            compare(item.highlighted, true);
        }
        function test_doHighlight_prolongs_whileTheFrameStands() {
            const item = settled(quick);
            item.doHighlight();
            wait(200);
            const begin = Date.now();
            item.doHighlight();
            tryCompare(item, "highlighted", false);
            verify(Date.now() - begin >= 480, Date.now() - begin);
        }
        function test_doHighlight_endsTheFadeOfTheStart() {
            const item = createTemporaryObject(plain, root);
            const frame = frameOf(item);
            tryVerify(() => frame.opacity < 1);
            item.doHighlight();
            compare(frame.opacity, 1);
            wait(100);
            compare(frame.opacity, 1);
            compare(item.highlighted, true);
        }
        function test_highlighted_showsNoFrame_whenWrittenFromOutside() {
            const item = settled(quick);
            item.highlighted = true;
            const frame = frameOf(item);
            compare(frame.visible, true);
            compare(frame.opacity, 0);
            waitForRendering(item);
            const grabbed = grabImage(root);
            verify(!Qt.colorEqual(grabbed.pixel(0, 50), Theme.orrinworksBlue));
            item.doHighlight();
            waitForRendering(item);
            verify(Qt.colorEqual(grabImage(root).pixel(0, 50), Theme.orrinworksBlue));
        }
        function test_fadeOfTheStart_takesItsTime_andEndsAHighlightFromOutside() {
            const begin = Date.now();
            const item = createTemporaryObject(plain, root, { highlighted: true });
            compare(frameOf(item).visible, true);
            tryCompare(item, "highlighted", false);
            verify(Date.now() - begin >= 1900, Date.now() - begin);
            compare(frameOf(item).opacity, 0);
        }
    }
}
