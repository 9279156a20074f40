// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts
import orrinsdkqml

// The head of the statistics page: the server, the window of time, and the file.
Rectangle {
    id: root

    required property ServerModel servers
    required property StatisticsSource source
    property int serverGroupId: -1
    property int serverId: -1
    // Milliseconds of the preset that is shown, 0 for a fixed window.
    property real preset: 3600000
    readonly property var presets: [
        { name: qsTr("Hour"), span: 3600000 },
        { name: qsTr("Day"), span: 24 * 3600000 },
        { name: qsTr("Week"), span: 7 * 24 * 3600000 },
        { name: qsTr("Month"), span: 31 * 24 * 3600000 }
    ]

    signal serverChosen(int serverGroupId, int serverId)
    signal tableRequested()

    function showPreset(span: real) {
        root.preset = span;
        root.source.setRunningSpan(span);
    }

    function showWindow() {
        if (root.source.setSpan(window.from, window.to)) {
            root.preset = 0;
            windowError.visible = false;
        } else {
            windowError.visible = true;
        }
    }

    implicitHeight: rows.implicitHeight + ViewerStyle.gap
    color: ViewerStyle.surface

    ColumnLayout {
        id: rows

        anchors.left: parent.left
        anchors.right: parent.right
        spacing: 0

        Flow {
            Layout.fillWidth: true
            Layout.leftMargin: 16
            Layout.rightMargin: ViewerStyle.gap
            Layout.topMargin: 2
            spacing: ViewerStyle.gap

            Text {
                height: ViewerStyle.controlHeight
                text: qsTr("Statistics")
                color: ViewerStyle.text
                font.pixelSize: 20
                verticalAlignment: Text.AlignVCenter
            }
            ComboBox {
                id: serverCombo

                width: 200
                height: ViewerStyle.controlHeight
                model: root.servers
                textRole: "name"
                visible: count > 1
                Accessible.name: qsTr("Server")
                onActivated: index => {
                    const server = root.servers.get(index);
                    if (server)
                        root.serverChosen(server.serverGroupId, server.serverId);
                }
            }
            Repeater {
                model: root.presets

                Button {
                    required property var modelData

                    checkable: true
                    checked: root.preset === modelData.span
                    flat: !checked
                    text: modelData.name
                    onClicked: root.showPreset(modelData.span)
                }
            }
            Button {
                checkable: true
                checked: root.preset === 0
                flat: !checked
                text: qsTr("Window…")
                onClicked: {
                    checked = Qt.binding(() => root.preset === 0);
                    windowRow.visible = !windowRow.visible;
                }
            }
            Button {
                flat: true
                enabled: root.source.ready
                text: qsTr("Save as CSV")
                onClicked: root.tableRequested()
            }
            Text {
                height: ViewerStyle.controlHeight
                visible: !root.source.ready
                text: root.source.statusText
                color: ViewerStyle.dimText
                font.pixelSize: ViewerStyle.smallText
                verticalAlignment: Text.AlignVCenter
            }
        }
        RowLayout {
            id: windowRow

            Layout.fillWidth: true
            Layout.leftMargin: 16
            Layout.rightMargin: ViewerStyle.gap
            visible: false

            // The texts of the selection are dark: it gets a light ground.
            Rectangle {
                Layout.fillWidth: true
                Layout.preferredHeight: 64
                Material.theme: Material.Light
                color: "#d5dae1"
                radius: ViewerStyle.radius

                Flickable {
                    anchors.fill: parent
                    clip: true
                    contentWidth: 1100
                    boundsBehavior: Flickable.StopAtBounds

                    DateTimeSelection {
                        id: window

                        width: 1100
                        height: 64
                    }
                }
            }
            Text {
                text: qsTr("UTC")
                color: ViewerStyle.dimText
                font.pixelSize: ViewerStyle.smallText
            }
            Button {
                highlighted: true
                text: qsTr("Show")
                onClicked: root.showWindow()
            }
        }
        Text {
            id: windowError

            Layout.leftMargin: 16
            visible: false
            text: qsTr("There is no such day or hour.")
            color: ViewerStyle.danger
            font.pixelSize: ViewerStyle.smallText
        }
    }
}
