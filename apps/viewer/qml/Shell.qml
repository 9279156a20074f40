// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import OrrinViewer.Host
import orrinsdkqml

// The pages of somebody who is logged in, with the bar at the top and the rail that leads to them.
Item {
    id: root

    property string page: "live"
    // The saved layout to begin with, empty for the last one.
    property string startLayout
    readonly property bool upright: root.width >= root.height
    readonly property alias livePage: live
    readonly property alias timeline: timeline
    readonly property var pages: [
        { page: "live", name: qsTr("Live and playback"), icon: "live", keys: "Ctrl+1" },
        { page: "events", name: qsTr("Events"), icon: "events", keys: "Ctrl+2" },
        { page: "statistics", name: qsTr("Statistics"), icon: "statistics", keys: "Ctrl+3" },
        { page: "zones", name: qsTr("Zones"), icon: "zones", keys: "Ctrl+4" },
        { page: "settings", name: qsTr("Settings"), icon: "settings", keys: "Ctrl+5" }
    ]
    // Pages are made when they are first asked for.
    property var visited: ["live"]
    // Something lies over the page and takes the keys.
    readonly property bool covered: sheet.opened || timeJump.opened || exporter.opened
    readonly property string pageName: root.pages.find(each => each.page === root.page)?.name ?? ""

    signal logoutRequested()
    signal siteRequested()

    Component.onCompleted: {
        if (root.startLayout !== "")
            live.showLayout(root.startLayout);
    }

    onPageChanged: {
        if (!root.visited.includes(root.page))
            root.visited = [...root.visited, root.page];
    }

    function openSheet() {
        sheet.open();
    }
    function openTimeJump() {
        timeJump.trackBeginning = timeline.stream.beginning();
        timeJump.timeZone = timeline.stream.zone;
        timeJump.open();
    }
    function closePopups() {
        sheet.close();
        timeJump.close();
        exporter.close();
    }
    function openAt(serverGroupId: int, serverId: int, channelId: int, time: date) {
        root.page = "live";
        live.showCamera(serverGroupId, serverId, channelId);
        timeline.jumpWhenReady(time.getTime());
    }
    function toast(text: string) {
        message.setTextWithTime(text, 3000);
    }

    Connections {
        function onSnapshotSaved(filename: string) {
            root.toast(qsTr("Snapshot saved: %1").arg(filename));
        }
        function onSnapshotFailed(error: string) {
            root.toast(error);
        }

        target: live.selectedTile?.playbackController ?? null
    }
    Instantiator {
        model: root.pages

        Shortcut {
            required property var modelData

            sequence: modelData.keys
            onActivated: root.page = modelData.page
        }
    }
    Shortcut {
        sequence: "Ctrl+N"
        onActivated: root.siteRequested()
    }
    Shortcut {
        sequences: [StandardKey.HelpContents]
        onActivated: sheet.open()
    }
    Shortcut {
        sequences: [StandardKey.FullScreen, "F11"]
        onActivated: root.toggleFullScreen()
    }

    function toggleFullScreen() {
        const window = root.Window.window;
        window.visibility = window.visibility === Window.FullScreen ? Window.AutomaticVisibility : Window.FullScreen;
    }

    component LazyPage: Loader {
        required property string page

        anchors.fill: parent
        active: root.visited.includes(page)
        visible: root.page === page
    }

    ZoneStore {
        id: zoneStore
    }
    GridLayout {
        anchors.fill: parent
        columns: root.upright ? 2 : 1
        rowSpacing: 0
        columnSpacing: 0

        NavigationRail {
            Layout.row: root.upright ? 0 : 1
            Layout.column: 0
            Layout.fillHeight: root.upright
            Layout.fillWidth: !root.upright
            upright: root.upright
            pages: root.pages
            current: root.page
            onChosen: page => root.page = page
            extra: [
                ViewerButton {
                    width: 44
                    height: 44
                    margins: 10
                    name: qsTr("Add a site")
                    keys: "Ctrl+N"
                    iconSource: "viewer/site"
                    onTriggered: root.siteRequested()
                },
                ViewerButton {
                    width: 44
                    height: 44
                    margins: 10
                    visible: root.width >= 480
                    name: qsTr("Keys")
                    keys: "F1"
                    iconSource: "viewer/help"
                    onTriggered: sheet.open()
                },
                ViewerButton {
                    width: 44
                    height: 44
                    margins: 10
                    visible: root.width >= 480
                    name: qsTr("Full screen")
                    keys: "F11"
                    iconSource: "viewer/fullscreen"
                    onTriggered: root.toggleFullScreen()
                },
                ViewerButton {
                    width: 44
                    height: 44
                    margins: 10
                    name: qsTr("Log out")
                    iconSource: "ic_exit_to_app_black_24px"
                    onTriggered: root.logoutRequested()
                }
            ]
        }
        Item {
            Layout.row: 0
            Layout.column: root.upright ? 1 : 0
            Layout.fillWidth: true
            Layout.fillHeight: true

            ColumnLayout {
                anchors.fill: parent
                spacing: 0
                visible: root.page === "live"

                LivePage {
                    id: live

                    objectName: "live"
                    zoneStore: zoneStore
                    keysEnabled: root.page === "live" && !root.covered
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    onLogoutRequested: root.logoutRequested()
                }
                TimelinePanel {
                    id: timeline

                    Layout.fillWidth: true
                    keysEnabled: live.keysEnabled && !live.typing
                    tile: live.selectedTile
                    tiles: live.tiles
                    onJumpRequested: root.openTimeJump()
                    onExportRequested: (time, text) => exporter.begin(live.selectedName, time, text)
                }
            }
            LazyPage {
                page: "events"
                sourceComponent: EventsPage {
                    onOpenAt: (serverGroupId, serverId, channelId, time) => root.openAt(serverGroupId, serverId, channelId, time)
                }
            }
            LazyPage {
                page: "statistics"
                sourceComponent: StatisticsPage {}
            }
            LazyPage {
                page: "zones"
                sourceComponent: ZoneEditor {
                    store: zoneStore
                    serverGroupId: live.selectedServerGroupId
                    serverId: live.selectedServerId
                    channelId: live.selectedChannelId
                    name: live.selectedName
                    onLeaveRequested: root.page = "live"
                }
            }
            LazyPage {
                page: "settings"
                sourceComponent: SettingsHost {
                    Component.onCompleted: open()
                    onLeaveRequested: root.page = "live"
                }
            }
        }
    }
    Message {
        id: message

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 140
        width: Math.min(560, parent.width - 32)
        radius: ViewerStyle.radius
        z: 10
    }
    ShortcutSheet {
        id: sheet
    }
    ExportDialog {
        id: exporter

        serverGroupId: live.selectedServerGroupId
        serverId: live.selectedServerId
        channelId: live.selectedChannelId
    }
    TimeJump {
        id: timeJump

        anchors.fill: parent
        onAccepted: time => timeline.commands.jump(time.getTime())
    }
}
