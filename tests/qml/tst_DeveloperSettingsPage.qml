// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtTest
import orrinsdkqml
import "find.js" as Find
import "settingsmenu.js" as Menu

Item {
    id: root

    width: 800
    height: 600

    SettingsPage {
        id: page

        anchors.fill: parent
    }
    TestCase {
        name: "DeveloperSettingsPage"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            const stack = Menu.stack(page);
            stack.pop(null, StackView.Immediate);
            site.logOut();
        }
        function test_menu_hasNineRows_theAddedOnesInRed() {
            verify(devMode);
            compare(Menu.rows(page), ["General Settings", "Security", "Subtitles", "Layout", "Log Level", "System Info",
                                      "Server Group Details", "Server Details", "Channels Details"]);
            for (let i = 0; i < 9; ++i)
                compare(Menu.label(Menu.row(page, i)).textColor, i < 4 ? "#ffffff" : "#ff0000");
        }
        function test_details_open_data() {
            return [
                { tag: "Log Level", row: 4, type: "LogSettingsPage" },
                { tag: "System Info", row: 5, type: "InfoSettingsPage" },
                { tag: "Server Group Details", row: 6, type: "ServerGroupView", count: 1 },
                { tag: "Server Details", row: 7, type: "ServerView", count: 1 },
                { tag: "Channels Details", row: 8, type: "ChannelView", count: 3 }
            ];
        }
        function test_details_open(data: var) {
            verify(site.login(1, 1, "north", 3));
            mouseClick(Menu.row(page, data.row), 30, 10);
            const stack = Menu.stack(page);
            compare(Menu.title(page), data.tag);
            compare(stack.depth, 2);
            verify(String(stack.currentItem).startsWith(data.type), stack.currentItem);
            tryCompare(stack, "busy", false);
            compare([stack.currentItem.width, stack.currentItem.height], [stack.width, stack.height]);
            if (data.count) {
                tryCompare(stack.currentItem, "count", data.count);
                mouseClick(stack.currentItem.itemAtIndex(0), 20, 10);
                verify(stack.currentItem.itemAtIndex(0).height > 60);
            }
            mouseClick(Menu.button(page, "arrow_left"));
            tryCompare(stack, "busy", false);
            compare(Menu.title(page), "Settings Page");
        }
    }
}
