// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import orrinsdkqml

// The module's column of charts, with tools of the page laid over each of them.
Item {
    id: root

    required property StatisticsSource source
    readonly property int count: root.chartItems.length
    property list<Item> chartItems: []
    property Item column: null
    property Repeater repeater: null

    signal pictureRequested(chart: Item)

    // The statistics on show, each once, from top to bottom.
    function headings(): list<string> {
        const found = [];
        for (const chart of root.chartItems) {
            const heading = root.headingOf(chart);
            if (heading !== "" && !found.includes(heading))
                found.push(heading);
        }
        return found;
    }

    function headingOf(chart: Item): string {
        return (root.findItem(chart, each => each instanceof FilterCombo) as FilterCombo)?.currentText ?? "";
    }

    // The container has no way to take a chart away: its rows are removed here.
    function removeChart(chart: Item) {
        const index = root.chartItems.indexOf(chart);
        if (index >= 0 && root.count > 1 && root.repeater)
            root.repeater.model.remove(index);
    }

    function findItem(parent: Item, accepts: var): Item {
        for (const child of parent?.children ?? []) {
            if (accepts(child))
                return child;
            const inner = root.findItem(child, accepts);
            if (inner)
                return inner;
        }
        return null;
    }

    function followCharts() {
        const found = [];
        for (const child of root.column?.children ?? []) {
            if (child instanceof Chart)
                found.push(child);
        }
        found.sort((first, second) => first.y - second.y);
        for (const chart of found) {
            if (!root.chartItems.includes(chart))
                tools.createObject(chart, { chart: chart });
        }
        root.chartItems = found;
    }

    Component.onCompleted: {
        root.column = root.findItem(container, each => each instanceof Chart)?.parent ?? null;
        root.repeater = root.findItem(root.column, each => each instanceof Repeater) as Repeater;
        root.followCharts();
    }

    Connections {
        function onChildrenChanged() {
            Qt.callLater(root.followCharts);
        }

        target: root.column
    }
    ChartContainer {
        id: container
    }
    Component {
        id: tools

        ChartTools {
            source: root.source
            removable: root.count > 1
            heading: root.headingOf(chart)
            onRemoveRequested: root.removeChart(chart)
            onPictureRequested: root.pictureRequested(chart)
        }
    }
}
