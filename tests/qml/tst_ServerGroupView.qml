// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "expandablerow.js" as Row

Item {
    id: root

    width: 500
    height: 400

    Component {
        id: plain

        ServerGroupView {
            anchors.fill: parent
        }
    }
    TestCase {
        name: "ServerGroupView"
        when: windowShown

        readonly property var look: settings

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            site.logOut();
        }
        function make(): var {
            const view = createTemporaryObject(plain, root);
            waitForRendering(view);
            mouseMove(root, 499, 399);
            return view;
        }
        function test_rows_areTheGroups() {
            compare(make().count, 0);
            verify(site.login(1, 1, "north", 3));
            verify(site.login(2, 2, "north", 3));
            verify(site.login(3, 1, "south", 3));
            const view = make();
            compare(view.count, 2);
            compare(Row.label(view.itemAtIndex(0)).text, "Server Group Id: " + site.serverGroupId(1));
            compare(Row.label(view.itemAtIndex(1)).text, "Server Group Id: " + site.serverGroupId(3));
            compare(Row.details(view.itemAtIndex(0)).children[0].text,
                    "Server Group Id: " + site.serverGroupId(1) + "\nHosts: server1:8601, server2:8601");
        }
        function test_row_opensAndCloses_byClick() {
            verify(site.login(1, 1, "north", 3));
            const view = make();
            Row.checkOpening(this, view, view.itemAtIndex(0), 1.5);
        }
        function test_strip_followsThePointer() {
            verify(site.login(1, 1, "north", 3));
            const view = make();
            Row.checkStates(this, view.itemAtIndex(0));
        }
        function test_row_opens_byKeyboard() {
            verify(site.login(1, 1, "north", 3));
            const view = make();
            view.forceActiveFocus();
            keyClick(Qt.Key_Return);
            verify(Row.details(view.itemAtIndex(0)).visible);
        }
        function test_manyRows_areReused() {
            const rows = [];
            for (let i = 0; i < 5000; ++i)
                rows.push([i, "host" + i]);
            const view = make();
            view.model = site.table(["serverGroupId", "hosts"], rows);
            waitForRendering(view);
            Row.checkReuse(this, view, 5000, i => "Server Group Id: " + i);
        }
    }
}
