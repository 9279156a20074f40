// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Dialogs
import QtQuick.Layouts
import orrinsdkqml

// The statistics of one server as charts under each other, over a running or a fixed window of time.
Item {
    id: root

    objectName: "statistics"

    // The server to begin with; without one, the first of the list.
    property int serverGroupId: -1
    property int serverId: -1
    // The charts look these up by name, here.
    readonly property var statsModel: source.samples
    readonly property var headingsModel: source.headings
    readonly property alias ready: source.ready
    readonly property alias source: source
    readonly property int chartCount: charts.item ? (charts.item as StatisticsCharts).count : 0

    function showServer(group: int, server: int) {
        root.serverGroupId = group;
        root.serverId = server;
        // Without headings in between, so that the charts of the other server begin afresh.
        source.setServer(group, server);
    }

    function showFirstServer() {
        const server = servers.get(0);
        if (root.serverId < 0 && server)
            root.showServer(server.serverGroupId, server.serverId);
    }

    function saveTable(file: url) {
        const headings = (charts.item as StatisticsCharts)?.headings() ?? [];
        root.tell(source.saveTable(file, headings), file);
    }

    function savePicture(chart: Item, file: url) {
        if (!chart.grabToImage(result => root.tell(source.savePicture(file, result.image), file)))
            root.tell(qsTr("There is no picture."), file);
    }

    function tell(error: string, file: url) {
        notice.error = error !== "";
        notice.text = error !== "" ? qsTr("Not saved: %1").arg(error) : qsTr("Saved: %1").arg(String(file).replace(/^.*\//, ""));
        noticeTimer.restart();
    }

    Component.onCompleted: {
        source.setRunningSpan(3600000);
        if (root.serverId >= 0)
            root.showServer(root.serverGroupId, root.serverId);
        else
            root.showFirstServer();
    }

    StatisticsSource {
        id: source
    }
    ServerModel {
        id: servers

        onModelReset: root.showFirstServer()
    }
    // How many headings there are, for a binding.
    Instantiator {
        id: headingCount

        model: source.headings
        delegate: QtObject {}
    }
    Rectangle {
        anchors.fill: parent
        color: ViewerStyle.background
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        StatisticsBar {
            Layout.fillWidth: true
            servers: servers
            source: source
            serverGroupId: root.serverGroupId
            serverId: root.serverId
            onServerChosen: (group, server) => root.showServer(group, server)
            onTableRequested: tableDialog.open()
        }
        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            CentredNotice {
                anchors.fill: parent
                visible: !charts.active
                text: root.serverId < 0 ? qsTr("There is no server.") : source.statusText
            }
            Loader {
                id: charts

                anchors.fill: parent
                active: headingCount.count > 0
                sourceComponent: StatisticsCharts {
                    source: source
                    onPictureRequested: chart => {
                        pictureDialog.chart = chart;
                        pictureDialog.open();
                    }
                }
            }
            Rectangle {
                anchors.bottom: parent.bottom
                anchors.horizontalCenter: parent.horizontalCenter
                anchors.bottomMargin: ViewerStyle.margin
                width: notice.implicitWidth + 2 * ViewerStyle.margin
                height: ViewerStyle.controlHeight
                radius: ViewerStyle.radius
                color: ViewerStyle.raised
                border.color: notice.error ? ViewerStyle.danger : ViewerStyle.outline
                visible: noticeTimer.running

                Text {
                    id: notice

                    property bool error: false

                    anchors.centerIn: parent
                    color: notice.error ? ViewerStyle.danger : ViewerStyle.text
                    font.pixelSize: ViewerStyle.normalText
                }
                Timer {
                    id: noticeTimer

                    interval: 5000
                }
            }
        }
    }
    FileDialog {
        id: tableDialog

        title: qsTr("Save the samples that are shown")
        fileMode: FileDialog.SaveFile
        defaultSuffix: "csv"
        nameFilters: [qsTr("Tables (*.csv)")]
        onAccepted: root.saveTable(selectedFile)
    }
    FileDialog {
        id: pictureDialog

        property Item chart: null

        title: qsTr("Save the chart")
        fileMode: FileDialog.SaveFile
        defaultSuffix: "png"
        nameFilters: [qsTr("Pictures (*.png)")]
        onAccepted: {
            if (pictureDialog.chart)
                root.savePicture(pictureDialog.chart, selectedFile);
        }
    }
}
