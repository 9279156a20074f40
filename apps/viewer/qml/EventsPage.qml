// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtCore
import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts
import OrrinViewer.Host
import orrinsdkqml

// The live events, newest first, each in the colour of its cause. A click asks to see the moment. Those that a rule names stand out.
Item {
    id: root

    objectName: "events"

    readonly property bool wide: root.width >= 900
    property bool ruleShown: root.wide
    readonly property alias count: list.count

    // The server by its ids, -1 when it is no longer there; the channel is -1 when the source is none.
    signal openAt(int serverGroupId, int serverId, int channelId, date time)

    function isMarked(cause: string, serverId: int, channelId: int): bool {
        return rule.active && (rule.cause === "" || rule.cause === cause) && (rule.device === 0 || rule.device === serverId)
                && (rule.subDevice === 0 || rule.subDevice === channelId);
    }
    function open(row: var) {
        const address = causes.address(row.serverUniqueId);
        root.openAt(address.serverGroupId ?? -1, address.serverId ?? -1, row.channelId, row.time);
    }

    // Day and time of the server's clock, the day as the user writes days.
    function momentOf(text: string): list<string> {
        const [day, time] = text.split(" ");
        const [year, month, date] = day.split("-").map(Number);
        return time === undefined ? [] : [new Date(year, month - 1, date, 12).toLocaleDateString(Qt.locale(), Locale.ShortFormat), time];
    }

    onWideChanged: root.ruleShown = root.wide

    Settings {
        id: rule

        category: "EventRule"

        property bool active: false
        property string cause: ""
        property int device: 0
        property int subDevice: 0
    }
    ServerCauses {
        id: causes

        onServersChanged: servers.refresh()
    }
    Rectangle {
        anchors.fill: parent
        color: ViewerStyle.background
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 52
            color: ViewerStyle.surface

            RowLayout {
                anchors.fill: parent
                anchors.leftMargin: 16
                anchors.rightMargin: 8
                spacing: 12

                Text {
                    color: ViewerStyle.text
                    font.pixelSize: 20
                    text: qsTr("Events")
                }
                Text {
                    Layout.fillWidth: true
                    color: ViewerStyle.dimText
                    elide: Text.ElideRight
                    font.pixelSize: ViewerStyle.smallText
                    text: qsTr("%n events", "", list.count)
                }
                Button {
                    checkable: true
                    checked: root.ruleShown
                    flat: true
                    text: qsTr("Rule")
                    visible: !root.wide
                    onToggled: root.ruleShown = checked
                }
            }
        }
        GridLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            columns: root.wide ? 2 : 1
            columnSpacing: 0
            rowSpacing: 0

            Rectangle {
                Layout.fillWidth: !root.wide
                Layout.fillHeight: root.wide
                Layout.preferredWidth: root.wide ? 300 : -1
                Layout.preferredHeight: root.wide ? -1 : form.implicitHeight + 32
                color: ViewerStyle.surface
                visible: root.ruleShown

                ColumnLayout {
                    id: form

                    anchors.left: parent.left
                    anchors.right: parent.right
                    anchors.top: parent.top
                    anchors.margins: 16
                    spacing: 12

                    Switch {
                        Layout.fillWidth: true
                        checked: rule.active
                        text: qsTr("Mark the events of a rule")
                        onToggled: rule.active = checked
                    }
                    Text {
                        color: ViewerStyle.dimText
                        font.pixelSize: ViewerStyle.smallText
                        text: qsTr("Causes of")
                        visible: servers.count > 1
                    }
                    ComboBox {
                        id: servers

                        function refresh() {
                            servers.model = causes.servers();
                            if (servers.currentIndex < 0 && servers.count > 0)
                                servers.currentIndex = 0;
                            causes.serverUid = servers.currentValue ?? "";
                        }

                        Layout.fillWidth: true
                        textRole: "name"
                        valueRole: "uid"
                        visible: servers.count > 1
                        Accessible.name: qsTr("Causes of")
                        Component.onCompleted: servers.refresh()
                        onActivated: causes.serverUid = servers.currentValue
                    }
                    Text {
                        color: ViewerStyle.dimText
                        font.pixelSize: ViewerStyle.smallText
                        text: qsTr("Cause, empty for any")
                    }
                    EventCauseCombo {
                        Layout.fillWidth: true
                        editable: true
                        model: causes.model
                        Component.onCompleted: eventCause = rule.cause
                        onEventCauseChanged: rule.cause = eventCause
                    }
                    Text {
                        color: ViewerStyle.dimText
                        font.pixelSize: ViewerStyle.smallText
                        text: qsTr("Recorder and camera, 0 for any")
                    }
                    EventSourceSelector {
                        Layout.fillWidth: true
                        editable: true
                        Component.onCompleted: {
                            eventSourceDeviceId = rule.device;
                            eventSourceSubDeviceId = rule.subDevice;
                        }
                        onEventSourceDeviceIdChanged: rule.device = eventSourceDeviceId
                        onEventSourceSubDeviceIdChanged: rule.subDevice = eventSourceSubDeviceId
                    }
                }
            }
            ListView {
                id: list

                Layout.fillWidth: true
                Layout.fillHeight: true
                activeFocusOnTab: true
                boundsBehavior: Flickable.StopAtBounds
                clip: true
                currentIndex: -1
                keyNavigationEnabled: true
                model: liveEventModel // qmllint disable unqualified
                // Nothing is made ahead: a reset in the midst of it warns.
                cacheBuffer: 0
                reuseItems: true
                Accessible.role: Accessible.List
                Accessible.name: qsTr("Events")

                ScrollBar.vertical: ScrollBar {}
                delegate: ItemDelegate {
                    id: row

                    required property var model
                    readonly property list<string> moment: root.momentOf(row.model.timeString)
                    readonly property bool marked: root.isMarked(row.model.causeString, causes.address(row.model.serverUniqueId).serverId ?? -1,
                                                                 row.model.channelId)

                    width: list.width
                    height: 56
                    highlighted: row.activeFocus
                    padding: 0
                    Accessible.name: row.model.causeString + ", " + row.model.sourceName + ", " + row.moment.join(" ")
                    Keys.onReturnPressed: root.open(row.model)
                    Keys.onEnterPressed: root.open(row.model)
                    onClicked: root.open(row.model)

                    contentItem: RowLayout {
                        spacing: 12

                        Rectangle {
                            Layout.fillHeight: true
                            Layout.preferredWidth: row.marked ? 12 : 4
                            color: row.model.causeColor
                        }
                        ColumnLayout {
                            Layout.fillWidth: true
                            spacing: 2

                            Text {
                                Layout.fillWidth: true
                                color: row.model.causeColor
                                elide: Text.ElideRight
                                font.bold: row.marked
                                font.pixelSize: ViewerStyle.normalText
                                text: row.model.causeString
                                textFormat: Text.PlainText
                            }
                            Text {
                                Layout.fillWidth: true
                                color: ViewerStyle.dimText
                                elide: Text.ElideRight
                                font.pixelSize: ViewerStyle.smallText
                                text: row.model.sourceName === "" ? row.model.serverName : row.model.serverName + " – " + row.model.sourceName
                                textFormat: Text.PlainText
                            }
                        }
                        Text {
                            Layout.rightMargin: 16
                            color: ViewerStyle.text
                            font.pixelSize: ViewerStyle.smallText
                            horizontalAlignment: Text.AlignRight
                            // The date above the time where the row is narrow.
                            text: row.moment.join(root.wide ? " " : "\n")
                            textFormat: Text.PlainText
                        }
                    }
                }

                CentredNotice {
                    anchors.fill: parent
                    text: list.count > 0 ? "" : qsTr("No events yet")
                }
            }
        }
    }
}
