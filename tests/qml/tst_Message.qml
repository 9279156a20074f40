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

        Message { width: 200 }
    }
    TestCase {
        name: "Message"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function timerOf(item: var): var {
            return Find.first(item, "QQmlTimer");
        }
        function test_look_followsSettings() {
            const item = createTemporaryObject(plain, root, { text: "saved" });
            const label = Find.first(item, "QQuickText");
            compare(item.state, "transparent");
            compare(item.opacity, 0);
            compare(item.color, settings.backgroundColor);
            compare(item.border.width, settings.borderWidthHints);
            compare(item.border.color, settings.borderColor);
            compare(item.height, label.height + 10);
            compare(label.text, "saved");
            compare(label.width, 190);
            compare(label.y, 5);
            compare(label.color, settings.textColor);
            compare(label.font.pixelSize, Math.round(settings.fontPixelSizeHints));
            compare(label.horizontalAlignment, Text.AlignHCenter);
            compare(label.wrapMode, Text.Wrap);
            compare(timerOf(item).interval, 1000);
            verify(!timerOf(item).repeat);
        }
        function test_setText_showsForASecond_thenFades() {
            const item = createTemporaryObject(plain, root);
            const begin = Date.now();
            item.setText("saved");
            compare(item.text, "saved");
            compare(item.state, "opaque");
            compare(timerOf(item).interval, 1000);
            tryCompare(item, "state", "transparent");
            verify(Date.now() - begin >= 980, Date.now() - begin);
            compare(item.text, "saved");
            tryCompare(item, "opacity", 0);
            verify(Date.now() - begin >= 1950, Date.now() - begin);
            compare(item.text, "saved");
        }
        function test_fades_takeTheirTime() {
            const item = createTemporaryObject(plain, root);
            let begin = Date.now();
            item.setTextWithTime("x", 60000);
            tryCompare(item, "opacity", 1);
            const fadeIn = Date.now() - begin;
            begin = Date.now();
            item.setText("");
            tryCompare(item, "opacity", 0);
            const fadeOut = Date.now() - begin;
            verify(fadeIn >= 150, fadeIn);
            verify(fadeOut >= 950, fadeOut);
            verify(fadeIn < fadeOut, fadeIn + " " + fadeOut);
        }
        function test_newMessage_startsAFreshPeriod() {
            const item = createTemporaryObject(plain, root);
            const begin = Date.now();
            item.setTextWithTime("one", 600);
            wait(300);
            item.setTextWithTime("two", 600);
            compare(item.text, "two");
            tryCompare(item, "state", "transparent");
            verify(Date.now() - begin >= 880, Date.now() - begin);
        }
        function test_emptyText_endsTheMessage_andTheTimer() {
            const item = createTemporaryObject(plain, root);
            item.setTextWithTime("one", 60000);
            verify(timerOf(item).running);
            item.setText("");
            compare(item.state, "transparent");
            compare(item.text, "one");
            verify(!timerOf(item).running);
        }
        function test_emptyText_changesNothing_whenTransparent() {
            const item = createTemporaryObject(plain, root, { text: "old" });
            item.setText("");
            compare(item.state, "transparent");
            compare(item.opacity, 0);
            compare(item.text, "old");
        }
        function test_timeZero_takesTheTextAwayAtOnce() {
            const item = createTemporaryObject(plain, root);
            item.setTextWithTime("x", 0);
            compare(timerOf(item).interval, 0);
            compare(item.text, "x");
            compare(item.state, "opaque");
            tryCompare(item, "state", "transparent");
            compare(item.text, "x");
        }
    }
}
