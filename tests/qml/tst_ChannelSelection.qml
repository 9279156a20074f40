// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 500
    height: 600

    property var heard: []

    Loader {
        id: pages

        anchors.fill: parent
    }
    Component {
        id: page

        ChannelSelection {
            loader: root.pageLoader
            onChannelSelected: modelIndex => root.heard.push([modelIndex, pages.item !== null])
        }
    }

    property alias pageLoader: pages
    TestCase {
        name: "ChannelSelection"
        when: windowShown

        readonly property var roles: ["name", "serverName", "isCamera", "sortId", "hasPtzf"]
        property var item
        property var view

        function init() {
            failOnWarning(/.?/);
            root.heard = [];
        }
        function cleanup() {
            pages.sourceComponent = undefined;
            site.logOut();
        }
        function show(model: var) {
            pages.sourceComponent = page;
            item = pages.item;
            item.model = model;
            view = Find.first(item, "QQuickListView");
            waitForRendering(root);
            mouseMove(root, 250, 3);
        }
        function five(): var {
            return site.table(roles, [["Gate", "North", true, 10, false], ["Yard", "North", true, 20, true],
                                      ["Sound", "North", false, 30, false], ["Gatehouse", "South", true, 5, true],
                                      ["Counter", "West", false, 1, false]]);
        }
        function shown(): var {
            view.forceLayout();
            const texts = [];
            for (let i = 0; i < view.count; ++i) {
                if (view.itemAtIndex(i)?.visible)
                    texts.push(labelOf(view.itemAtIndex(i)).text);
            }
            return texts;
        }
        function labelOf(row: var): var {
            return Find.first(row, "ActiveLabel_");
        }
        function areaOf(row: var): var {
            return row.children.find(each => each.containsMouse !== undefined && each.clicked);
        }
        function input(): var {
            return Find.first(item, "O_TextInput_");
        }
        function type(text: string) {
            const field = Find.first(input(), "TextField_");
            field.forceActiveFocus();
            for (const letter of text)
                keyClick(letter);
        }
        function test_frame() {
            show(five());
            const title = Find.all(item, "QQuickText").find(each => each.text === "Channel Selection");
            compare(title.parent.height, settings.controlHeightHints + 4 * settings.controlMarginsHints);
            const out = Find.first(item, "ToolBarButton_");
            const field = input();
            compare(field.text, "");
            compare(field.margins, 0);
            compare(field.x, settings.controlMarginsHints);
            compare(field.x + field.width, out.x - settings.controlMarginsHints);
            compare(field.y + field.height / 2, field.parent.height / 2);
            compare(view.section.property, "serverName");
        }
        function test_rows_thatAreNoCameras_takeNoRoom() {
            show(five());
            compare(shown(), ["10 - Gate", "20 - Yard", "5 - Gatehouse"]);
            compare(view.count, 5);
            compare(view.itemAtIndex(2).height, 0);
            compare(view.itemAtIndex(0).height, settings.controlHeightHints + 2 * settings.controlMarginsHints);
            // A server without cameras has its heading all the same.
            const headings = Find.all(view, "").filter(each => each.section !== undefined && each.visible && each.height > 0);
            compare(headings.map(each => each.section).filter((each, i, all) => all.indexOf(each) === i).sort(), ["North", "South", "West"]);
            const heading = headings.find(each => each.section === "North");
            compare(heading.height, settings.controlHeightHints);
            compare(Find.first(heading, "ActiveBackground_").state, "highlight");
            compare(Find.first(heading, "ActiveLabel_").state, "highlight");
        }
        function test_ptzIcon_isForCamerasThatTurn() {
            show(five());
            const iconOf = i => Find.first(view.itemAtIndex(i), "ActiveIcon_");
            compare(iconOf(1).source, "ptzf");
            verify(iconOf(1).visible);
            verify(!iconOf(0).visible);
            compare(iconOf(1).height, settings.controlHeightHints);
            compare(iconOf(1).width, settings.controlHeightHints);
        }
        function test_filter_worksAtEachKey() {
            show(five());
            type("G");
            compare(shown(), ["10 - Gate", "5 - Gatehouse"]);
            // "Gate" could still become "Gateh".
            type("ateh");
            compare(shown(), ["10 - Gate", "5 - Gatehouse"]);
            type("x");
            compare(shown(), ["10 - Gate"]);
            for (let i = 0; i < 6; ++i)
                keyClick(Qt.Key_Backspace);
            type("hou");
            compare(shown(), ["5 - Gatehouse"]);
        }
        function test_filter_thatIsNoExpression_showsNothing() {
            show(five());
            type("(");
            compare(shown(), []);
            compare(view.count, 0);
        }
        function test_click_tellsTheRowOfTheFilteredList_andCloses() {
            show(five());
            type("hou");
            view.forceLayout();
            mouseClick(view.itemAtIndex(0), 30, 10);
            compare(root.heard, [[0, true]]);
            compare(pages.item, null);
        }
        function test_keyboard_choosesTheCurrentRow() {
            show(five());
            view.forceActiveFocus();
            view.currentIndex = 0;
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Return);
            compare(root.heard, [[1, true]]);
        }
        function test_states_ofTextAndGround_areEachOthersReverse() {
            show(five());
            const row = view.itemAtIndex(1);
            const states = () => [Find.first(row, "ActiveBackground_").state, labelOf(row).state, Find.first(row, "ActiveIcon_").state];
            compare(states(), ["normal", "normal", "normal"]);
            mouseMove(row, 40, 15);
            compare(states(), ["highlight", "active", "active"]);
            mousePress(row, 40, 15);
            compare(states(), ["active", "highlight", "highlight"]);
            mouseMove(root, 250, 3);
            mouseRelease(root, 250, 3);
            compare(root.heard, []);
        }
        function test_close_tellsNothing() {
            show(five());
            mouseClick(Find.first(item, "ToolBarButton_"));
            compare(root.heard, []);
            compare(pages.item, null);
        }
        function test_channels_ofARealSite() {
            verify(site.login(1, 1, "north", 0));
            site.nameCameras(1, ["Gate", "audio:Talk", "Yard"]);
            show(channels);
            tryVerify(() => shown().length === 2);
            compare(shown(), ["1 - Gate", "3 - Yard"]);
            site.nameCameras(1, ["Roof"]);
            tryVerify(() => shown().join() === "1 - Roof");
        }
        function test_model_mayBeMissingOrForeign_data() {
            return [ { tag: "undefined", model: undefined }, { tag: "null", model: null }, { tag: "number", model: 3 },
                     { tag: "texts", model: ["a", "b"] } ];
        }
        function test_model_mayBeMissingOrForeign(data: var) {
            show(data.model);
            compare(view.count, 0);
            type("x");
            compare(view.count, 0);
        }
        function test_roles_mayBeMissing() {
            show(site.table(["name"], [["Gate"], ["Yard"]]));
            compare(view.count, 2);
            compare(shown(), []);
        }
        function test_model_isReset_underTheFilter() {
            const table = five();
            show(table);
            type("Gate");
            site.resetTable(table, roles, [["Other", "East", true, 1, false], ["Gate 9", "East", true, 2, false]]);
            compare(shown(), ["2 - Gate 9"]);
            site.resetTable(table, roles, []);
            compare(view.count, 0);
        }
        function test_names_arePlainText_andElided() {
            const name = "<b>" + "n".repeat(1000);
            show(site.table(roles, [[name, "<u>Server</u>" + "s".repeat(1000), true, 1, true]]));
            const label = labelOf(view.itemAtIndex(0));
            compare(label.text, "1 - " + name);
            compare(label.textFormat, Text.PlainText);
            verify(label.truncated);
            const heading = Find.all(view, "").find(each => each.section !== undefined);
            compare(Find.first(heading, "ActiveLabel_").textFormat, Text.PlainText);
            verify(Find.first(heading, "ActiveLabel_").width <= 500);
        }
        function test_tenThousandCameras_areReused() {
            const rows = [];
            for (let i = 0; i < 10000; ++i)
                rows.push(["Camera " + i + " in", "Server " + Math.floor(i / 1000), true, i, false]);
            show(site.table(roles, rows));
            compare(view.count, 10000);
            verify(view.contentItem.children.length < 60, view.contentItem.children.length);
            for (const index of [5000, 9999, 3, 7777]) {
                view.positionViewAtIndex(index, ListView.Contain);
                view.forceLayout();
                compare(labelOf(view.itemAtIndex(index)).text, index + " - Camera " + index + " in");
            }
            verify(view.contentItem.children.length < 80, view.contentItem.children.length);
            type("a 9999 ");
            tryCompare(view, "count", 1);
        }
    }
    ChannelModel {
        id: channels
    }
}
