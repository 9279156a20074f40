// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import orrinsdkqml

// One camera: the picture, its name, and a word while there is no picture.
Rectangle {
    id: root

    property int serverGroupId: -1
    property int serverId: -1
    property int channelId: -1
    property string name
    property int pictures: 0
    property string errorText
    property bool selected: false
    readonly property bool assigned: root.channelId > 0

    signal tapped()

    color: ViewerStyle.surface
    clip: true
    Accessible.role: Accessible.Graphic
    Accessible.name: root.name

    VideoDisplay {
        id: display

        anchors.fill: parent
        anchors.topMargin: header.height
        visible: root.pictures > 0
        serverGroupId: root.serverGroupId
        serverId: root.serverId
        channelId: root.channelId
        onChannelIdChanged: root.pictures = 0
        onCurrentFrameChanged: {
            // Enough to know that the picture moves; nothing else hangs on the count.
            if (root.pictures < 4)
                root.pictures += 1;
            root.errorText = "";
        }
        onErrorReceived: root.errorText = display.error
    }
    CentredNotice {
        anchors.fill: display
        color: root.errorText === "" ? ViewerStyle.dimText : ViewerStyle.danger
        text: root.errorText !== "" ? root.errorText
                                    : !root.assigned ? qsTr("No camera") : root.pictures === 0 ? qsTr("Waiting for the picture …") : ""
    }
    Rectangle {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        height: 28
        color: root.selected ? ViewerStyle.raised : ViewerStyle.surface

        Text {
            anchors.fill: parent
            anchors.leftMargin: 10
            anchors.rightMargin: 38
            text: root.name
            textFormat: Text.PlainText
            color: ViewerStyle.text
            font.pixelSize: 15
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
        }
        BusyIndicator {
            anchors.right: parent.right
            anchors.rightMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            width: 24
            height: 24
            padding: 2
            running: root.assigned && display.busySpinnerVisible
            visible: running
        }
    }
    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.color: ViewerStyle.accent
        border.width: 2
        visible: root.selected
    }
    TapHandler {
        onTapped: root.tapped()
    }
}
