// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 400
    height: 400

    Component {
        id: plain

        PieMenu {}
    }
    Component {
        id: placed

        PieMenu {
            originX: 200
            originY: 150
        }
    }
    SignalSpy {
        id: activatedSpy

        signalName: "activated"
    }
    TestCase {
        name: "PieMenu"
        when: windowShown

        readonly property var directions: [[1, 0], [0.7072, 0.7072], [0, 1], [-0.7072, 0.7072], [-1, 0], [-0.7072, -0.7072],
            [0, -1], [0.7072, -0.7072]]

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            activatedSpy.target = null;
        }
        function make(properties: var): var {
            const item = createTemporaryObject(plain, root, properties === undefined ? {} : properties);
            verify(item);
            activatedSpy.target = item;
            activatedSpy.clear();
            return item;
        }
        function show(properties: var): var {
            const item = make(properties);
            item.originX = 200;
            item.originY = 200;
            item.actualX = 200;
            item.actualY = 200;
            item.visible = true;
            return item;
        }
        function test_defaults() {
            const item = make();
            compare(item.visible, false);
            compare(item.innerRadius, 33);
            compare(item.outterRadius, 90);
            compare(item.iconRadius, 33);
            compare(item.offsetFactor, 3);
            for (const name of ["originX", "originY", "actualX", "actualY"])
                compare(item[name], 0, name);
            compare(item.itemActivated, -1);
            compare(item.model.length, 0);
            compare(item.offsetX.length, 8);
            compare(item.offsetY[1], 0.707106781);
            compare(item.angles.length, 9);
            fuzzyCompare(item.angles[0], -Math.PI / 8, 1e-9);
            fuzzyCompare(item.angles[8], 15 * Math.PI / 8, 1e-9);
            compare(item.width, 186);
            compare(item.height, 186);
        }
        function test_origin_isTheMiddle() {
            const item = make();
            item.originX = 200;
            compare(item.x, 200 - 93);
            item.originY = 150;
            compare(item.y, 150 - 93);
            const declared = createTemporaryObject(placed, root);
            compare(declared.x, 200 - 93);
            compare(declared.y, 150 - 93);
        }
        function test_pointer_choosesTheSector_data() {
            return directions.map((direction, index) => ({ tag: String(index), direction: direction, sector: index }));
        }
        function test_pointer_choosesTheSector(data) {
            const item = show();
            item.actualX = 200 + 60 * data.direction[0];
            item.actualY = 200 + 60 * data.direction[1];
            tryCompare(item, "itemActivated", data.sector);
        }
        function test_ring_includesItsEdges_data() {
            return [
                { tag: "inner edge", distance: 33, sector: 0 },
                { tag: "nearer", distance: 32, sector: -1 },
                { tag: "outer edge", distance: 90, sector: 0 },
                { tag: "further", distance: 91, sector: -1 },
                { tag: "origin", distance: 0, sector: -1 }
            ];
        }
        function test_ring_includesItsEdges(data) {
            const item = show();
            item.actualY = 250;
            tryCompare(item, "itemActivated", 2);
            item.actualY = 200;
            item.actualX = 200 + data.distance;
            tryCompare(item, "itemActivated", data.sector);
        }
        function test_hiding_activatesOnce() {
            const item = show();
            item.actualX = 140;
            tryCompare(item, "itemActivated", 4);
            compare(activatedSpy.count, 0);
            item.visible = false;
            compare(activatedSpy.count, 1);
            compare(activatedSpy.signalArguments[0][0], 4);
            item.visible = true;
            compare(activatedSpy.count, 1);
            item.actualX = 200;
            tryCompare(item, "itemActivated", -1);
            item.visible = false;
            compare(activatedSpy.signalArguments[1][0], -1);
        }
        function test_choice_isKeptUntilTheNextPaint() {
            const item = show();
            item.actualX = 260;
            tryCompare(item, "itemActivated", 0);
            item.actualX = 140;
            compare(item.itemActivated, 0);
            // What is told at the end is what was painted last.
            item.visible = false;
            compare(activatedSpy.signalArguments[0][0], 0);
        }
        function test_sectors_showTheChoice() {
            const item = show();
            item.actualX = 260;
            tryCompare(item, "itemActivated", 0);
            tryVerify(() => Qt.colorEqual(grabImage(item).pixel(93 + 60, 93), "#dddddd"));
            const image = grabImage(item);
            compare(image.pixel(93 - 60, 93), "#888888");
            compare(image.pixel(93, 93 + 60), "#888888");
            // Nothing in the middle, and nothing outside.
            verify(!Qt.colorEqual(image.pixel(93, 93), "#888888"));
            verify(!Qt.colorEqual(image.pixel(1, 1), "#888888"));
        }
        function test_icons_standUprightInTheirSectors() {
            const arrow = "qrc:/qt/qml/orrinsdkqml/resources/arrow_right";
            const item = show({ model: [arrow, arrow, arrow, arrow, arrow, arrow, arrow, arrow] });
            const overlays = Find.all(item, "ColorOverlay");
            compare(overlays.length, 8);
            compare(overlays[0].width, 33);
            for (let i = 0; i < 8; ++i) {
                const middle = overlays[i].mapToItem(item, 16.5, 16.5);
                const end = overlays[i].mapToItem(item, 33, 16.5);
                // Upright: its right edge points to the right.
                fuzzyCompare(end.y, middle.y, 0.01, "upright " + i);
                verify(end.x > middle.x);
                const angle = Math.atan2(middle.y - 93, middle.x - 93);
                const centre = Math.atan2(directions[i][1], directions[i][0]);
                verify(Math.abs(Math.atan2(Math.sin(angle - centre), Math.cos(angle - centre))) < Math.PI / 8, "sector " + i);
            }
        }
        function test_icons_standWhereTheTablesPutThem_data() {
            return [
                { tag: "0", index: 0, x: 157.5, y: 93 },
                // The fixed adjustment moves those that are turned.
                { tag: "2", index: 2, x: 91, y: 159.5 },
                { tag: "4", index: 4, x: 24.5, y: 93 }
            ];
        }
        function test_icons_standWhereTheTablesPutThem(data) {
            const arrow = "qrc:/qt/qml/orrinsdkqml/resources/arrow_right";
            const item = show({ model: [arrow, arrow, arrow, arrow, arrow] });
            const middle = Find.all(item, "ColorOverlay")[data.index].mapToItem(item, 16.5, 16.5);
            fuzzyCompare(middle.x, data.x, 0.01);
            fuzzyCompare(middle.y, data.y, 0.01);
        }
        function test_icon_isActive_whenItsSectorIs() {
            const item = show({ model: ["qrc:/qt/qml/orrinsdkqml/resources/arrow_right",
                                        "qrc:/qt/qml/orrinsdkqml/resources/arrow_left"] });
            const overlays = Find.all(item, "ColorOverlay");
            compare(overlays[0].color, settings.iconColor);
            item.actualX = 260;
            tryCompare(item, "itemActivated", 0);
            compare(overlays[0].color, settings.iconActiveColor);
            compare(overlays[1].color, settings.iconColor);
            const image = Find.first(item, "QQuickImage");
            compare(image.source, "qrc:/qt/qml/orrinsdkqml/resources/arrow_right.svg");
            compare(image.visible, false);
            compare(image.smooth, true);
        }
    }
}
