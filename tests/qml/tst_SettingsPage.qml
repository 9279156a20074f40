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

    Loader {
        id: pages

        anchors.fill: parent
    }
    Component {
        id: page

        SettingsPage {
            loader: root.pageLoader
        }
    }

    property alias pageLoader: pages
    TestCase {
        name: "SettingsPage"
        when: windowShown

        property var item

        function init() {
            failOnWarning(/.?/);
            pages.sourceComponent = page;
            item = pages.item;
            waitForRendering(root);
            mouseMove(root, 400, 5);
        }
        function cleanup() {
            pages.sourceComponent = undefined;
        }
        function test_menu_hasFourRows_forUsers() {
            compare(Menu.title(item), "Settings Page");
            compare(Menu.rows(item), ["General Settings", "Security", "Subtitles", "Layout"]);
            for (let i = 0; i < 4; ++i)
                compare(Menu.label(Menu.row(item, i)).textColor, "#ffffff");
        }
        function test_frame() {
            const stack = Menu.stack(item);
            const margins = settings.controlMarginsHints;
            compare([stack.x, stack.width], [margins, 800 - 2 * margins]);
            compare(stack.y, settings.controlHeightHints + 5 * margins);
            const out = Menu.button(item, "ic_exit_to_app_black_24px");
            compare(out.parent.y, stack.y + stack.height + margins);
            compare(out.width, out.parent.height);
            const row = Menu.row(item, 0);
            compare(row.height, settings.controlHeightHints + 1);
            compare(row.width, stack.width);
            compare(row.activeColor, settings.highlightColor);
            const icon = Find.first(row, "ActiveIcon_");
            compare([icon.source, icon.width, icon.x + icon.width], ["arrow_right", settings.controlHeightHints, row.width]);
            compare(Menu.label(row).x, margins);
        }
        function test_row_followsThePointer() {
            const row = Menu.row(item, 1);
            const states = () => [row.state, Menu.label(row).state, Find.first(row, "ActiveIcon_").state].join();
            compare(states(), "normal,normal,normal");
            mouseMove(row, 20, 10);
            compare(states(), "highlight,highlight,highlight");
            mousePress(row, 20, 10);
            compare(states(), "active,active,active");
            mouseMove(root, 400, 5);
            mouseRelease(root, 400, 5);
            compare(Menu.stack(item).depth, 1);
        }
        function test_row_opensItsPage_andBackReturns_data() {
            return [ { tag: "General Settings", row: 0, type: "GeneralSettingsPage" }, { tag: "Security", row: 1, type: "SecuritySettingsPage" },
                     { tag: "Subtitles", row: 2, type: "SubtitlesSettingsPage" }, { tag: "Layout", row: 3, type: "LayoutSettingsPage" } ];
        }
        function test_row_opensItsPage_andBackReturns(data: var) {
            const stack = Menu.stack(item);
            const back = Menu.button(item, "arrow_left");
            compare([back.opacity, back.width], [0, 0]);
            mouseClick(Menu.row(item, data.row), 30, 10);
            compare(Menu.title(item), data.tag);
            compare(stack.depth, 2);
            verify(String(stack.currentItem).startsWith(data.type), stack.currentItem);
            tryCompare(stack, "busy", false);
            compare([stack.currentItem.width, stack.currentItem.height], [stack.width, stack.height]);
            compare(back.opacity, 1);
            compare(back.width, back.parent.height);
            mouseClick(back);
            tryCompare(stack, "busy", false);
            compare(stack.depth, 1);
            compare(Menu.title(item), "Settings Page");
            compare(back.width, 0);
        }
        function test_keyboard_opensARow() {
            Menu.menu(item).forceActiveFocus();
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Return);
            compare(Menu.title(item), "Security");
        }
        function test_close_leavesFromAnyDepth() {
            mouseClick(Menu.row(item, 2), 30, 10);
            tryCompare(Menu.stack(item), "busy", false);
            mouseClick(Menu.button(item, "ic_exit_to_app_black_24px"));
            compare(pages.item, null);
        }
        function test_setting_isKept_overPages() {
            const start = settings.subtitlesTime;
            mouseClick(Menu.row(item, 2), 30, 10);
            const stack = Menu.stack(item);
            tryCompare(stack, "busy", false);
            const boxes = Find.all(stack.currentItem, "O_CheckBox_");
            mouseClick(boxes[2]);
            compare(settings.subtitlesTime, !start);
            mouseClick(Menu.button(item, "arrow_left"));
            tryCompare(stack, "busy", false);
            mouseClick(Menu.row(item, 2), 30, 10);
            tryCompare(stack, "busy", false);
            compare(Find.all(stack.currentItem, "O_CheckBox_")[2].checked, !start);
            mouseClick(Find.all(stack.currentItem, "O_CheckBox_")[2]);
            compare(settings.subtitlesTime, start);
        }
    }
}
