// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find
import "expandablerow.js" as Row

Item {
    id: root

    width: 500
    height: 600

    Component {
        id: plain

        ServerView {
            anchors.fill: parent
        }
    }
    TestCase {
        name: "ServerView"
        when: windowShown

        readonly property var look: settings
        readonly property var labels: ["Server Group Id: ", "Server Id: ", "Unique Id: ", "Server Name: ", "IP Adress: ", "Hosts: ",
                                       "Camera Count: ", "Version: ", "Major Version: ", "Minor Version: ", "Build Version: ",
                                       "User Id: ", "User Name: ", "User Level: ", "User Privileges: "]

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            site.logOut();
        }
        function make(): var {
            const view = createTemporaryObject(plain, root);
            waitForRendering(view);
            mouseMove(root, 499, 599);
            return view;
        }
        function test_list_isEmpty_withoutALogin() {
            compare(make().count, 0);
        }
        function test_rows_areTheServers() {
            verify(site.login(1, 1, "north", 3));
            verify(site.login(2, 2, "north", 0));
            const view = make();
            compare(view.count, 2);
            compare(Row.label(view.itemAtIndex(0)).text, "Recorder 1");
            compare(Row.label(view.itemAtIndex(1)).text, "Recorder 2");
            compare(view.section.property, "");
        }
        function test_details_haveALineForEachField() {
            verify(site.login(1, 4, "north", 3));
            const view = make();
            const lines = Row.details(view.itemAtIndex(0)).children[0].text.split("\n");
            compare(lines.map(line => line.slice(0, line.indexOf(": ") + 2)), labels);
            const values = lines.map(line => line.slice(line.indexOf(": ") + 2));
            compare(values[0], String(site.serverGroupId(1)));
            compare(values[1], "4");
            compare(values[3], "Recorder 1");
            compare(values[4], "192.0.2.1");
            compare(values[5], "server1");
            compare(values[6], "3");
            compare(values[7], "7.3.0.1234");
            compare([values[8], values[9]], ["7", "3"]);
            compare(values[12], "operator");
            // The model has no such role.
            compare(values[14], "");
        }
        function test_row_opensAndCloses_byClick() {
            verify(site.login(1, 1, "north", 3));
            verify(site.login(2, 2, "north", 3));
            const view = make();
            Row.checkOpening(this, view, view.itemAtIndex(0), 9);
            // The others stay as they are.
            mouseClick(view.itemAtIndex(0), 20, 10);
            verify(!Row.details(view.itemAtIndex(1)).visible);
            view.forceLayout();
            compare(view.itemAtIndex(1).y, view.itemAtIndex(0).height);
        }
        function test_row_opens_byKeyboard() {
            verify(site.login(1, 1, "north", 3));
            verify(site.login(2, 2, "north", 3));
            const view = make();
            view.forceActiveFocus();
            keyClick(Qt.Key_Down);
            compare(view.currentIndex, 1);
            keyClick(Qt.Key_Return);
            verify(Row.details(view.itemAtIndex(1)).visible);
            keyClick(Qt.Key_Space);
            verify(!Row.details(view.itemAtIndex(1)).visible);
        }
        function test_strip_followsThePointer() {
            verify(site.login(1, 1, "north", 3));
            const view = make();
            Row.checkStates(this, view.itemAtIndex(0));
        }
        function test_model_isReset_whileARowIsOpen() {
            verify(site.login(1, 1, "north", 3));
            const view = make();
            mouseClick(view.itemAtIndex(0), 20, 10);
            verify(site.login(2, 2, "north", 3));
            tryCompare(view, "count", 2);
            site.logOut();
            tryCompare(view, "count", 0);
        }
        function test_foreignModel_showsEmptyValues_data() {
            return [
                { tag: "null", model: null, count: 0 },
                { tag: "number", model: 2, count: 2 },
                { tag: "texts", model: ["a", "b", "c"], count: 3 },
                { tag: "objects", model: [{ name: "x" }], count: 1 }
            ];
        }
        function test_foreignModel_showsEmptyValues(data: var) {
            const view = make();
            view.model = data.model;
            waitForRendering(view);
            compare(view.count, data.count);
            if (data.count > 0) {
                const lines = Row.details(view.itemAtIndex(0)).children[0].text.split("\n");
                compare(lines.length, 15);
                compare(lines[1], "Server Id: ");
            }
        }
        function test_names_arePlainText_howeverLong_data() {
            return [
                { tag: "markup", text: "<b>bold</b> <img src='file:///etc/hostname'> &amp;" },
                { tag: "long", text: "x".repeat(1000) },
                { tag: "right to left", text: "\u05de\u05e6\u05dc\u05de\u05d4 \u0643\u0627\u0645\u064a\u0631\u0627 1" },
                { tag: "lines", text: "one\ntwo" }
            ];
        }
        function test_names_arePlainText_howeverLong(data: var) {
            const view = make();
            view.model = site.table(["name", "serverId"], [[data.text, 1]]);
            waitForRendering(view);
            Row.checkText(this, view.itemAtIndex(0), data.text);
        }
        function test_manyRows_areReused() {
            const rows = [];
            for (let i = 0; i < 10000; ++i)
                rows.push(["Recorder " + i, i]);
            const view = make();
            view.model = site.table(["name", "serverId"], rows);
            waitForRendering(view);
            Row.checkReuse(this, view, 10000, i => "Recorder " + i);
        }
    }
}
