// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "expandablerow.js" as Row

Item {
    id: root

    width: 500
    height: 600

    Component {
        id: plain

        ChannelView {
            anchors.fill: parent
        }
    }
    TestCase {
        name: "ChannelView"
        when: windowShown

        readonly property var look: settings
        readonly property var labels: ["Server Group Id: ", "Server Id: ", "channelId: ", "channelUniqueId: ", "name: ", "isValid: ",
                                       "isEnabled: ", "isCamera: ", "isAudio: ", "isTalkback: ", "isData: ", "hasPtzf: "]

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
        function names(view: var): var {
            return Array.from({ length: view.count }, (_, i) => view.model.data(view.model.index(i, 0), Qt.UserRole + 6));
        }
        function test_rows_areTheCamerasThatMayBeSeen_inOrder() {
            verify(site.login(2, 2, "north", 0));
            site.nameCameras(2, ["b1", "audio:b2", "b3"]);
            verify(site.login(1, 1, "north", 2));
            const view = make();
            tryCompare(view, "count", 4);
            compare(names(view), ["Camera 1", "Camera 2", "b1", "b3"]);
            site.nameCameras(1, ["only"]);
            tryVerify(() => names(view).join() === "only,b1,b3");
        }
        function test_details_haveALineForEachField() {
            verify(site.login(1, 4, "north", 10));
            const view = make();
            tryCompare(view, "count", 10);
            view.positionViewAtIndex(9, ListView.Contain);
            const lines = Row.details(view.itemAtIndex(9)).children[0].text.split("\n");
            compare(lines.map(line => line.slice(0, line.indexOf(": ") + 2)), labels);
            const values = lines.map(line => line.slice(line.indexOf(": ") + 2));
            compare([values[0], values[1], values[2], values[4]], [String(site.serverGroupId(1)), "4", "10", "Camera 10"]);
            compare(values.slice(5), ["true", "true", "true", "false", "false", "false", "true"]);
        }
        function test_row_opensAndCloses_byClick() {
            verify(site.login(1, 1, "north", 3));
            const view = make();
            tryCompare(view, "count", 3);
            Row.checkOpening(this, view, view.itemAtIndex(0), 7.25);
        }
        function test_strip_followsThePointer() {
            verify(site.login(1, 1, "north", 3));
            const view = make();
            Row.checkStates(this, view.itemAtIndex(1));
        }
        function test_channels_change_whileARowIsOpen() {
            verify(site.login(1, 1, "north", 5));
            const view = make();
            mouseClick(view.itemAtIndex(2), 20, 10);
            verify(Row.details(view.itemAtIndex(2)).visible);
            site.nameCameras(1, ["x", "y"]);
            tryCompare(view, "count", 2);
            compare(Row.label(view.itemAtIndex(0)).text, "x");
            site.lose(1);
            site.restore(1);
            tryCompare(view, "count", 2);
        }
        function test_logout_emptiesTheList_whereverItStands() {
            verify(site.login(1, 1, "north", 2000));
            const view = make();
            tryCompare(view, "count", 2000);
            view.positionViewAtIndex(1500, ListView.Beginning);
            view.forceLayout();
            mouseClick(view.itemAtIndex(1502), 20, 10);
            verify(Row.details(view.itemAtIndex(1502)).visible);
            view.contentY += 10;
            site.logOut();
            tryCompare(view, "count", 0);
            waitForRendering(view);
            verify(site.login(1, 1, "north", 2));
            tryCompare(view, "count", 2);
            verify(!Row.details(view.itemAtIndex(1)).visible);
        }
        function test_names_arePlainText_howeverLong_data() {
            return [
                { tag: "markup", text: "<h1>Gate</h1><script>x</script>" },
                { tag: "long", text: "W".repeat(1000) },
                { tag: "right to left", text: "\u0645\u062f\u062e\u0644 <i>1</i>" }
            ];
        }
        function test_names_arePlainText_howeverLong(data: var) {
            verify(site.login(1, 1, "north", 1));
            site.nameCameras(1, [data.text]);
            const view = make();
            tryCompare(view, "count", 1);
            Row.checkText(this, view.itemAtIndex(0), data.text);
        }
        function test_tenThousandCameras_areReused() {
            verify(site.login(1, 1, "north", 10000));
            const start = Date.now();
            const view = make();
            tryCompare(view, "count", 10000);
            verify(Date.now() - start < 15000, (Date.now() - start) + " ms");
            Row.checkReuse(this, view, 10000, i => "Camera " + (i + 1));
        }
    }
}
