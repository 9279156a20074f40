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
    readonly property bool assigned: root.channelId > 0

    color: ViewerStyle.surface
    clip: true
    Accessible.role: Accessible.Graphic
    Accessible.name: root.name

    VideoDisplay {
        id: display

        anchors.fill: parent
        visible: root.pictures > 0
        serverGroupId: root.serverGroupId
        serverId: root.serverId
        channelId: root.channelId
        onChannelIdChanged: root.pictures = 0
        onCurrentFrameChanged: {
            root.pictures += 1;
            root.errorText = "";
        }
        onErrorReceived: root.errorText = display.error
    }
    CentredNotice {
        anchors.fill: parent
        color: root.errorText === "" ? ViewerStyle.dimText : ViewerStyle.danger
        text: root.errorText !== "" ? root.errorText
                                    : !root.assigned ? qsTr("No camera") : root.pictures === 0 ? qsTr("Waiting for the picture …") : ""
    }
    BusyIndicator {
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: ViewerStyle.gap
        width: 32
        height: 32
        running: root.assigned && display.busySpinnerVisible
        visible: running
    }
    Rectangle {
        anchors.left: parent.left
        anchors.bottom: parent.bottom
        width: Math.min(parent.width, nameText.implicitWidth + 24)
        height: 32
        visible: root.assigned
        color: "#b014171c"

        Text {
            id: nameText

            anchors.fill: parent
            anchors.leftMargin: 12
            anchors.rightMargin: 12
            text: root.name
            textFormat: Text.PlainText
            color: ViewerStyle.text
            font.pixelSize: 16
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
        }
    }
}
