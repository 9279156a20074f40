// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find
import "expandablerow.js" as Row

Item {
    id: root

    width: 700
    height: 600

    Loader {
        id: pages

        anchors.fill: parent
    }
    Component {
        id: page

        EventTable {
            loader: root.pageLoader
        }
    }

    property alias pageLoader: pages
    TestCase {
        name: "EventTable"
        when: windowShown

        readonly property var look: settings
        readonly property var labels: ["Id: ", "Source Id: ", "Source Name: ", "Text: ", "stateCode: ", "stateString: ", "timeCode: ",
                                       "timeString: ", "timeZoneOffset: ", "timeZoneName: ", "serverUniqueId: ", "serverName: ",
                                       "instanceNumber: ", "sortId: "]
        property var view

        function init() {
            failOnWarning(/.?/);
            pages.sourceComponent = page;
            view = Find.first(pages.item, "QQuickListView");
            waitForRendering(root);
            mouseMove(root, 699, 599);
        }
        function cleanup() {
            pages.sourceComponent = undefined;
        }
        function rowOf(index: int): var {
            view.forceLayout();
            return view.itemAtIndex(index);
        }
        function test_frame() {
            const title = Find.all(pages.item, "QQuickText").find(each => each.text === "Live Event Stream");
            compare(title.parent.height, settings.controlHeightHints + 4 * settings.controlMarginsHints);
            compare(title.parent.color, settings.highlightColor);
            compare(title.color, settings.textColor);
            const out = Find.first(pages.item, "ToolBarButton_");
            const bar = out.parent;
            compare(bar.height, settings.controlHeightHints + 2 * settings.controlMarginsHints);
            compare(bar.y + bar.height, 600);
            compare(out.x + out.width, 700);
            compare(out.iconSource, "ic_exit_to_app_black_24px");
            const line = bar.children.find(each => each.height === 1);
            compare([line.x, line.y, line.width], [15, -1, 670]);
            compare(view.y, title.parent.height);
            compare(view.y + view.height, bar.y);
        }
        function test_newestEvent_standsFirst() {
            site.report(3, 1, { cause: "Motion", serverName: "North", sourceName: "Gate" });
            site.report(3, 1, { cause: "Door", serverName: "North", sourceName: "Yard" });
            compare(Row.label(rowOf(0)).text, "Door on North-Yard at 2026-03-14 09:26:53");
            compare(Row.label(rowOf(1)).text, "Motion on North-Gate at 2026-03-14 09:26:53");
        }
        function test_cause_colours_labelAndIcon_atRest() {
            site.report(3, 1, { cause: "Alarm", color: "#aa1133" });
            const row = rowOf(0);
            compare(Row.label(row).textColor, "#aa1133");
            compare(Row.label(row).color, "#aa1133");
            compare(Row.icon(row).iconColor, "#aa1133");
            mouseMove(row, 30, 10);
            compare(Row.label(row).color, settings.textHighlightColor);
            mousePress(row, 30, 10);
            compare(Row.label(row).color, settings.textActiveColor);
            mouseRelease(row, 30, 10);
            compare(Row.icon(row).iconHighlightColor, "#008000");
        }
        function test_details_haveALineForEachField() {
            site.report(3, 1, { cause: "Motion", serverName: "North", sourceName: "Gate", text: "left lane" });
            const lines = Row.details(rowOf(0)).children[0].text.split("\n");
            compare(lines.map(line => line.slice(0, line.indexOf(": ") + 2)), labels);
            const values = lines.map(line => line.slice(line.indexOf(": ") + 2));
            compare(values[2], "Gate");
            compare(values[3], "left lane");
            compare(values[4], "-1");
            compare(values[6], String(Date.UTC(2026, 2, 14, 9, 26, 53)));
            compare(values[10], "3");
            compare(values[13], "-1");
        }
        function test_row_opensAndCloses_byClick() {
            site.report(3, 2, {});
            Row.checkOpening(this, view, rowOf(0), 8.25);
            Row.checkStates(this, rowOf(1));
        }
        function test_openRow_staysWithItsEvent_whenNewOnesCome() {
            site.report(3, 1, { cause: "Watched" });
            mouseClick(rowOf(0), 20, 10);
            site.report(3, 2, { cause: "Later" });
            waitForRendering(root);
            view.positionViewAtBeginning();
            view.forceLayout();
            verify(Row.label(rowOf(2)).text.startsWith("Watched"));
            verify(Row.details(rowOf(2)).visible);
            verify(!Row.details(rowOf(0)).visible);
        }
        function test_texts_arePlain_howeverLong() {
            const name = "<b>Gate</b> " + "y".repeat(1000);
            site.report(3, 1, { sourceName: name });
            Row.checkText(this, rowOf(0), name);
        }
        function test_fiveThousandEvents_areReused() {
            site.maximumEvents(5000);
            site.report(4, 5000, { cause: "Many" });
            compare(view.count, 5000);
            view.positionViewAtBeginning();
            view.forceLayout();
            Row.checkReuse(this, view, 5000, i => "-Camera " + (4999 - i) + " at");
            site.maximumEvents(500);
            site.report(4, 1, {});
            tryCompare(view, "count", 500);
        }
        function test_closing_leavesTheEventsRunning() {
            const before = liveEventModel.rowCount();
            mouseClick(Find.first(pages.item, "ToolBarButton_"));
            compare(pages.item, null);
            site.report(3, 1, { cause: "After" });
            verify(liveEventModel.rowCount() >= Math.min(before, 1));
            pages.sourceComponent = page;
            view = Find.first(pages.item, "QQuickListView");
            waitForRendering(root);
            verify(Row.label(rowOf(0)).text.startsWith("After"));
        }
    }
}
