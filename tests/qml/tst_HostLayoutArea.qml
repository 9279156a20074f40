// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 404
    height: 300

    Component {
        id: tile

        Rectangle {
            implicitWidth: 10
            implicitHeight: 10
        }
    }
    LayoutArea {
        id: area
    }
    TestCase {
        name: "HostLayoutArea"
        when: windowShown

        function test_grid_isTheHosts_andAsSquareAsItsTilesAllow() {
            failOnWarning(/.?/);
            const grid = area.children[0];
            compare([grid.width, grid.height], [404, 300]);
            compare(grid.columns, 1);
            for (const [count, columns] of [[1, 1], [2, 2], [4, 2], [5, 3], [9, 3], [10, 4]]) {
                while (grid.children.length < count)
                    tile.createObject(grid);
                compare(grid.columns, columns, count + " tiles");
            }
        }
    }
}
