// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import QtCharts
import QtQml.Models
import orrinsdkqml

// One statistic over time, with its own chooser. The host publishes `statsModel` and `headingsModel`.
Item {
    id: root

    property int defaultMargins: 5
    property int defaultSpacing: 3

    // The number of a statistic's type, as ModelProxy tells it, chooses the axis.
    function setYaxisType(type: int) {
        switch (type) {
        case 2:
            axisLoader.sourceComponent = systemStatusAxis;
            break;
        case 3:
            axisLoader.sourceComponent = diskStatusAxis;
            break;
        case 4:
            axisLoader.sourceComponent = cameraStatusAxis;
            break;
        default:
            axisLoader.sourceComponent = valueAxis;
        }
    }

    function updateYAxisFromLoader() {
        if (axisLoader.status === Loader.Ready)
            line.axisY = axisLoader.item as AbstractAxis;
    }

    function showStatistic(heading: string) {
        const column = proxy.columnForHeading(heading);
        proxy.updateRangeInfo(heading);
        // The same column may mean other numbers by now: the mapper reads anew only when something of its own changes.
        if (modelMapper.yColumn === column) {
            modelMapper.rowCount = 1;
            modelMapper.rowCount = -1;
        }
        modelMapper.yColumn = column;
        root.setYaxisType(proxy.statsType());
    }

    // The chart narrows the axis to its data when a series is added: the span is what counts.
    function keepTimeAxis() {
        if (axisX.min.getTime() !== proxy.from.getTime())
            axisX.min = Qt.binding(() => proxy.from);
        if (axisX.max.getTime() !== proxy.to.getTime())
            axisX.max = Qt.binding(() => proxy.to);
    }

    function tooltipText(x: real, y: real): string {
        const moment = helper.dateTimeString(x);
        const status = qsTr("%1\nStatus: %2");
        switch (proxy.statsType()) {
        case 2:
            return status.arg(moment).arg(helper.valueToSystemStatusText(y));
        case 3:
            return status.arg(moment).arg(helper.valueToDiskStatusText(y));
        case 4:
            return status.arg(moment).arg(helper.valueToCameraStatusText(y));
        default:
            return qsTr("%1\nValue: %2").arg(moment).arg(y);
        }
    }

    function showTooltip(point: point) {
        const pos = chart.mapToPosition(point, line);
        const val = chart.mapToValue(pos, line);
        tooltip.text = root.tooltipText(val.x, val.y);
        const tooltipRight = pos.x + tooltip.width;
        const chartViewWidth = chart.width - chart.margins.right;
        const offset = tooltipRight > chartViewWidth ? tooltipRight - chartViewWidth : 0;
        tooltip.x = pos.x - offset;
        tooltip.y = pos.y - tooltip.height / 2;
        tooltip.timeout = 2500;
        tooltip.visible = true;
    }

    StatsHelper {
        id: helper
    }
    HeadingsModelProxy {
        id: headingsProxy

        sourceModel: headingsModel // qmllint disable unqualified
        matchString: statCombo.filterText
    }
    ModelProxy {
        id: proxy

        sourceModel: statsModel // qmllint disable unqualified
        // The type of the status is the contract's, which QML does not know by name.
        onStatusChanged: stackLayout.currentIndex = proxy.status === 2 ? 1 : 0 // qmllint disable signal-handler-parameters unresolved-type
    }
    Loader {
        id: axisLoader

        sourceComponent: valueAxis
        onStatusChanged: root.updateYAxisFromLoader()
        onLoaded: root.updateYAxisFromLoader()
    }
    ObjectModel {
        id: axisModel

        Component {
            id: valueAxis

            ValueAxis {
                min: proxy.lowerBound
                max: proxy.upperBound
                titleText: "<font color='white'>" + proxy.statUnits + "</font>"
                tickCount: 5
                minorTickCount: 5
                minorGridLineColor: "#343845"
                gridLineColor: "#444957"
                labelsColor: "white"
            }
        }
        Component {
            id: systemStatusAxis

            CategoryAxis {
                min: 0.0
                max: 9.0
                gridLineColor: "#444957"
                labelsColor: "white"

                CategoryRange { label: qsTr("Restart"); endValue: 2.0 }
                CategoryRange { label: qsTr("Not recording"); endValue: 3.0 }
                CategoryRange { label: qsTr("Recording"); endValue: 4.0 }
                CategoryRange { label: qsTr("Fault"); endValue: 5.0 }
                CategoryRange { label: qsTr("Warning"); endValue: 6.0 }
                CategoryRange { label: qsTr("Standby"); endValue: 7.0 }
                CategoryRange { label: qsTr("Standby2"); endValue: 8.0 }
                CategoryRange { label: qsTr("Unknown"); endValue: 9.0 }
            }
        }
        Component {
            id: diskStatusAxis

            CategoryAxis {
                min: 0
                max: 11.0
                gridLineColor: "#444957"
                labelsColor: "white"

                CategoryRange { label: qsTr("Good"); endValue: 1.0 }
                CategoryRange { label: qsTr("Read-only"); endValue: 2.0 }
                CategoryRange { label: qsTr("Rebuilding"); endValue: 3.0 }
                CategoryRange { label: qsTr("Missing"); endValue: 4.0 }
                CategoryRange { label: qsTr("Failed"); endValue: 6.0 }
                CategoryRange { label: qsTr("Foreign"); endValue: 7.0 }
                CategoryRange { label: qsTr("Degraded"); endValue: 8.0 }
                CategoryRange { label: qsTr("Formatted"); endValue: 9.0 }
                CategoryRange { label: qsTr("Not formatted"); endValue: 10.0 }
                CategoryRange { label: qsTr("Unknown"); endValue: 11.0 }
            }
        }
        Component {
            id: cameraStatusAxis

            CategoryAxis {
                min: 0
                max: 18.0
                gridLineColor: "#444957"
                labelsColor: "white"

                CategoryRange { label: qsTr("None"); endValue: 1.0 }
                CategoryRange { label: qsTr("Recording"); endValue: 2.0 }
                CategoryRange { label: qsTr("Bad"); endValue: 3.0 }
                CategoryRange { label: qsTr("Not Permitted"); endValue: 4.0 }
                CategoryRange { label: qsTr("Video Loss"); endValue: 6.0 }
                CategoryRange { label: qsTr("Initializing"); endValue: 7.0 }
                CategoryRange { label: qsTr("Unauthorized"); endValue: 8.0 }
                CategoryRange { label: qsTr("Not connected"); endValue: 9.0 }
                CategoryRange { label: qsTr("Stream fail"); endValue: 10.0 }
                CategoryRange { label: qsTr("Awaiting restart"); endValue: 11.0 }
                CategoryRange { label: qsTr("Check log"); endValue: 12.0 }
                CategoryRange { label: qsTr("Net problem"); endValue: 13.0 }
                CategoryRange { label: qsTr("Configuring"); endValue: 14.0 }
                CategoryRange { label: qsTr("Connecting"); endValue: 15.0 }
                CategoryRange { label: qsTr("Connected/Starting"); endValue: 16.0 }
                CategoryRange { label: qsTr("No Stream"); endValue: 17.0 }
                CategoryRange { label: qsTr("Unknown"); endValue: 18.0 }
            }
        }
    }
    StackLayout {
        id: stackLayout

        anchors.fill: parent
        currentIndex: 0

        Rectangle {
            id: messageFrame

            anchors.topMargin: 4 // qmllint disable Quick.layout-positioning
            color: "#2b2e36"
            border.color: "gray"
            border.width: 1

            Text {
                anchors.fill: parent
                text: proxy.getStatusDescription(proxy.status) // qmllint disable unresolved-type
                color: "white"
                font.pointSize: 30
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }
        Rectangle {
            id: chartFrame

            anchors.topMargin: 4 // qmllint disable Quick.layout-positioning
            color: "#2b2e36"
            border.color: "gray"
            border.width: 1

            ToolTip {
                id: tooltip

                contentItem: Text {
                    color: "white"
                    text: tooltip.text
                }
                background: Rectangle {
                    color: "#444957"
                    border.color: "gray"
                }
            }
            ChartView {
                id: chart

                anchors.fill: parent
                title: proxy.statDescription
                titleColor: "white"
                antialiasing: true
                backgroundColor: "#343845"

                DateTimeAxis {
                    id: axisX

                    min: proxy.from
                    max: proxy.to
                    format: "yyyy-MM-dd hh:mm"
                    onMinChanged: Qt.callLater(root.keepTimeAxis)
                    onMaxChanged: Qt.callLater(root.keepTimeAxis)
                    color: "white"
                    labelsColor: "white"
                }
                LineSeries {
                    id: line

                    axisX: axisX
                    axisY: axisLoader.item as AbstractAxis
                    useOpenGL: true
                    onHovered: point => root.showTooltip(point)
                }
            }
            VXYModelMapper {
                id: modelMapper

                model: proxy
                series: line
                firstRow: 0
                xColumn: 0
                yColumn: 2
            }
            FilterCombo {
                id: statCombo

                x: chart.x + 32
                y: chart.y + 20
                z: chart.z + 1
                model: headingsProxy
                onStatModelChanged: heading => root.showStatistic(heading)
            }
        }
    }
}
