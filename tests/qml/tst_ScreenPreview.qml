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

        ScreenPreview {
            width: 125
            height: 85
        }
    }
    Component {
        id: circle

        Rectangle {
            objectName: "pane"
            radius: 99
        }
    }
    TestCase {
        name: "ScreenPreview"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function panesOf(item: var): var {
            return Find.all(Find.first(item, "QQuickGridLayout"), "QQuickRectangle");
        }
        function test_defaults() {
            const item = createTemporaryObject(plain, root);
            compare(item.selected, false);
            compare(item.margins, 5);
            compare(item.foreground, "#b7d9f5");
            compare(item.selectedForeground, "#ffffff");
            compare(item.background, "#8bc2ee");
            compare(item.row, 0);
            compare(item.column, 0);
        }
        function test_backgroundOnly_whenRowOrColumnIsNull_data() {
            return [
                { tag: "both", row: 0, column: 0 },
                { tag: "row", row: 0, column: 3 },
                { tag: "column", row: 3, column: 0 }
            ];
        }
        function test_backgroundOnly_whenRowOrColumnIsNull(data) {
            const item = createTemporaryObject(plain, root, { row: data.row, column: data.column });
            compare(panesOf(item).length, 0);
            const rectangles = Find.all(item, "QQuickRectangle");
            compare(rectangles.length, 1);
            compare(rectangles[0].color, "#8bc2ee");
            compare(rectangles[0].radius, 10);
            compare(rectangles[0].width, 125);
        }
        function test_panes_splitTheScreen() {
            const item = createTemporaryObject(plain, root, { row: 2, column: 3 });
            const panes = panesOf(item);
            compare(panes.length, 6);
            tryCompare(panes[5], "x", 2 * (35 + 5));
            compare(panes[5].y, 35 + 5);
            compare(panes[0].width, 35);
            compare(panes[0].height, 35);
            compare(panes[0].radius, 10);
            compare(panes[0].parent.x, 5);
        }
        function test_paneColour_followsSelection() {
            const item = createTemporaryObject(plain, root, { row: 1, column: 1, foreground: "#010203",
                                                              selectedForeground: "#040506" });
            compare(panesOf(item)[0].color, "#010203");
            item.selected = true;
            compare(panesOf(item)[0].color, "#040506");
        }
        function test_delegate_canBeReplaced() {
            const item = createTemporaryObject(plain, root, { row: 2, column: 2, delegate: circle });
            compare(panesOf(item).length, 4);
            compare(panesOf(item)[3].objectName, "pane");
        }
    }
}
