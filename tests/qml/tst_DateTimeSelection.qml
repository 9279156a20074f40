// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 1200
    height: 300

    Component {
        id: plain

        DateTimeSelection {}
    }
    TestCase {
        name: "DateTimeSelection"
        when: windowShown

        property var item: null

        function init() {
            failOnWarning(/.?/);
            item = createTemporaryObject(plain, root);
        }
        function boxes() {
            return Find.all(item, "SpinBox");
        }

        function test_defaults_areThoseOfTheComponent() {
            compare(item.width, 800);
            compare(item.height, 25);
            compare(item.defaultMargins, 5);
            compare(item.defaultSpacing, 3);
            compare(item.from.toISOString(), "2024-03-02T09:22:00.000Z");
            compare(item.to.toISOString(), "2024-03-02T09:27:00.000Z");
        }
        function test_boxes_haveTheirRanges_data() {
            return [
                { tag: "year", index: 0, from: 1970, to: 2050, value: 2024 },
                { tag: "month", index: 1, from: 1, to: 12, value: 3 },
                { tag: "day", index: 2, from: 1, to: 31, value: 2 },
                { tag: "hour", index: 3, from: 0, to: 24, value: 9 },
                { tag: "minute", index: 4, from: 0, to: 59, value: 22 },
                { tag: "duration", index: 5, from: 1, to: 60, value: 5 }
            ];
        }
        function test_boxes_haveTheirRanges(data) {
            compare(boxes().length, 6);
            const box = boxes()[data.index];
            compare(box.from, data.from);
            compare(box.to, data.to);
            compare(box.value, data.value);
        }
        function test_texts_standInTheRow() {
            const texts = Find.all(item, "QQuickText(").map(text => text.text);
            verify(texts.includes("Date:"));
            verify(texts.includes("Duration:"));
            compare(boxes()[5].displayText, "5 minutes");
            const row = Find.first(item, "QQuickRow");
            compare(row.spacing, 3);
            compare(row.x, 5);
            compare(row.children[6].width, 30);
        }
        function test_change_movesTheWindow_data() {
            return [
                { tag: "year", index: 0, value: 2026, from: "2026-03-02T09:22:00.000Z", to: "2026-03-02T09:27:00.000Z" },
                { tag: "month", index: 1, value: 12, from: "2024-12-02T09:22:00.000Z", to: "2024-12-02T09:27:00.000Z" },
                { tag: "day", index: 2, value: 31, from: "2024-03-31T09:22:00.000Z", to: "2024-03-31T09:27:00.000Z" },
                { tag: "hour", index: 3, value: 0, from: "2024-03-02T00:22:00.000Z", to: "2024-03-02T00:27:00.000Z" },
                { tag: "minute", index: 4, value: 58, from: "2024-03-02T09:58:00.000Z", to: "2024-03-02T10:03:00.000Z" },
                { tag: "duration", index: 5, value: 60, from: "2024-03-02T09:22:00.000Z", to: "2024-03-02T10:22:00.000Z" }
            ];
        }
        function test_change_movesTheWindow(data) {
            boxes()[data.index].value = data.value;
            compare(item.from.toISOString(), data.from);
            compare(item.to.toISOString(), data.to);
        }
        function test_window_isInvalid_whereTheMonthIsShort() {
            boxes()[2].value = 31;
            boxes()[1].value = 2;
            verify(isNaN(item.from.getTime()));
            verify(isNaN(item.to.getTime()));
            boxes()[2].value = 29;
            compare(item.from.toISOString(), "2024-02-29T09:22:00.000Z");
            compare(item.to.toISOString(), "2024-02-29T09:27:00.000Z");
        }
        function test_window_isInvalid_afterHour24() {
            boxes()[3].value = 24;
            verify(isNaN(item.from.getTime()));
            boxes()[4].value = 0;
            compare(item.from.toISOString(), "2024-03-03T00:00:00.000Z");
        }
    }
}
