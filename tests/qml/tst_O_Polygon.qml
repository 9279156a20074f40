// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Shapes
import QtTest
import OrrinViewer.Host
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 600
    height: 500

    // A scene that is moved and scaled, with the polygon's carrier in it.
    Item {
        id: scene

        x: 40
        y: 30
        width: 250
        height: 200
        scale: 2
        transformOrigin: Item.TopLeft

        Item {
            id: carrier

            width: 250
            height: 200
        }
    }
    PolygonModel {
        id: square
    }
    ListModel {
        id: foreign
    }
    Component {
        id: plain

        O_Polygon {
            anchors.fill: parent
            parentScene: scene
        }
    }
    SignalSpy {
        id: clicked

        signalName: "polygonClicked"
    }
    SignalSpy {
        id: doubled

        signalName: "doubleClicked"
    }
    SignalSpy {
        id: hovered

        signalName: "polygonHovered"
    }
    SignalSpy {
        id: dirty

        signalName: "pointsDirty"
    }
    SignalSpy {
        id: removed

        signalName: "removePolygon"
    }
    TestCase {
        name: "O_Polygon"
        when: windowShown

        readonly property var corners: [Qt.point(50, 50), Qt.point(150, 50), Qt.point(150, 150), Qt.point(50, 150)]

        function init() {
            failOnWarning(/.?/);
            scene.visible = true;
            carrier.x = 0;
            carrier.y = 0;
            square.corners = corners;
            mouseMove(root, 590, 490);
        }
        function make(properties: var): var {
            const item = createTemporaryObject(plain, carrier, Object.assign({ polygonLineModel: square }, properties));
            waitForRendering(root);
            for (const spy of [clicked, doubled, hovered, dirty, removed]) {
                spy.target = item;
                spy.clear();
            }
            return item;
        }
        // From the scene to the window.
        function at(x: real, y: real): point {
            return Qt.point(40 + 2 * x, 30 + 2 * y);
        }
        function move(x: real, y: real) {
            mouseMove(root, at(x, y).x, at(x, y).y);
        }
        function click(x: real, y: real, button = Qt.LeftButton) {
            move(x, y);
            mouseClick(root, at(x, y).x, at(x, y).y, button);
        }
        function drag(x: real, y: real, dx: real, dy: real) {
            move(x, y);
            mousePress(root, at(x, y).x, at(x, y).y);
            // Past the distance from which on it is a drag, then all the way.
            for (let step = 1; step <= 10; ++step)
                mouseMove(root, at(x + dx * step / 10, y).x, at(x, y + dy * step / 10).y);
            mouseRelease(root, at(x + dx, y + dy).x, at(x + dx, y + dy).y);
        }
        function shapeOf(item: var): var {
            return Find.first(item, "QQuickShape");
        }
        function pathOf(item: var): var {
            return shapeOf(item).data[0];
        }
        function areaOf(item: var): var {
            return item.children.find(each => each.acceptedButtons !== undefined);
        }
        function handlesOf(item: var): var {
            return shapeOf(item).children.filter(each => each.modelIndex !== undefined).sort((a, b) => a.modelIndex - b.modelIndex);
        }
        function outline(item: var): string {
            const path = pathOf(item);
            return [path.startX, path.startY].concat(Array.from(path.pathElements).map(line => line.x + "," + line.y)).join(" ");
        }
        function text(points: var): string {
            return Array.from(points).map(point => Math.round(point.x) + "," + Math.round(point.y)).join(" ");
        }
        function entry(label: string): var {
            let found;
            tryVerify(() => (found = Find.all(root.Overlay.overlay, "MenuItem").find(each => each.text === label && each.visible)) !== undefined,
                      2000, label);
            tryVerify(() => found.height > 0);
            return found;
        }
        function test_defaults() {
            const item = createTemporaryObject(plain, carrier, { parentScene: null });
            compare(item.editable, false);
            compare(item.animationsEnabled, true);
            compare(item.itemFlashing, false);
            compare(item.polygonLineModel, null);
            compare(item.borderColor, "#ff0000");
            compare(item.fillColor, "#ffa500");
            compare(item.handleFillColor, "#00000000");
            compare(item.handleDiameter, 40);
            compare(item.handleBorderWidth, 4);
            compare(item.polygonOpacity, 0.5);
            compare(item.parentScene, null);
            compare(item.pressed, false);
            compare(item.centerText, "");
            compare(item.doubleClickHold, false);
            compare(shapeOf(item).preferredRendererType, Shape.CurveRenderer);
            compare(shapeOf(item).opacity, 0.5);
            compare(pathOf(item).startX, 0);
            compare(pathOf(item).startY, 0);
            compare(pathOf(item).pathElements.length, 0);
        }
        function test_outline_runsFromTheStartThroughTheRows() {
            const item = make();
            compare(outline(item), "50 50 50,50 150,50 150,150 50,150 50,50");
            compare(pathOf(item).strokeColor, "#ff0000");
            compare(pathOf(item).fillColor, "#ffa500");
            compare(handlesOf(item).length, 0);
        }
        function test_outline_isMappedFromTheScene() {
            // The component lies elsewhere than its scene.
            const item = createTemporaryObject(plain, root, { polygonLineModel: square });
            compare(outline(item), "140 130 140,130 340,130 340,330 140,330 140,130");
        }
        function test_outline_followsTheModel() {
            const item = make();
            square.moveVertex(1, 10, -5);
            compare(outline(item), "50 50 50,50 160,45 150,150 50,150 50,50");
            square.moveVertex(0, 1, 2);
            compare(outline(item), "51 52 51,52 160,45 150,150 50,150 51,52");
            dirty.clear();
            square.addPoint(Qt.point(152, 100));
            compare(outline(item), "51 52 51,52 160,45 152,100 150,150 50,150 51,52");
            compare(dirty.count, 1);
            square.removePointAtIndex(0);
            compare(outline(item), "160 45 160,45 152,100 150,150 50,150 160,45");
            compare(dirty.count, 2);
            square.corners = [Qt.point(0, 0), Qt.point(10, 0), Qt.point(0, 10)];
            compare(outline(item), "0 0 0,0 10,0 0,10 0,0");
            square.corners = [];
            compare(outline(item), "0 0");
        }
        function test_handles_standOnTheCorners_andTheLastOneIsHidden() {
            const item = make({ editable: true });
            const handles = handlesOf(item);
            compare(handles.length, 5);
            compare(handles.map(each => each.visible), [true, true, true, true, false]);
            for (let i = 0; i < 4; ++i) {
                compare(handles[i].x + 20, corners[i].x);
                compare(handles[i].y + 20, corners[i].y);
                compare(handles[i].width, 40);
                compare(handles[i].radius, 20);
                compare(handles[i].color, "#00000000");
                compare(handles[i].border.width, 4);
                compare(handles[i].border.color, "#ff0000");
            }
            item.editable = false;
            tryVerify(() => handlesOf(item).length === 0);
            item.editable = true;
            compare(handlesOf(item).length, 5);
        }
        function test_handles_standOnTheCorners_afterAReset() {
            const item = make({ editable: true });
            const moved = corners.map(each => Qt.point(each.x + 20, each.y + 10));
            square.corners = moved;
            tryVerify(() => handlesOf(item).length === 5);
            for (let i = 0; i < 4; ++i) {
                compare(handlesOf(item)[i].x + 20, moved[i].x);
                compare(handlesOf(item)[i].y + 20, moved[i].y);
            }
            square.addPoint(Qt.point(125, 55));
            tryVerify(() => handlesOf(item).length === 6);
            compare(handlesOf(item).map(each => each.modelIndex), [0, 1, 2, 3, 4, 5]);
            compare(handlesOf(item).map(each => each.visible), [true, true, true, true, true, false]);
            for (let i = 0; i < 5; ++i)
                compare(handlesOf(item)[i].x + 20, square.corners[i].x);
        }
        function test_handleDrag_movesTheCorner_inSceneUnits() {
            const item = make({ editable: true });
            drag(150, 150, 40, 20);
            const moved = square.corners[2];
            const handle = handlesOf(item)[2];
            // The first pixels tell a drag from a click.
            verify(moved.x > 170 && moved.x <= 190, moved.x);
            verify(moved.y > 150 && moved.y <= 170, moved.y);
            fuzzyCompare(handle.x + 20, moved.x, 0.01);
            fuzzyCompare(handle.y + 20, moved.y, 0.01);
            compare(text([square.corners[0], square.corners[1], square.corners[3]]), "50,50 150,50 50,150");
            verify(dirty.count > 2);
            verify(!item.pressed);
            compare(carrier.x, 0);
        }
        function test_firstHandle_movesStartAndEnd() {
            const item = make({ editable: true });
            drag(50, 50, -30, -20);
            const first = square.corners[0];
            verify(first.x < 45, first.x);
            const path = pathOf(item);
            fuzzyCompare(path.startX, first.x, 0.01);
            fuzzyCompare(path.pathElements[0].x, first.x, 0.01);
            fuzzyCompare(path.pathElements[4].x, first.x, 0.01);
            fuzzyCompare(path.pathElements[4].y, first.y, 0.01);
        }
        function test_handle_tellsNothing_whenMovedFromOutside() {
            const item = make({ editable: true });
            handlesOf(item)[1].x += 30;
            compare(text(square.corners), text(corners));
            compare(dirty.count, 0);
        }
        function test_handleMenu_removesTheCorner() {
            const item = make({ editable: true });
            click(150, 50, Qt.RightButton);
            mouseClick(entry("Remove This Handle"));
            tryVerify(() => square.corners.length === 3);
            compare(text(square.corners), "50,50 150,150 50,150");
            tryVerify(() => handlesOf(item).length === 4);
            compare(handlesOf(item).map(each => each.visible), [true, true, true, false]);
            // A triangle keeps its corners.
            square.removePointAtIndex(1);
            compare(square.corners.length, 3);
        }
        function test_wholeDrag_movesTheParent_andNoPoint() {
            const item = make({ editable: true });
            carrier.x = 5;
            const before = text(square.corners);
            // The host moves the points when the press is over.
            drag(100, 100, 30, 20);
            verify(carrier.x > 15, carrier.x);
            compare(text(square.corners), before);
            compare(item.lastPos, Qt.point(5, 0));
            const dx = carrier.x - item.lastPos.x;
            item.moveAllVertices(dx, carrier.y - item.lastPos.y);
            compare(text(square.corners), text(corners.map(each => Qt.point(each.x + dx, each.y + carrier.y))));
            // The carrier stands where it was dropped, so the outline stays under it.
            fuzzyCompare(pathOf(item).startX, 45, 0.01);
        }
        function test_wholeDrag_isNone_whenNotEditable() {
            make();
            drag(100, 100, 30, 20);
            compare(carrier.x, 0);
            compare(carrier.y, 0);
        }
        function test_handlesStayStill_whileThePolygonIsPressed() {
            const item = make({ editable: true });
            move(100, 100);
            mousePress(root, at(100, 100).x, at(100, 100).y);
            verify(item.pressed);
            compare(pathOf(item).fillColor, Qt.darker("orange"));
            handlesOf(item)[1].x += 5;
            compare(text(square.corners), text(corners));
            mouseRelease(root, at(100, 100).x, at(100, 100).y);
            verify(!item.pressed);
        }
        function test_cursor_isTracked_butNotWhilePressed() {
            const item = make();
            move(100, 100);
            verify(square.shapeContainsCursor);
            verify(hovered.count > 0);
            compare(pathOf(item).fillColor, Qt.lighter("orange"));
            mousePress(root, at(100, 100).x, at(100, 100).y);
            mouseMove(root, at(160, 160).x, at(160, 160).y);
            verify(square.shapeContainsCursor);
            mouseRelease(root, at(160, 160).x, at(160, 160).y);
            move(10, 10);
            tryVerify(() => !square.shapeContainsCursor);
            compare(pathOf(item).fillColor, "#ffa500");
        }
        function test_cursorShape_tells_data() {
            return [
                { tag: "editable, inside", editable: true, inside: true, shape: Qt.OpenHandCursor, pressed: Qt.ClosedHandCursor },
                { tag: "editable, beside", editable: true, inside: false, shape: Qt.ArrowCursor, pressed: Qt.ArrowCursor },
                { tag: "fixed, inside", editable: false, inside: true, shape: Qt.PointingHandCursor, pressed: Qt.PointingHandCursor },
                { tag: "fixed, beside", editable: false, inside: false, shape: Qt.ArrowCursor, pressed: Qt.ArrowCursor }
            ];
        }
        function test_cursorShape_tells(data: var) {
            square.corners = [Qt.point(20, 20), Qt.point(220, 20), Qt.point(20, 180)];
            const item = make({ editable: data.editable });
            const [x, y] = data.inside ? [80, 80] : [190, 150];
            move(x, y);
            const area = areaOf(item);
            verify(area.containsMouse);
            compare(area.cursorShape, data.shape);
            mousePress(root, at(x, y).x, at(x, y).y);
            compare(area.cursorShape, data.pressed);
            mouseRelease(root, at(x, y).x, at(x, y).y);
        }
        function test_click_inTheBoxButBeside_isNobodys() {
            square.corners = [Qt.point(20, 20), Qt.point(220, 20), Qt.point(20, 180)];
            const item = make({ editable: true });
            item.lastPos = Qt.point(7, 7);
            click(190, 150);
            click(190, 150, Qt.RightButton);
            compare(clicked.count, 0);
            compare(item.lastPos, Qt.point(7, 7));
            drag(190, 150, 30, 20);
            compare(carrier.x, 0);
        }
        function test_click_isTold_withItsButton() {
            make();
            click(100, 100);
            compare(clicked.count, 1);
        }
        function test_doubleClick_addsACorner_whereEditable() {
            make({ editable: true });
            move(100, 145);
            mouseDoubleClickSequence(root, at(100, 145).x, at(100, 145).y);
            compare(doubled.count, 1);
            compare(text(square.corners), "50,50 150,50 150,150 100,145 50,150");
        }
        function test_doubleClick_isOnlyTold_whereNotEditable() {
            make();
            move(100, 100);
            mouseDoubleClickSequence(root, at(100, 100).x, at(100, 100).y);
            compare(doubled.count, 1);
            compare(square.corners.length, 4);
        }
        function test_menu_addsACornerWhereItOpened() {
            const item = make({ editable: true });
            click(100, 145, Qt.RightButton);
            compare(clicked.count, 1);
            mouseClick(entry("Add a point here"));
            tryVerify(() => square.corners.length === 5);
            compare(text(square.corners), "50,50 150,50 150,150 100,145 50,150");
            compare(handlesOf(item).length, 6);
        }
        function test_menu_hidesTheHandles_forGood() {
            const item = make({ editable: true });
            click(100, 100, Qt.RightButton);
            mouseClick(entry("Hide handles"));
            tryVerify(() => handlesOf(item).every(each => !each.visible));
            item.editable = false;
            item.editable = true;
            verify(handlesOf(item).every(each => !each.visible));
            click(100, 100, Qt.RightButton);
            mouseClick(entry("Show handles"));
            tryVerify(() => handlesOf(item)[0].visible);
            // The choice holds, whatever becomes of editable.
            item.editable = false;
            compare(pathOf(item).toggleShowHandles, true);
        }
        function test_menu_asksForRemoval() {
            make({ editable: true });
            click(100, 100, Qt.RightButton);
            mouseClick(entry("Remove this polygon"));
            tryCompare(removed, "count", 1);
            compare(square.corners.length, 4);
        }
        function test_menu_isDisabled_whereNotEditable() {
            make();
            click(100, 100, Qt.RightButton);
            verify(!entry("Add a point here").enabled);
            verify(!entry("Show handles").enabled);
            verify(!entry("Remove this polygon").enabled);
            keyClick(Qt.Key_Escape);
        }
        function test_hold_isASlowDoubleClick() {
            const item = make({ doubleClickHold: true });
            move(100, 100);
            mousePress(root, at(100, 100).x, at(100, 100).y);
            tryVerify(() => pathOf(item).dynamicFillColor.a < 0.9, 3000);
            compare(doubled.count, 0);
            tryCompare(doubled, "count", 1, 4000);
            compare(pathOf(item).dynamicFillColor, "#ffa500");
            mouseRelease(root, at(100, 100).x, at(100, 100).y);
            compare(doubled.count, 1);
            item.fillColor = "blue";
            compare(pathOf(item).dynamicFillColor, "#0000ff");
        }
        function test_hold_isCalledOff_byTheRelease() {
            const item = make({ doubleClickHold: true });
            move(100, 100);
            mousePress(root, at(100, 100).x, at(100, 100).y);
            tryVerify(() => pathOf(item).dynamicFillColor.a < 0.9, 3000);
            mouseRelease(root, at(100, 100).x, at(100, 100).y);
            compare(pathOf(item).dynamicFillColor, "#ffa500");
            wait(200);
            compare(pathOf(item).dynamicFillColor, "#ffa500");
            compare(doubled.count, 0);
        }
        function test_hold_takes106Ticks_fromAnOpaqueFill() {
            const item = make({ doubleClickHold: true });
            const timer = Array.from(item.resources).find(each => each.triggerCount !== undefined);
            compare(timer.interval, 10);
            for (let tick = 1; tick <= 105; ++tick) {
                timer.triggered();
                compare(doubled.count, 0, "tick " + tick);
            }
            compare(timer.triggerCount, 105);
            timer.triggered();
            compare(doubled.count, 1);
        }
        function test_hold_endsAtOnce_withAPaleFill() {
            const item = make({ doubleClickHold: true, fillColor: "#33ffa500" });
            const timer = Array.from(item.resources).find(each => each.triggerCount !== undefined);
            timer.start();
            tryCompare(doubled, "count", 1, 1000);
            compare(timer.triggerCount, 0);
            compare(item.fillColor, "#33ffa500");
        }
        function test_hold_meansNothing_withoutTheOption() {
            const item = make();
            move(100, 100);
            mousePress(root, at(100, 100).x, at(100, 100).y);
            wait(1000);
            compare(pathOf(item).dynamicFillColor, "#ffa500");
            mouseRelease(root, at(100, 100).x, at(100, 100).y);
            compare(doubled.count, 0);
            compare(clicked.count, 1);
        }
        function test_centerText_isPlain_andCentred() {
            const item = make({ centerText: "<b>Zone</b>" });
            const label = Find.all(item, "").find(each => each.text === "<b>Zone</b>");
            compare(label.textFormat, Text.PlainText);
            compare(label.opacity, 0.5);
            compare(label.color, "#000000");
            const middle = label.mapToItem(scene, label.width / 2, label.height / 2);
            fuzzyCompare(middle.x, 100, 1.5);
            fuzzyCompare(middle.y, 100, 1.5);
        }
        function test_pixels_showFillAndBorder() {
            make({ polygonOpacity: 1 });
            waitForRendering(root);
            const image = grabImage(root);
            compare(image.pixel(at(100, 100).x, at(100, 100).y), "#ffa500");
            // The edge of the border is smoothed.
            verify(image.red(at(50, 100).x, at(50, 100).y) > 240);
            verify(image.green(at(50, 100).x, at(50, 100).y) < 40);
            verify(!Qt.colorEqual(image.pixel(at(170, 100).x, at(170, 100).y), "#ffa500"));
        }
        function test_pixels_followTheModel_data() {
            const moved = corners.map(each => Qt.point(each.x + 70, each.y));
            return [
                { tag: "reset", change: () => square.corners = moved },
                { tag: "twice", change: () => { square.corners = [Qt.point(1, 1), Qt.point(9, 1), Qt.point(1, 9)]; square.corners = moved; } },
                { tag: "emptied", change: () => { square.corners = []; square.corners = moved; } },
                { tag: "moved", change: () => square.moveAllVertices(70, 0) }
            ];
        }
        function test_pixels_followTheModel(data: var) {
            const item = make({ polygonOpacity: 1, editable: true });
            const fill = (x, y) => grabImage(root).pixel(at(x, y).x, at(x, y).y);
            compare(fill(80, 100), "#ffa500");
            data.change();
            tryVerify(() => Qt.colorEqual(fill(200, 100), "#ffa500"), 2000, String(fill(200, 100)));
            verify(!Qt.colorEqual(fill(80, 100), "#ffa500"));
            compare(Math.round(areaOf(item).x + areaOf(item).width / 2), 170);
        }
        function test_model_mayBeNull() {
            const item = make({ polygonLineModel: null, editable: true });
            click(100, 100);
            compare(clicked.count, 0);
            item.polygonLineModel = square;
            compare(handlesOf(item).length, 5);
            item.polygonLineModel = null;
            tryVerify(() => handlesOf(item).length === 0);
            compare(outline(item), "0 0");
        }
        function test_model_mayBeForeign() {
            const item = make({ polygonLineModel: foreign, editable: true });
            foreign.append({ x: 10, y: 10 });
            foreign.append({ x: 60, y: 10 });
            foreign.append({ other: 1 });
            compare(outline(item), "0 0 10,10 60,10 0,0");
            click(30, 8);
            compare(clicked.count, 0);
            foreign.clear();
            compare(outline(item), "0 0");
        }
        function test_twoPoints_haveNoInside() {
            square.corners = [Qt.point(50, 50), Qt.point(150, 120)];
            const item = make({ editable: true });
            compare(outline(item), "50 50 50,50 150,120 50,50");
            compare(handlesOf(item).filter(each => each.visible).length, 2);
            click(100, 85);
            compare(clicked.count, 0);
            drag(150, 120, 30, 20);
            verify(square.corners[1].x > 160);
        }
        function test_selfCrossing_countsCrossings() {
            // A five-pointed star drawn in one line: its middle is crossed twice.
            const star = [0, 2, 4, 1, 3].map(i => Qt.point(125 + 80 * Math.sin(i * 0.4 * Math.PI), 100 - 80 * Math.cos(i * 0.4 * Math.PI)));
            square.corners = star;
            make();
            move(125, 100);
            verify(!square.shapeContainsCursor);
            move(125, 40);
            verify(square.shapeContainsCursor);
        }
        function test_numbersThatAreNone_areRefused() {
            make({ editable: true });
            square.moveVertex(1, NaN, 0);
            square.moveAllVertices(Infinity, 0);
            square.addPoint(Qt.point(NaN, NaN));
            square.removePointAtIndex(-1);
            square.removePointAtIndex(99);
            square.moveVertex(99, 1, 1);
            compare(text(square.corners), text(corners));
        }
        function test_manyPoints_areShownAndTakenAway() {
            const many = [];
            for (let i = 0; i < 10000; ++i) {
                const angle = i / 10000 * 2 * Math.PI;
                many.push(Qt.point(125 + 90 * Math.cos(angle), 100 + 90 * Math.sin(angle)));
            }
            // Out of sight: what is measured here is not the painting of ten thousand handles.
            scene.visible = false;
            const start = Date.now();
            const item = createTemporaryObject(plain, carrier, { polygonLineModel: square, editable: true });
            const middle = () => Math.round(areaOf(item).x + areaOf(item).width / 2);
            square.corners = many;
            compare(handlesOf(item).filter(each => each.modelIndex >= 0).length >= 10001, true);
            tryCompare(pathOf(item).pathElements, "length", 1);
            tryVerify(() => middle() === 125);
            square.moveVertex(5000, 1, 1);
            square.moveAllVertices(20, 0);
            tryVerify(() => middle() === 145);
            item.editable = false;
            item.polygonLineModel = null;
            square.corners = many;
            item.polygonLineModel = square;
            tryVerify(() => middle() === 125);
            item.polygonLineModel = foreign;
            compare(pathOf(item).pathElements.length, 0);
            verify(Date.now() - start < 30000, (Date.now() - start) + " ms");
            scene.visible = true;
        }
        function test_longOutline_isDrawnByOneElement_andByLinesAgain() {
            const ring = count => Array.from({ length: count }, (_, i) => Qt.point(125 + 90 * Math.cos(i / count * 2 * Math.PI),
                                                                                  100 + 90 * Math.sin(i / count * 2 * Math.PI)));
            const item = make({ polygonOpacity: 1 });
            square.corners = ring(520);
            tryVerify(() => pathOf(item).pathElements.length === 1);
            waitForRendering(root);
            compare(grabImage(root).pixel(at(200, 100).x, at(200, 100).y), "#ffa500");
            square.addPoint(Qt.point(125, 5));
            while (square.corners.length > 400)
                square.removePointAtIndex(10);
            tryVerify(() => pathOf(item).pathElements.length === 401);
            square.corners = corners;
            compare(outline(item), "50 50 50,50 150,50 150,150 50,150 50,50");
        }
    }
}
