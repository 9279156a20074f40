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

        LayoutSelector {
            width: 410
            height: 310
        }
    }
    Component {
        id: number

        Text {
            required property int index

            text: index
        }
    }
    SignalSpy {
        id: selections

        signalName: "layoutSelected"
    }
    TestCase {
        name: "LayoutSelector"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function tilesOf(item: var): var {
            return Find.all(item, "ScreenPreview_");
        }
        function captionOf(tile: var): string {
            return Find.all(tile, "QQuickText").find(text => text.parent === tile).text;
        }
        function cleanup() {
            mouseMove(root, 1, 1);
        }
        function test_defaults() {
            const item = createTemporaryObject(plain, root);
            compare(item.rows, 4);
            compare(item.columns, 4);
            compare(item.row, 1);
            compare(item.column, 1);
            compare(item.spacing, 10);
            compare(item.background, "#2b2e36");
            compare(tilesOf(item).length, 16);
            compare(Find.first(item, "QQuickRectangle").color, "#2b2e36");
        }
        function test_tile_standsForTheLayoutThatItCloses_data() {
            return [
                { tag: "first", index: 0, row: 1, column: 1, caption: "1 x 1" },
                { tag: "sixth", index: 5, row: 2, column: 2, caption: "2 x 2" },
                { tag: "third of the second row", index: 6, row: 2, column: 3, caption: "3 x 2" },
                { tag: "last", index: 15, row: 4, column: 4, caption: "4 x 4" }
            ];
        }
        function test_tile_standsForTheLayoutThatItCloses(data) {
            const tile = tilesOf(createTemporaryObject(plain, root))[data.index];
            compare(tile.row, data.row);
            compare(tile.column, data.column);
            compare(captionOf(tile), data.caption);
        }
        function test_tiles_fillTheGrid() {
            const item = createTemporaryObject(plain, root);
            const tiles = tilesOf(item);
            tryCompare(tiles[15], "x", 3 * (90 + 10));
            compare(tiles[15].y, 3 * (65 + 10));
            compare(tiles[0].width, 90);
            compare(tiles[0].height, 65);
            compare(tiles[0].parent.x, 10);
        }
        function test_click_storesAndTellsTheRowFirst() {
            const item = createTemporaryObject(plain, root);
            selections.target = item;
            selections.clear();
            const tile = tilesOf(item)[2 * 4 + 1];
            compare(captionOf(tile), "2 x 3");
            waitForRendering(item);
            mouseClick(tile);
            compare(selections.count, 1);
            compare(selections.signalArguments[0][0], 3);
            compare(selections.signalArguments[0][1], 2);
            compare(item.row, 3);
            compare(item.column, 2);
        }
        function test_selected_followsTheHover() {
            const item = createTemporaryObject(plain, root);
            const tiles = tilesOf(item);
            waitForRendering(item);
            mouseMove(tiles[3], 20, 20);
            verify(tiles[3].selected);
            verify(!tiles[2].selected);
            mouseMove(tiles[2], 20, 20);
            verify(!tiles[3].selected);
            verify(tiles[2].selected);
        }
        function test_margins_growWithTheSelector() {
            const item = createTemporaryObject(plain, root, { width: 500, height: 500 });
            compare(tilesOf(item)[0].margins, 2);
            item.height = 501;
            compare(tilesOf(item)[0].margins, 5);
            item.height = 100;
            item.width = 501;
            compare(tilesOf(item)[0].margins, 5);
        }
        function test_delegate_canBeReplaced() {
            const item = createTemporaryObject(plain, root, { rows: 2, columns: 3, delegate: number });
            compare(tilesOf(item).length, 0);
            const texts = Find.all(item, "QQuickText");
            compare(texts.length, 6);
            compare(texts[5].text, "5");
        }
    }
}
