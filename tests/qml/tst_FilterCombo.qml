// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 500
    height: 300

    ListModel {
        id: names

        ListElement { display: "Disk_1" }
        ListElement { display: "CPU%" }
        ListElement { display: "cpu0%" }
        ListElement { display: "Status" }
    }
    HeadingsModelProxy {
        id: headings

        sourceModel: names
    }
    Component {
        id: plain

        FilterCombo {}
    }
    Component {
        id: filled

        FilterCombo {
            id: combo

            model: HeadingsModelProxy {
                sourceModel: names
                matchString: combo.filterText
            }
        }
    }
    SignalSpy {
        id: chosen

        signalName: "statModelChanged"
    }
    TestCase {
        name: "FilterCombo"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
            chosen.target = null;
            chosen.clear();
        }
        function test_defaults_areThoseOfTheComponent() {
            const item = createTemporaryObject(plain, root);
            compare(item.width, 300);
            compare(item.height, 50);
            compare(item.defaultMargins, 2);
            compare(item.defaultSpacing, 10);
            compare(item.filterText, "");
            compare(item.currentText, "");
        }
        function test_parts_standInAGrid() {
            const item = createTemporaryObject(filled, root);
            const combo = Find.first(item, "ComboBox");
            const texts = Find.all(item, "QQuickText(").filter(text => ["Statistic:", "Filter:"].includes(text.text));
            compare(texts.length, 2);
            const frame = Find.all(item, "QQuickRectangle").find(each => String(each.color) === "#31323b");
            const input = Find.all(frame, "QQuickTextInput")[0];
            compare(combo.height, 28);
            compare(combo.textRole, "display");
            compare(combo.font.pointSize, input.font.pointSize);
            compare(texts[0].height, 28);
            compare(String(texts[0].color), "#ffffff");
            compare(texts[1].height, frame.height);
            compare(frame.width, combo.width);
            compare(frame.height, 24);
            compare(String(frame.border.color), "#4d4f56");
            compare(frame.border.width, 1);
            compare(input.x, 4);
            compare(input.y, 4);
            compare(input.width, frame.width - 8);
            const grid = Find.first(item, "QQuickGrid");
            compare(grid.columns, 2);
            compare(grid.spacing, 10);
            verify(texts[0].x < combo.x);
            verify(texts[1].y >= combo.y + combo.height);
        }
        function test_model_isSorted_andItsFirstChosen() {
            const item = createTemporaryObject(filled, root);
            tryCompare(item, "currentText", "Status");
            compare(item.model.rowCount(), 4);
        }
        function test_choice_isTold() {
            const item = createTemporaryObject(filled, root);
            chosen.target = item;
            const combo = Find.first(item, "ComboBox");
            combo.currentIndex = 1;
            tryCompare(chosen, "count", 1);
            compare(chosen.signalArguments[0][0], "CPU%");
            compare(item.currentText, "CPU%");
        }
        function test_filter_narrowsTheList() {
            const item = createTemporaryObject(filled, root);
            const combo = Find.first(item, "ComboBox");
            const frame = Find.all(item, "QQuickRectangle").find(each => String(each.color) === "#31323b");
            chosen.target = item;
            mouseClick(frame);
            keyClick("c");
            keyClick("p");
            keyClick("u");
            compare(item.filterText, "cpu");
            tryCompare(combo, "count", 2);
            compare(item.currentText, "CPU%");
        }
        function test_emptyText_isTold_whenTheFilterKeepsNothing() {
            const item = createTemporaryObject(filled, root);
            chosen.target = item;
            item.filterText = "no such heading";
            tryCompare(item, "currentText", "");
            tryVerify(() => chosen.count > 0);
            compare(chosen.signalArguments[chosen.count - 1][0], "");
        }
        function test_nothingIsTold_withoutModel() {
            const item = createTemporaryObject(plain, root);
            chosen.target = item;
            wait(50);
            compare(chosen.count, 0);
        }
    }
}
