// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 1000
    height: 800

    property var heard: []

    Component {
        id: plain

        ChannelWindow {
            width: 1000
            height: 800
            xCoord: 12.5
            yCoord: -3
            onAddCamera: (channel_uid, x_coord, y_coord) => root.heard.push([channel_uid, x_coord, y_coord])
        }
    }
    Component {
        id: filtered

        // As a host does it: the text of the window filters the host's model.
        ChannelWindow {
            id: asking

            width: 1000
            height: 800
            channelModel: SortFilterProxyModel {
                model: root.source
                filterRole: "name"
                filterRegExp: asking.searchText
            }
        }
    }

    property var source
    TestCase {
        id: test

        name: "ChannelWindow"
        when: windowShown

        readonly property var roles: ["name", "serverName", "channelUniqueIdMeta"]
        property var item
        property var popup

        function init() {
            failOnWarning(/.?/);
            root.heard = [];
        }
        function cleanup() {
            test.parent = root;
            site.logOut();
        }
        function three(): var {
            return site.table(roles, [["Gate", "North", "uid-1"], ["Yard", "North", "uid-2"], ["Roof", "South", "uid-3"]]);
        }
        function open(component: var, properties: var) {
            item = createTemporaryObject(component, root, properties);
            verify(item);
            popup = Find.all(item, "QQuickWindow")[0];
            compare(popup.title, "Select Camera");
            verify(!item.windowVisible);
            item.show();
            tryVerify(() => item.windowVisible);
            tryVerify(() => dialog() && dialog().opened);
            // Keys go to the window that the test stands in.
            test.parent = popup.contentItem;
            popup.requestActivate();
            tryVerify(() => popup.active);
        }
        function dialog(): var {
            return popup.data.find(each => each.selectedCamera !== undefined);
        }
        function list(): var {
            return Find.first(dialog().contentItem, "QQuickListView");
        }
        function row(index: int): var {
            list().forceLayout();
            return list().itemAtIndex(index);
        }
        function button(text: string): var {
            return Find.all(dialog().footer, "").find(each => each.text === text && each.clicked);
        }
        function isGone(): bool {
            test.parent = root;
            let gone = false;
            tryVerify(() => {
                try {
                    gone = item === null || item.objectName === undefined || String(item) === "null";
                } catch (error) {
                    gone = true;
                }
                return gone;
            }, 3000);
            return gone;
        }
        function test_window_isHalfTheItem_andTheDialogFillsIt() {
            open(plain, { channelModel: three() });
            compare(item.objectName, "channelWindow");
            compare(popup.width, 500);
            compare(popup.height, 400);
            compare(dialog().width, popup.width);
            compare(dialog().height, popup.height);
            compare(dialog().x, 0);
            verify(dialog().modal);
            const field = Find.first(dialog().contentItem, "TextField_");
            compare(field.placeholderText, "Search Cameras");
            compare(field.width, 400);
            compare(list().section.property, "serverName");
            verify(list().clip);
            const headings = Find.all(list(), "ItemDelegate_").filter(each => each.section !== undefined);
            compare(headings.map(each => each.section).sort(), ["North", "South"]);
            compare(row(0).text, "Gate");
            compare(row(0).width, 400);
        }
        function test_check_moves_andTheNewRowIsChosen() {
            open(plain, { channelModel: three() });
            mouseClick(row(0));
            compare(dialog().selectedCamera, "uid-1");
            verify(row(0).highlighted);
            mouseClick(row(2));
            verify(!row(0).checked);
            compare(dialog().selectedCamera, "uid-3");
            mouseClick(button("OK"));
            compare(root.heard, [["uid-3", 12.5, -3]]);
            verify(isGone());
        }
        function test_doubleClick_chooses() {
            open(plain, { channelModel: three() });
            mouseDoubleClickSequence(row(1));
            tryCompare(root.heard, "length", 1);
            compare(root.heard[0][0], "uid-2");
            verify(isGone());
        }
        function test_keyboard_chooses() {
            open(plain, { channelModel: three() });
            row(1).forceActiveFocus();
            keyClick(Qt.Key_Space);
            compare(dialog().selectedCamera, "uid-2");
            keyClick(Qt.Key_Escape);
            compare(root.heard, []);
            verify(isGone());
        }
        function test_accept_tellsNothing_withoutAChoice() {
            open(plain, { channelModel: three() });
            mouseClick(button("OK"));
            compare(root.heard, []);
            verify(isGone());
        }
        function test_cancel_tellsNothing() {
            open(plain, { channelModel: three() });
            mouseClick(row(0));
            mouseClick(button("Cancel"));
            compare(root.heard, []);
            verify(isGone());
        }
        function test_closedWindow_isACancel() {
            open(plain, { channelModel: three() });
            mouseClick(row(0));
            popup.close();
            compare(root.heard, []);
            verify(isGone());
        }
        function test_search_filtersTheCallersModel() {
            root.source = three();
            open(filtered, {});
            compare(list().count, 3);
            const field = Find.first(dialog().contentItem, "TextField_");
            mouseClick(field);
            keyClick("R");
            compare(item.searchText, "R");
            tryCompare(list(), "count", 1);
            compare(row(0).text, "Roof");
            mouseClick(row(0));
            keyClick(Qt.Key_Backspace);
            field.clear();
            tryCompare(list(), "count", 3);
            verify(row(2).checked);
            compare(dialog().selectedCamera, "uid-3");
        }
        function test_cameras_ofARealSite() {
            verify(site.login(1, 1, "north", 3));
            open(plain, { channelModel: channels });
            tryVerify(() => list().count === 3);
            mouseClick(row(1));
            const uid = dialog().selectedCamera;
            verify(uid.length > 0);
            compare(uid, channels.data(channels.index(1, 0), Qt.UserRole + 16));
            site.nameCameras(1, ["only"]);
            tryVerify(() => list().count === 1);
            mouseClick(button("OK"));
            compare(root.heard[0][0], uid);
        }
        function test_model_mayBeMissingOrForeign_data() {
            return [ { tag: "null", model: null, count: 0 }, { tag: "number", model: 2, count: 2 },
                     { tag: "texts", model: ["a", "b"], count: 2 } ];
        }
        function test_model_mayBeMissingOrForeign(data: var) {
            open(plain, { channelModel: data.model });
            compare(list().count, data.count);
            if (data.count > 0) {
                mouseClick(row(0));
                compare(dialog().selectedCamera, "");
            }
            mouseClick(button("OK"));
            compare(root.heard, []);
        }
        function test_names_arePlainText() {
            const name = "<b>Gate & Yard</b>" + "z".repeat(1000);
            open(plain, { channelModel: site.table(roles, [[name, "<i>North</i>", "u"]]) });
            const label = row(0).contentItem;
            compare(label.text, name);
            compare(label.textFormat, Text.PlainText);
            verify(label.truncated);
            const heading = Find.all(list(), "O_Label_").find(each => each.text === "<i>North</i>");
            compare(heading.textFormat, Text.PlainText);
        }
        function test_tenThousandRows_keepTheChoice_outOfSight() {
            const rows = [];
            for (let i = 0; i < 10000; ++i)
                rows.push(["Camera " + i, "North", "uid-" + i]);
            open(plain, { channelModel: site.table(roles, rows) });
            mouseClick(row(2));
            list().positionViewAtIndex(9000, ListView.Contain);
            list().forceLayout();
            for (let i = 8990; i < 9000; ++i)
                verify(!row(i)?.checked, i);
            verify(list().contentItem.children.length < 60);
            compare(dialog().selectedCamera, "uid-2");
            list().positionViewAtIndex(0, ListView.Contain);
            verify(row(2).checked);
            compare(dialog().selectedCamera, "uid-2");
        }
    }
    ChannelModel {
        id: channels
    }
}
