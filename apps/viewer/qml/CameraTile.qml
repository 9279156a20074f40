// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import OrrinViewer.Host
import orrinsdkqml

// One camera of the grid: its name, the picture with all that the module's tile can do, and words while there is no picture.
Rectangle {
    id: root

    required property int index
    required property int serverGroupId
    required property int serverId
    required property int channelId
    required property string name
    required property string cameraKey
    required property bool available

    // The zones of all cameras, null for none.
    property ZoneStore zoneStore: null
    property bool selected: false
    // Fills the grid.
    property bool alone: false
    // Whether a grid of this many tiles may show the large pictures at all.
    property bool mayBeHigh: true
    readonly property alias output: output
    readonly property alias picture: picture
    readonly property bool assigned: root.cameraKey !== ""
    readonly property bool inSight: root.visible && root.Window.visibility !== Window.Minimized && root.Window.visibility !== Window.Hidden

    signal chosen()
    signal toggled()
    signal channelWanted(int step)
    signal dropped(DraggedCamera camera)
    signal dragStarted(point position)
    signal dragMoved(point position)
    signal dragEnded(bool done)

    color: ViewerStyle.surface
    clip: true
    Accessible.role: Accessible.Graphic
    Accessible.name: root.name
    Accessible.description: notice.text

    TilePicture {
        id: picture

        // A picture that fills half a screen wants the large stream; it is given back only well below, so that a size at the
        // border does not switch to and fro.
        readonly property real lines: output.height * root.Screen.devicePixelRatio
        property bool large: false
        // Back in the grid the size is judged anew, without regard to what was.
        property bool afresh: true

        function weigh() {
            if (picture.lines >= (picture.afresh ? 380 : 420))
                picture.large = true;
            else if (picture.lines < (picture.afresh ? 380 : 340))
                picture.large = false;
            picture.afresh = false;
        }

        output: output
        high: picture.large && (root.alone || root.mayBeHigh)
        onLinesChanged: {
            if (root.alone)
                picture.weigh();
            else
                settling.restart();
        }
        Component.onCompleted: picture.weigh()
    }
    Timer {
        id: settling

        interval: 400
        onTriggered: picture.weigh()
    }
    // A short look elsewhere does not end the stream.
    Timer {
        interval: 3000
        running: !root.inSight
        onTriggered: picture.running = false
    }
    onAloneChanged: picture.afresh = true
    onInSightChanged: {
        if (root.inSight)
            picture.running = true;
    }
    VideoOutput {
        id: output

        anchors.fill: parent
        anchors.topMargin: header.height
        serverGroupId: root.serverGroupId
        serverId: root.serverId
        channelId: root.channelId
        isInLayout: !root.alone
        // The host publishes `settings`, which qmllint cannot know.
        channelButtonsVisible: settings.channelButtonsVisible && root.assigned && output.width >= 240 // qmllint disable unqualified
        subtitlesVisible: settings.subtitlesVisible && output.height >= 160 // qmllint disable unqualified
        onAreaClicked: root.chosen()
        onToggleSingleLayout: root.toggled()
        onNextChannel: root.channelWanted(1)
        onPreviousChannel: root.channelWanted(-1)
    }
    TileStream {
        id: stream

        tile: output
    }
    Loader {
        anchors.fill: output
        active: root.zoneStore !== null && root.assigned && notice.text === ""
        sourceComponent: ZoneOverlay {
            store: root.zoneStore
            camera: root.zoneStore.cameraOf(root.serverGroupId, root.serverId, root.channelId)
            pictureArea: stream.pictureRect
            clip: true
        }
    }
    TileNotice {
        id: notice

        anchors.fill: output
        failed: picture.state === TilePicture.Failed || !root.available
        text: !root.assigned ? qsTr("No camera")
                             : !root.available ? qsTr("Not on this site")
                             : picture.state === TilePicture.Failed ? qsTr("No picture")
                             : picture.state === TilePicture.Showing ? "" : qsTr("Waiting for the picture …")
        detail: picture.errorText
    }
    TileHeader {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        height: Math.max(16, Math.min(28, root.height / 6))
        text: root.name
        selected: root.selected
        failed: notice.failed && root.assigned
        high: picture.high
        highShown: root.assigned && picture.state === TilePicture.Showing && root.width > 200
        waiting: picture.waiting && picture.state === TilePicture.Showing && root.inSight
        draggable: root.assigned && !root.alone
        onTapped: root.chosen()
        onDoubleTapped: root.toggled()
        onDragStarted: position => root.dragStarted(position)
        onDragMoved: position => root.dragMoved(position)
        onDragEnded: done => root.dragEnded(done)
    }
    DropArea {
        id: dropArea

        anchors.fill: parent
        onDropped: drop => root.dropped(drop.source as DraggedCamera)
    }
    Rectangle {
        anchors.fill: parent
        color: dropArea.containsDrag ? Qt.alpha(ViewerStyle.accent, 0.25) : "transparent"
        border.color: ViewerStyle.accent
        border.width: 2
        visible: (root.selected && !root.alone) || dropArea.containsDrag
    }
}
