// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 500
    height: 400

    Component {
        id: plain

        O_Calendar {
            width: 420
            height: 360
            selectedDate: new Date(2024, 1, 14)
        }
    }
    SignalSpy {
        id: clicked

        signalName: "clicked"
    }
    SignalSpy {
        id: accepted

        signalName: "accepted"
    }
    TestCase {
        name: "O_Calendar"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function make(properties: var): var {
            const item = createTemporaryObject(plain, root, properties);
            waitForRendering(item);
            clicked.target = item;
            accepted.target = item;
            clicked.clear();
            accepted.clear();
            return item;
        }
        function text(date: date): string {
            return Qt.formatDate(date, "yyyy-MM-dd");
        }
        function cells(item: var): var {
            return Find.all(item, "").filter(each => each.available !== undefined);
        }
        function cellOf(item: var, year: int, month: int, day: int): var {
            return cells(item).find(each => each.day.getTime() === new Date(year, month, day).getTime());
        }
        function weekdays(item: var): var {
            return Find.all(item, "").filter(each => each.shortName !== undefined).map(each => each.text);
        }
        function heading(item: var): string {
            return Find.all(item, "QQuickText").find(each => / \d{4}$/.test(each.text)).text;
        }
        function test_month_isThatOfThePickedDay() {
            const item = make({ locale: Qt.locale("en_GB") });
            compare(item.visibleMonth, 1);
            compare(item.visibleYear, 2024);
            compare(heading(item), "February 2024");
            compare(cells(item).filter(each => each.selected).map(each => text(each.day)), ["2024-02-14"]);
            compare(cells(item).length, 42);
            item.selectedDate = new Date(2021, 11, 31);
            compare(heading(item), "December 2021");
        }
        function test_week_beginsAsTheLocaleHasIt_data() {
            return [
                { tag: "en_GB", first: "Mon", corner: "2024-01-29" },
                { tag: "en_US", first: "Sun", corner: "2024-01-28" },
                { tag: "ar_EG", first: "", corner: "2024-01-27" }
            ];
        }
        function test_week_beginsAsTheLocaleHasIt(data: var) {
            const item = make({ locale: Qt.locale(data.tag) });
            if (data.first !== "")
                compare(weekdays(item)[0], data.first);
            const days = cells(item).map(each => each.day).sort((a, b) => a - b);
            compare(text(days[0]), data.corner);
        }
        function test_click_picksTheDay() {
            const item = make();
            mouseClick(cellOf(item, 2024, 1, 29));
            compare(text(item.selectedDate), "2024-02-29");
            compare(clicked.count, 1);
            compare(text(clicked.signalArguments[0][0]), "2024-02-29");
            verify(item.activeFocus);
            // A day of the next month at the end of the grid turns the page.
            mouseClick(cellOf(item, 2024, 2, 2));
            compare(text(item.selectedDate), "2024-03-02");
            compare(item.visibleMonth, 2);
        }
        function test_buttons_turnThePage_andKeepTheDay() {
            const item = make({ locale: Qt.locale("en_GB"), selectedDate: new Date(2023, 11, 5) });
            const [back, forth] = Find.all(item, "").filter(each => ["\u2039", "\u203a"].includes(each.text) && each.clicked);
            mouseClick(forth);
            compare(heading(item), "January 2024");
            mouseClick(back);
            mouseClick(back);
            compare(heading(item), "November 2023");
            compare(text(item.selectedDate), "2023-12-05");
        }
        function test_keys_move_data() {
            return [
                { tag: "left", key: Qt.Key_Left, from: [2024, 0, 1], to: "2023-12-31" },
                { tag: "right", key: Qt.Key_Right, from: [2024, 1, 29], to: "2024-03-01" },
                { tag: "up", key: Qt.Key_Up, from: [2024, 2, 3], to: "2024-02-25" },
                { tag: "down", key: Qt.Key_Down, from: [2024, 11, 30], to: "2025-01-06" },
                { tag: "page up", key: Qt.Key_PageUp, from: [2024, 2, 31], to: "2024-02-29" },
                { tag: "page down", key: Qt.Key_PageDown, from: [2023, 0, 31], to: "2023-02-28" },
                { tag: "page down over the year", key: Qt.Key_PageDown, from: [2023, 11, 31], to: "2024-01-31" },
                { tag: "home", key: Qt.Key_Home, from: [2024, 1, 14], to: "2024-02-01" },
                { tag: "end", key: Qt.Key_End, from: [2024, 1, 14], to: "2024-02-29" }
            ];
        }
        function test_keys_move(data: var) {
            const item = make({ selectedDate: new Date(...data.from) });
            item.forceActiveFocus();
            keyClick(data.key);
            compare(text(item.selectedDate), data.to);
            compare(item.visibleMonth, item.selectedDate.getMonth());
        }
        function test_returnKey_andDoubleClick_areTheEnd() {
            const item = make();
            item.forceActiveFocus();
            keyClick(Qt.Key_Return);
            compare(accepted.count, 1);
            mouseDoubleClickSequence(cellOf(item, 2024, 1, 20));
            compare(accepted.count, 2);
            compare(text(item.selectedDate), "2024-02-20");
        }
        function test_addDays_crossesMonthsAndYears() {
            const item = make({ selectedDate: new Date(2023, 11, 31) });
            item.addDays(1);
            compare(text(item.selectedDate), "2024-01-01");
            item.addDays(-1);
            compare(text(item.selectedDate), "2023-12-31");
            item.selectedDate = new Date(2024, 1, 28);
            item.addDays(1);
            compare(text(item.selectedDate), "2024-02-29");
        }
        function test_today_comesFromTheTimeTools_whateverTheZone() {
            const item = make({ selectedDate: timeTools.dateNow() });
            compare(text(item.selectedDate), text(timeTools.dateNow()));
            compare(cells(item).filter(each => each.selected).length, 1);
            item.addDays(-1);
            item.addDays(1);
            compare(text(item.selectedDate), text(timeTools.dateNow()));
        }
        function test_days_areOutOfReach_afterToday() {
            const item = make({ selectedDate: timeTools.dateNow() });
            const today = cells(item).find(each => each.selected).day;
            for (const cell of cells(item))
                compare(cell.available, cell.day <= today, text(cell.day));
            item.forceActiveFocus();
            keyClick(Qt.Key_Right);
            keyClick(Qt.Key_Down);
            compare(text(item.selectedDate), text(today));
            const later = cells(item).find(each => !each.available);
            if (later) {
                compare(Find.first(later, "QQuickText").color, settings.textDisabledColor);
                mouseClick(later);
                compare(text(item.selectedDate), text(today));
                compare(clicked.count, 0);
            }
        }
        function test_days_areOutOfReach_beforeTheRecording() {
            const zone = site.timeZone("Asia/Tokyo");
            // 23:30 on the 9th in London is the 10th in Tokyo.
            const item = make({ trackBeginning: Date.UTC(2024, 1, 9, 23, 30), timeZone: zone });
            verify(!cellOf(item, 2024, 1, 9).available);
            verify(cellOf(item, 2024, 1, 10).available);
            mouseClick(cellOf(item, 2024, 1, 9));
            compare(text(item.selectedDate), "2024-02-14");
            item.forceActiveFocus();
            keyClick(Qt.Key_Home);
            compare(text(item.selectedDate), "2024-02-14");
            item.timeZone = site.timeZone("Europe/London");
            verify(cellOf(item, 2024, 1, 9).available);
            verify(!cellOf(item, 2024, 1, 8).available);
        }
        function test_foreignZone_greysNothingOfThePast() {
            const item = make({ trackBeginning: 0, timeZone: "nowhere" });
            verify(cellOf(item, 2024, 1, 1).available);
        }
        function test_date_thatIsNone_movesNothing() {
            const item = make();
            item.selectedDate = new Date(NaN);
            compare(item.visibleMonth, 1);
            item.forceActiveFocus();
            keyClick(Qt.Key_Right);
            keyClick(Qt.Key_Home);
            compare(item.visibleMonth, 1);
            compare(cells(item).filter(each => each.selected).length, 0);
        }
    }
}
