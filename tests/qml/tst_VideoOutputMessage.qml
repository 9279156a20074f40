// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    readonly property string sentence: "The server at the other end of the line does not answer any more. ".repeat(6)

    width: 800
    height: 600

    Component {
        id: plain

        VideoOutputMessage {
            width: 400
            height: 300
        }
    }
    TestCase {
        name: "VideoOutputMessage"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function textOf(item: var): var {
            return Find.first(item, "QQuickText");
        }
        function test_look() {
            const item = createTemporaryObject(plain, root, { text: "Waiting" });
            const panel = Find.first(item, "QQuickRectangle");
            const text = textOf(item);
            compare(panel.color, "#444444");
            compare(panel.width, 400);
            compare(panel.height, 300);
            compare(text.text, "Waiting");
            compare(text.color, "#ffffff");
            compare(text.wrapMode, Text.Wrap);
            fuzzyCompare(text.width, 280, 0.01);
            compare(text.height, text.contentHeight);
            fuzzyCompare(text.x, (400 - text.contentWidth) / 2, 0.01);
            fuzzyCompare(text.y, (300 - text.height) / 2, 0.01);
            compare(text.font.pixelSize, Application.font.pixelSize);
        }
        function test_text_shrinksWithThePanel_andGrowsAgain() {
            const item = createTemporaryObject(plain, root, { text: root.sentence });
            const text = textOf(item);
            compare(text.font.pixelSize, Application.font.pixelSize);
            let before = text.font.pixelSize;
            for (const height of [70, 50, 30, 15]) {
                item.height = height;
                verify(text.contentHeight <= height, height + ": " + text.contentHeight);
                verify(text.font.pixelSize <= before);
                before = text.font.pixelSize;
            }
            verify(before < Application.font.pixelSize);
            item.height = 300;
            compare(text.font.pixelSize, Application.font.pixelSize);
        }
        function test_text_isFitted_toTheNewWidth() {
            const item = createTemporaryObject(plain, root, { text: root.sentence, height: 200 });
            const text = textOf(item);
            compare(text.font.pixelSize, Application.font.pixelSize);
            item.width = 120;
            verify(text.contentHeight <= 200, text.contentHeight);
            const narrow = text.font.pixelSize;
            verify(narrow < Application.font.pixelSize);
            // As large as possible: one more would not do.
            text.font.pixelSize = narrow + 1;
            verify(text.contentHeight > 200);
            item.width = 800;
            compare(text.font.pixelSize, Application.font.pixelSize);
        }
        function test_fit_endsAtOnePixel_whenNothingFits() {
            const item = createTemporaryObject(plain, root, { text: root.sentence.repeat(20) });
            item.width = 20;
            item.height = 3;
            compare(textOf(item).font.pixelSize, 1);
            verify(textOf(item).contentHeight > 3);
        }
        function test_fit_keepsTheDefault_whenThePanelHasNoHeight() {
            const item = createTemporaryObject(plain, root, { text: root.sentence, height: 20 });
            item.height = 19;
            verify(textOf(item).font.pixelSize < Application.font.pixelSize);
            item.height = 0;
            compare(textOf(item).font.pixelSize, Application.font.pixelSize);
        }
        function test_changeOfTheText_keepsItsSize() {
            const item = createTemporaryObject(plain, root, { text: "short" });
            item.height = 40;
            const size = textOf(item).font.pixelSize;
            item.text = root.sentence;
            compare(textOf(item).font.pixelSize, size);
            verify(textOf(item).contentHeight > 40);
        }
    }
}
