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

        LayoutSelection {
            width: 410
            height: 310
        }
    }
    SignalSpy {
        id: selections

        signalName: "layoutSelected"
    }
    TestCase {
        name: "LayoutSelection"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function selectorOf(item: var): var {
            return Find.first(item, "LayoutSelector_");
        }
        function test_page_isAPage_filledByTheSelector() {
            const item = createTemporaryObject(plain, root);
            verify(item.openPage && item.closePage);
            compare(item.color, "#2b2e36");
            compare(selectorOf(item).width, 410);
            compare(selectorOf(item).height, 310);
            item.width = 350;
            compare(selectorOf(item).width, 350);
        }
        function test_selector_keepsASizeThatItIsGiven() {
            const item = createTemporaryObject(plain, root);
            selectorOf(item).width = 100;
            item.width = 300;
            compare(selectorOf(item).width, 100);
        }
        function test_aliases_reachTheSelector() {
            const item = createTemporaryObject(plain, root, { rows: 2, columns: 3, row: 2, column: 1, spacing: 4 });
            const selector = selectorOf(item);
            compare(selector.rows, 2);
            compare(selector.columns, 3);
            compare(selector.row, 2);
            compare(selector.column, 1);
            compare(selector.spacing, 4);
        }
        function test_click_emitsThePagesSignalOnce() {
            const item = createTemporaryObject(plain, root);
            selections.target = item;
            selections.clear();
            const tile = Find.all(item, "ScreenPreview_")[6];
            waitForRendering(item);
            mouseClick(tile);
            compare(selections.count, 1);
            compare(selections.signalArguments[0][0], 2);
            compare(selections.signalArguments[0][1], 3);
            compare(item.row, 2);
            compare(item.column, 3);
        }
    }
}
