// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtCharts

// What the page lays over a chart: the value under the pointer, wherever it is, and the buttons of the chart.
Item {
    id: root

    required property Item chart
    required property StatisticsSource source
    property string heading
    property bool removable: false
    readonly property alias reading: reading.text

    signal removeRequested()
    signal pictureRequested()

    function chartViewBelow(parent: Item): ChartView {
        for (const child of parent?.children ?? []) {
            if (child instanceof ChartView)
                return child;
            const inner = root.chartViewBelow(child);
            if (inner)
                return inner;
        }
        return null;
    }

    // The sample that is nearest to a place in the chart.
    function readAt(x: real, y: real) {
        const view = root.chartViewBelow(root.chart);
        const plot = view ? view.plotArea : Qt.rect(0, 0, 0, 0);
        const isInside = view && view.visible && x >= plot.x && x <= plot.x + plot.width && y >= plot.y && y <= plot.y + plot.height;
        const begin = root.source.from.getTime();
        const span = root.source.to.getTime() - begin;
        const sample = isInside ? root.source.nearest(root.heading, begin + (x - plot.x) / plot.width * span) : ({});
        marker.visible = sample.time !== undefined;
        if (!marker.visible)
            return;
        marker.x = Math.max(plot.x, Math.min(plot.x + plot.width, plot.x + (sample.time - begin) / span * plot.width));
        marker.y = plot.y;
        marker.height = plot.height;
        reading.text = new Date(sample.time).toLocaleString(Qt.locale(), Locale.ShortFormat) + "   " + sample.text;
    }

    anchors.fill: parent
    z: 10

    HoverHandler {
        id: hover

        onPointChanged: root.readAt(hover.point.position.x, hover.point.position.y)
        onHoveredChanged: {
            if (!hover.hovered)
                marker.visible = false;
        }
    }
    Rectangle {
        id: marker

        width: 1
        color: "#c8d2e0"
        visible: false

        Rectangle {
            readonly property bool leftSide: marker.x > root.width / 2

            x: leftSide ? -width - 6 : 6
            y: 6
            width: reading.implicitWidth + 16
            height: reading.implicitHeight + 10
            radius: ViewerStyle.radius
            color: ViewerStyle.raised
            border.color: ViewerStyle.outline

            Text {
                id: reading

                anchors.centerIn: parent
                color: ViewerStyle.text
                font.pixelSize: ViewerStyle.smallText
            }
        }
    }
    Row {
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 12
        spacing: 4

        ToolButton {
            text: qsTr("Save picture")
            font.pixelSize: ViewerStyle.smallText
            visible: root.source.ready
            onClicked: root.pictureRequested()
        }
        ToolButton {
            text: "✕"
            visible: root.removable
            Accessible.name: qsTr("Remove this chart")
            ToolTip.text: Accessible.name
            ToolTip.visible: hovered
            ToolTip.delay: 600
            onClicked: root.removeRequested()
        }
    }
}
