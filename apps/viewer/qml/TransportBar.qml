// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import orrinsdkqml

// The buttons of a recorder, with the speed and the moment that the picture shows.
Item {
    id: root

    property PlaybackController controller: null
    // What the timeline and this bar share.
    required property PlaybackCommands commands
    property string timeText
    property string zoneText
    property bool synchronous: false
    property bool permitted: false

    signal jumpRequested()
    signal synchronousRequested(bool on)
    signal snapshotRequested()
    signal exportRequested()

    implicitHeight: buttons.implicitHeight

    RowLayout {
        id: buttons

        anchors.fill: parent
        anchors.leftMargin: ViewerStyle.gap
        anchors.rightMargin: ViewerStyle.gap
        spacing: 2

        Repeater {
            model: [
                { icon: "begin", name: qsTr("To the beginning"), keys: "Home", wide: true, run: () => root.commands.toBeginning() },
                { icon: "rewind", name: qsTr("Rewind, faster with each press"), keys: "J", wide: false, run: () => root.commands.rewind() },
                { icon: "step_back", name: qsTr("One picture back"), keys: "Left", wide: true, run: () => root.commands.stepBack() },
                { icon: "play", name: qsTr("Play or pause"), keys: "Space", wide: false, run: () => root.commands.togglePlay() },
                { icon: "step_forward", name: qsTr("One picture on"), keys: "Right", wide: true, run: () => root.commands.stepForward() },
                { icon: "forward", name: qsTr("Fast forward, faster with each press"), keys: "L", wide: false, run: () => root.commands.forward() },
                { icon: "end", name: qsTr("To the end"), keys: "End", wide: true, run: () => root.commands.toEnd() }
            ]

            ViewerButton {
                required property var modelData

                Layout.preferredWidth: implicitWidth
                Layout.preferredHeight: implicitHeight
                visible: !modelData.wide || root.width >= 560
                enabled: root.permitted
                name: modelData.name
                keys: modelData.keys
                iconSource: "viewer/" + (modelData.icon === "play" && root.commands.moving ? "pause" : modelData.icon)
                onTriggered: modelData.run()
            }
        }
        ViewerButton {
            Layout.preferredWidth: implicitWidth
            Layout.preferredHeight: implicitHeight
            enabled: root.controller !== null
            name: qsTr("Live")
            keys: "Ctrl+L"
            iconSource: "viewer/now"
            active: root.commands.isLive
            onTriggered: root.commands.live()
        }
        Rectangle {
            Layout.leftMargin: ViewerStyle.gap
            Layout.preferredWidth: Math.max(64, speed.implicitWidth + 20)
            Layout.preferredHeight: 28
            radius: ViewerStyle.radius
            color: root.commands.isLive ? ViewerStyle.live : ViewerStyle.raised
            visible: root.controller !== null

            Text {
                id: speed

                anchors.centerIn: parent
                color: ViewerStyle.text
                font.pixelSize: ViewerStyle.smallText
                font.bold: true
                text: root.commands.speedText
                Accessible.role: Accessible.StaticText
                Accessible.name: qsTr("Speed %1").arg(text)
            }
        }
        Item {
            Layout.fillWidth: true
            visible: root.width < 560
        }
        Text {
            Layout.fillWidth: true
            Layout.leftMargin: ViewerStyle.gap
            visible: root.width >= 560
            color: ViewerStyle.text
            font.pixelSize: ViewerStyle.normalText
            // Where it is narrow, the time stays rather than the day.
            elide: Text.ElideLeft
            text: root.zoneText === "" ? root.timeText : root.timeText + "  " + root.zoneText
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        ViewerButton {
            Layout.preferredWidth: implicitWidth
            Layout.preferredHeight: implicitHeight
            enabled: root.permitted
            name: qsTr("Go to date and time")
            keys: "Ctrl+T"
            iconSource: "viewer/calendar"
            onTriggered: root.jumpRequested()
        }
        ViewerButton {
            Layout.preferredWidth: implicitWidth
            Layout.preferredHeight: implicitHeight
            visible: root.width >= 640
            name: qsTr("All tiles at one moment")
            keys: "Ctrl+Y"
            iconSource: "viewer/synchronous"
            active: root.synchronous
            onTriggered: root.synchronousRequested(!root.synchronous)
        }
        ViewerButton {
            Layout.preferredWidth: implicitWidth
            Layout.preferredHeight: implicitHeight
            visible: root.width >= 640
            enabled: root.controller !== null
            name: qsTr("Snapshot")
            keys: "Ctrl+S"
            iconSource: "viewer/snapshot"
            onTriggered: root.snapshotRequested()
        }
        ViewerButton {
            Layout.preferredWidth: implicitWidth
            Layout.preferredHeight: implicitHeight
            visible: root.width >= 640
            enabled: root.permitted
            name: qsTr("Export recorded video")
            keys: "Ctrl+E"
            iconSource: "viewer/export"
            onTriggered: root.exportRequested()
        }
    }
}
