// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 800
    height: 600

    property string heard

    Loader {
        id: loader

        anchors.fill: parent
    }
    Component {
        id: page

        DatetimeSelection {
            loader: root.pageLoader
            onDatetimeSelected: root.heard = [Qt.formatDate(selectedDate, "yyyy-MM-dd"), hour, minute, second, loader.item !== null].join(" ")
        }
    }

    property alias pageLoader: loader
    TestCase {
        name: "DatetimeSelection"
        when: windowShown

        property var item
        property var calendar

        function init() {
            failOnWarning(/.?/);
            loader.sourceComponent = page;
            item = loader.item;
            calendar = Find.first(item, "O_Calendar_");
            root.heard = "";
            waitForRendering(root);
        }
        function cleanup() {
            loader.sourceComponent = undefined;
        }
        function button(source: string): var {
            return Find.all(item, "ToolBarButton_").find(each => each.iconSource === source);
        }
        function goButton(): var {
            return Find.all(item, "ToolBarButton_").find(each => each.text === "Go");
        }
        function day(): string {
            return Qt.formatDate(item.selectedDate, "yyyy-MM-dd");
        }
        function spin(which: int): var {
            return Find.all(item, "SpinBox")[which];
        }
        function test_start_isToday() {
            compare(item.year, 2000);
            compare(item.month, 1);
            compare(item.day, 1);
            compare(Qt.formatDate(item.selectedDate), Qt.formatDate(timeTools.dateNow()));
            compare(item.second, 0);
            const label = Find.all(item, "O_Label_").find(each => each.text.startsWith("Selected date"));
            compare(label.text, "Selected date: " + Qt.formatDate(timeTools.dateNow()));
        }
        function test_frame() {
            const title = Find.all(item, "QQuickText").find(each => each.text === "Time jump");
            compare(title.parent.height, settings.controlHeightHints + 4 * settings.controlMarginsHints);
            compare(title.parent.color, settings.highlightColor);
            const out = Find.all(item, "ToolBarButton_").find(each => each.iconSource === "ic_exit_to_app_black_24px"
                                                                      && each.parent.y > 300 && each.visible);
            compare(out.parent.height, settings.controlHeightHints + 2 * settings.controlMarginsHints);
            compare(out.width, out.parent.height);
            const picker = Find.first(item, "TimePicker_");
            compare(picker.width, 5 * settings.controlHeightHints);
            const column = picker.parent;
            compare(column.y, title.parent.height + 600 / 16);
            compare(column.width, Math.min(30 * settings.controlHeightHints, 800));
            compare(column.spacing, 4 * settings.controlMarginsHints);
            compare(goButton().width, 4 * settings.controlHeightHints);
        }
        function test_calendar_opens_picks_andHides() {
            const area = calendar.parent;
            verify(!area.visible);
            mouseClick(button("settings"));
            verify(area.visible);
            compare(area.width, 800);
            compare(area.height, 600);
            verify(calendar.activeFocus);
            item.selectedDate = new Date(2024, 1, 14);
            keyClick(Qt.Key_Right);
            compare(day(), "2024-02-15");
            const hide = Find.all(area, "ToolBarButton_")[0];
            compare(calendar.height, 600 - hide.height);
            mouseClick(hide);
            verify(!area.visible);
            mouseClick(button("settings"));
            keyClick(Qt.Key_Return);
            verify(!area.visible);
            compare(day(), "2024-02-15");
        }
        function test_calendar_keepsTheMouseFromThePage() {
            mouseClick(button("settings"));
            const before = item.hour;
            const picker = Find.first(item, "TimePicker_");
            const plus = picker.mapToItem(root, picker.width - 5, 10);
            mouseClick(root, plus.x, plus.y);
            compare(item.hour, before);
        }
        function test_hours_carryIntoTheDate_data() {
            return [
                { tag: "month's end", from: [2024, 1, 29], up: true, to: "2024-03-01" },
                { tag: "year's end", from: [2023, 11, 31], up: true, to: "2024-01-01" },
                { tag: "first of January", from: [2024, 0, 1], up: false, to: "2023-12-31" },
                { tag: "first of March", from: [2023, 2, 1], up: false, to: "2023-02-28" }
            ];
        }
        function test_hours_carryIntoTheDate(data: var) {
            item.selectedDate = new Date(...data.from);
            item.hour = data.up ? 23 : 0;
            const box = spin(0);
            mouseClick(box, data.up ? box.width - 5 : 5, 10);
            compare(item.hour, data.up ? 0 : 23);
            compare(day(), data.to);
        }
        function test_seconds_carryAllTheWay() {
            item.selectedDate = new Date(2023, 11, 31);
            [item.hour, item.minute, item.second] = [23, 59, 59];
            mouseClick(spin(2));
            keyClick(Qt.Key_Up);
            compare([day(), item.hour, item.minute, item.second], ["2024-01-01", 0, 0, 0]);
            keyClick(Qt.Key_Down);
            compare([day(), item.hour, item.minute, item.second], ["2023-12-31", 23, 59, 59]);
        }
        function test_go_tells_andThenCloses() {
            item.selectedDate = new Date(2024, 1, 14);
            [item.hour, item.minute, item.second] = [9, 5, 7];
            mouseClick(goButton());
            compare(root.heard, "2024-02-14 9 5 7 true");
            compare(loader.item, null);
        }
        function test_close_tellsNothing() {
            const out = Find.all(item, "ToolBarButton_").find(each => each.iconSource === "ic_exit_to_app_black_24px" && each.visible);
            mouseClick(out);
            compare(root.heard, "");
            compare(loader.item, null);
        }
        function test_narrowPage_holdsTheColumn() {
            root.width = 390;
            compare(Find.first(item, "TimePicker_").parent.width, 390);
            root.width = 800;
        }
    }
}
