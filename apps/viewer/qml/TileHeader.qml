// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls

// The strip over a picture: the camera's name, and a handle to drag the tile by.
Rectangle {
    id: root

    property string text
    property bool selected: false
    property bool failed: false
    property bool high: false
    property bool highShown: false
    property bool waiting: false
    property bool draggable: false

    signal tapped()
    signal doubleTapped()
    signal dragStarted(point position)
    signal dragMoved(point position)
    signal dragEnded(bool done)

    color: root.selected ? ViewerStyle.raised : ViewerStyle.surface

    Rectangle {
        id: lamp

        anchors.verticalCenter: parent.verticalCenter
        x: 6
        width: 6
        height: 6
        radius: 3
        color: ViewerStyle.danger
        visible: root.failed
    }
    Text {
        anchors.fill: parent
        anchors.leftMargin: root.failed ? 18 : 10
        anchors.rightMargin: 8 + (marks.visible ? marks.width : 0)
        text: root.text
        textFormat: Text.PlainText
        color: ViewerStyle.text
        font.pixelSize: Math.max(11, Math.min(15, root.height * 0.6))
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
    }
    Row {
        id: marks

        anchors.right: parent.right
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        BusyIndicator {
            anchors.verticalCenter: parent.verticalCenter
            width: root.height - 4
            height: root.height - 4
            padding: 1
            running: root.waiting
            visible: root.waiting
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("HD")
            color: ViewerStyle.dimText
            font.pixelSize: 11
            font.bold: true
            visible: root.high && root.highShown
        }
    }
    TapHandler {
        onSingleTapped: root.tapped()
        onDoubleTapped: root.doubleTapped()
    }
    DragHandler {
        target: null
        enabled: root.draggable
        cursorShape: active ? Qt.ClosedHandCursor : Qt.ArrowCursor
        onGrabChanged: (transition, point) => {
            if (transition === PointerDevice.GrabExclusive)
                root.dragStarted(point.scenePosition);
            else if (transition === PointerDevice.UngrabExclusive)
                root.dragEnded(true);
            else if (transition === PointerDevice.CancelGrabExclusive)
                root.dragEnded(false);
        }
        onCentroidChanged: {
            if (active)
                root.dragMoved(centroid.scenePosition);
        }
    }
}
