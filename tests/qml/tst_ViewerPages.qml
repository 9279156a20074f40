// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtTest
import OrrinViewer
import OrrinViewer.Host
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 1280
    height: 800

    ZoneStore {
        id: zoneStore

        file: site.home() + "/viewer-zones.json"
    }
    Component {
        id: events

        EventsPage {
            anchors.fill: parent
        }
    }
    Component {
        id: settingsHost

        SettingsHost {
            anchors.fill: parent
        }
    }
    Component {
        id: jump

        TimeJump {}
    }
    Component {
        id: editor

        ZoneEditor {
            anchors.fill: parent
            store: zoneStore
            camera: "cam"
            name: "North Road"
        }
    }
    Component {
        id: byIds

        ZoneEditor {
            anchors.fill: parent
            store: zoneStore
        }
    }
    Component {
        id: overlay

        ZoneOverlay {
            anchors.fill: parent
            store: zoneStore
            camera: "cam"
            pictureArea: Qt.rect(0, 0, 1280, 800)
        }
    }
    SignalSpy {
        id: spy
    }
    TestCase {
        name: "ViewerPages"
        when: windowShown

        readonly property var gate: ({ name: "Gate", points: [[0.2, 0.2], [0.6, 0.2], [0.6, 0.6], [0.2, 0.6]] })

        function init() {
            failOnWarning(/.?/);
            zoneStore.setZones("cam", []);
        }
        function cleanup() {
            root.width = 1280;
            site.logOut();
        }
        function make(component: var, signalName: string): var {
            const item = createTemporaryObject(component, root);
            spy.signalName = "";
            spy.target = item;
            spy.signalName = signalName;
            spy.clear();
            wait(50);
            return item;
        }
        function row(page: var, index: int): var {
            const list = Find.first(page, "QQuickListView");
            list.forceLayout();
            return list.itemAtIndex(index);
        }
        function polygons(page: var): var {
            return Find.all(page, "O_Polygon_");
        }
        function corners(polygon: var): var {
            return Array.from(polygon.polygonLineModel.corners);
        }
        // The shape knows its place once it was drawn.
        function awaitShapes(page: var) {
            tryVerify(() => polygons(page).length > 0
                            && polygons(page).every(each => each.children.find(area => area.acceptedButtons !== undefined).width > 10));
            waitForRendering(root);
        }
        function drag(page: var, x: real, y: real, dx: real, dy: real) {
            awaitShapes(page);
            const from = page.scene.mapToItem(root, x * page.scene.width, y * page.scene.height);
            const way = Qt.point(dx * page.scene.width, dy * page.scene.height);
            mouseMove(root, from.x, from.y);
            mousePress(root, from.x, from.y);
            for (let step = 1; step <= 10; ++step)
                mouseMove(root, from.x + way.x * step / 10, from.y + way.y * step / 10);
            mouseRelease(root, from.x + way.x, from.y + way.y);
        }
        function test_event_click_asksForItsMoment() {
            verify(site.login(1, 4, "north", 3));
            site.report(1, 1, { cause: "Motion", color: "#ffb74d", sourceName: "<b>Gate</b>", channelId: 2 });
            const page = make(events, "openAt");
            compare(page.objectName, "events");
            compare(page.count, liveEventModel.rowCount());
            const texts = Find.all(row(page, 0), "QQuickText");
            compare(texts[0].text, "Motion");
            compare(texts[0].color, "#ffb74d");
            verify(texts.some(each => each.text.includes("<b>Gate</b>") && each.textFormat === Text.PlainText));
            mouseClick(row(page, 0));
            compare(spy.count, 1);
            const told = spy.signalArguments[0];
            compare([told[0], told[1], told[2]], [site.serverGroupId(1), 4, 2]);
            compare(told[3].getTime(), Date.UTC(2026, 2, 14, 9, 26, 53));
        }
        function test_event_ofALostServer_hasNoAddress() {
            site.report(77, 1, { cause: "Motion", channelId: 5 });
            const page = make(events, "openAt");
            mouseClick(row(page, 0));
            compare([spy.signalArguments[0][0], spy.signalArguments[0][1], spy.signalArguments[0][2]], [-1, -1, 5]);
        }
        function test_event_opensByKeyboard_newestFirst() {
            verify(site.login(1, 4, "north", 3));
            site.report(1, 1, { cause: "Older", channelId: 1 });
            site.report(1, 1, { cause: "Newer", channelId: 2 });
            const page = make(events, "openAt");
            Find.first(page, "QQuickListView").forceActiveFocus();
            Find.first(page, "QQuickListView").currentIndex = 0;
            keyClick(Qt.Key_Return);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Return);
            compare(spy.signalArguments.map(each => each[2]), [2, 1]);
        }
        function test_rule_marksByCauseAndSource() {
            verify(site.login(1, 4, "north", 3));
            site.report(1, 1, { cause: "Door", channelId: 1 });
            site.report(1, 1, { cause: "Motion", channelId: 2 });
            const page = make(events, "openAt");
            const combo = Find.first(page, "EventCauseCombo_");
            const source = Find.first(page, "EventSourceSelector_");
            tryVerify(() => Find.first(combo, "O_ComboBox_").count >= 3);
            const marked = () => [row(page, 0).marked, row(page, 1).marked];
            compare(marked(), [false, false]);
            mouseClick(Find.first(page, "Switch_"));
            compare(marked(), [true, true]);
            combo.eventCause = "Door";
            compare(Find.first(combo, "O_ComboBox_").currentText, "Door");
            compare(marked(), [false, true]);
            source.eventSourceSubDeviceId = 2;
            compare(marked(), [false, false]);
            combo.eventCause = "";
            compare(marked(), [true, false]);
            source.eventSourceDeviceId = 9;
            compare(marked(), [false, false]);
            source.eventSourceDeviceId = 0;
            source.eventSourceSubDeviceId = 0;
            mouseClick(Find.first(page, "Switch_"));
            compare(marked(), [false, false]);
        }
        function test_rule_isFoldedAway_onANarrowPage() {
            const page = make(events, "openAt");
            verify(page.ruleShown);
            root.width = 390;
            verify(!page.ruleShown);
            verify(!Find.first(page, "EventCauseCombo_").visible);
            page.ruleShown = true;
            verify(Find.first(page, "EventCauseCombo_").visible);
        }
        function test_settings_leaveByTheirButton_andBeginAgain() {
            const page = make(settingsHost, "leaveRequested");
            compare(page.objectName, "settings");
            const out = () => Find.all(page, "ToolBarButton_").find(each => each.iconSource === "ic_exit_to_app_black_24px");
            mouseClick(out());
            compare(spy.count, 1);
            compare(out(), undefined);
            page.open();
            verify(out() !== undefined);
        }
        function test_jump_tellsTheMoment_andCloses() {
            const page = make(jump, "accepted");
            compare(page.objectName, "timeJump");
            page.open();
            tryVerify(() => page.opened);
            const selection = Find.first(root.Overlay.overlay, "DatetimeSelection_");
            selection.selectedDate = new Date(2024, 1, 29);
            [selection.hour, selection.minute, selection.second] = [9, 5, 7];
            mouseClick(Find.all(selection, "ToolBarButton_").find(each => each.text === "Go"));
            compare(spy.count, 1);
            compare(spy.signalArguments[0][0].getTime(), new Date(2024, 1, 29, 9, 5, 7).getTime());
            tryVerify(() => !page.opened);
        }
        function test_jump_withToday_isOfThisDay() {
            const page = make(jump, "accepted");
            page.open();
            tryVerify(() => page.opened);
            const selection = Find.first(root.Overlay.overlay, "DatetimeSelection_");
            mouseClick(Find.all(selection, "ToolBarButton_").find(each => each.text === "Go"));
            compare(Qt.formatDate(spy.signalArguments[0][0], "yyyy-MM-dd"), Qt.formatDate(timeTools.dateNow(), "yyyy-MM-dd"));
            tryVerify(() => !page.opened);
        }
        function test_jump_closesByEscape_withoutAWord() {
            const page = make(jump, "accepted");
            page.open();
            tryVerify(() => page.opened);
            keyClick(Qt.Key_Escape);
            tryVerify(() => !page.opened);
            compare(spy.count, 0);
        }
        function test_zone_isDrawn_movedByItsCorner_andKept() {
            zoneStore.setZones("cam", [gate]);
            const page = make(editor, "leaveRequested");
            compare(page.count, 1);
            compare(polygons(page).length, 1);
            drag(page, 0.6, 0.6, 0.1, 0.1);
            tryVerify(() => zoneStore.zones("cam")[0].points[2][0] > 0.65);
            const points = zoneStore.zones("cam")[0].points;
            fuzzyCompare(points[2][1], points[2][0], 0.03);
            compare([points[0], points[1], points[3]], [gate.points[0], gate.points[1], gate.points[3]]);
        }
        function test_zone_isMovedAsAWhole_andStaysInThePicture() {
            zoneStore.setZones("cam", [gate]);
            const page = make(editor, "leaveRequested");
            drag(page, 0.4, 0.4, 0.1, 0);
            tryVerify(() => zoneStore.zones("cam")[0].points[0][0] > 0.25);
            let points = zoneStore.zones("cam")[0].points;
            fuzzyCompare(points[1][0] - points[0][0], 0.4, 0.001);
            fuzzyCompare(points[0][1], 0.2, 0.001);
            const polygon = polygons(page)[0];
            compare([polygon.parent.x, polygon.parent.y], [0, 0]);
            fuzzyCompare(corners(polygon)[0].x, points[0][0] * page.scene.width, 0.01);
            drag(page, 0.5, 0.4, 0.45, 0);
            tryVerify(() => zoneStore.zones("cam")[0].points[1][0] === 1);
        }
        function test_zones_areAdded_named_chosen_andRemoved() {
            const page = make(editor, "leaveRequested");
            const button = text => Find.all(page, "Button_").find(each => each.text === text);
            mouseClick(button("Add"));
            mouseClick(button("Add"));
            compare(page.count, 2);
            compare(page.selected, 1);
            compare(zoneStore.zones("cam").map(each => each.name), ["Zone 1", "Zone 2"]);
            const field = Find.first(page, "TextField_");
            mouseClick(field);
            keyClick(Qt.Key_A, Qt.ControlModifier);
            keyClick("X");
            tryVerify(() => zoneStore.zones("cam")[1].name === "X");
            awaitShapes(page);
            const first = page.scene.mapToItem(root, 0.36 * page.scene.width, 0.36 * page.scene.height);
            mouseMove(root, first.x, first.y);
            mouseClick(root, first.x, first.y);
            compare(page.selected, 0);
            mouseClick(button("Remove"));
            compare(page.count, 1);
            compare(zoneStore.zones("cam").map(each => each.name), ["X"]);
            mouseClick(button("Done"));
            compare(spy.count, 1);
        }
        function test_camera_goesByItsUid() {
            verify(site.login(1, 4, "north", 3));
            const group = site.serverGroupId(1);
            const uid = zoneStore.cameraOf(group, 4, 2);
            verify(uid.endsWith(":2"), uid);
            compare(zoneStore.cameraOf(group, 4, 9), "");
            compare(zoneStore.cameraOf(99, 4, 2), "");
            zoneStore.setZones(uid, [gate]);
            const page = createTemporaryObject(byIds, root, { serverGroupId: group, serverId: 4, channelId: 2 });
            compare(page.camera, uid);
            compare(page.count, 1);
            page.channelId = 3;
            compare(page.count, 0);
            zoneStore.setZones(uid, []);
        }
        function test_change_isKeptForItsCamera_whenAnotherComes() {
            zoneStore.setZones("cam", [gate]);
            zoneStore.setZones("next", []);
            const page = make(editor, "leaveRequested");
            page.rename(0, "Renamed");
            page.camera = "next";
            compare(zoneStore.zones("cam")[0].name, "Renamed");
            compare(zoneStore.zones("next"), []);
            compare(page.count, 0);
        }
        function test_zones_followTheSizeOfThePage() {
            zoneStore.setZones("cam", [gate]);
            const page = make(editor, "leaveRequested");
            root.width = 390;
            tryVerify(() => Math.abs(corners(polygons(page)[0])[1].x - 0.6 * page.scene.width) < 0.01);
            compare(zoneStore.zones("cam")[0].points, gate.points);
        }
        function test_overlay_followsTheStore_andTakesNoClicks() {
            const item = make(overlay, "countChanged");
            compare(item.count, 0);
            zoneStore.setZones("cam", [gate]);
            compare(item.count, 1);
            verify(!item.enabled);
            // The line is smoothed.
            tryVerify(() => grabImage(root).blue(512, 160) < 180);
            verify(grabImage(root).blue(512, 100) > 200);
            item.camera = "another";
            compare(item.count, 0);
        }
    }
}
