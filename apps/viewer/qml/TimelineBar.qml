// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import orrinsdkqml

// The recording of one camera around a moment, which stands in the middle. Dragging moves the moment, a click jumps, the
// wheel zooms around the pointer.
Item {
    id: root

    // Milliseconds since the epoch.
    property double time: 0
    property var zone
    property RecordedTimes times: null
    readonly property bool dragging: drag.active
    readonly property alias scale_: scale
    readonly property string hoverText: hover.hovered ? scale.text(scale.timeAt(hover.point.position.x)) : ""

    // While dragging, many times a second.
    signal scrubbed(double time)
    signal jumped(double time)

    function zoom(factor: double) {
        scale.zoom(factor, root.width / 2);
    }

    onTimeChanged: {
        if (!drag.active)
            scale.centre = root.time;
    }

    TimelineScale {
        id: scale

        width: root.width
        zone: root.zone
        onScaleChanged: ruler.setTimeFromEpoch(scale.centre, scale.zone)
    }
    Rectangle {
        anchors.fill: parent
        color: ViewerStyle.background
        clip: true

        Rectangle {
            id: track

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: notches.top
            height: 18
            color: ViewerStyle.raised
        }
        RecordingBar {
            id: recording

            anchors.fill: track
            from: scale.from
            to: scale.to
            times: root.times
            color: ViewerStyle.recorded
        }
        Rectangle {
            id: notches

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: 12
            color: ViewerStyle.scale

            Ruler {
                id: ruler

                anchors.fill: parent
                rangeSecs: Math.max(1, scale.span / 1000)
                notchIntervalSecs: Math.max(1, scale.notchSeconds)
            }
        }
        Repeater {
            model: scale.ticks

            Item {
                id: tick

                required property var modelData

                x: (modelData.time - scale.from) / scale.span * root.width
                height: track.y

                Rectangle {
                    width: 1
                    height: notches.y
                    color: ViewerStyle.outline
                }
                Text {
                    x: 5
                    anchors.verticalCenter: parent.verticalCenter
                    color: tick.modelData.day ? ViewerStyle.text : ViewerStyle.dimText
                    font.pixelSize: 13
                    font.bold: tick.modelData.day
                    text: tick.modelData.label
                }
            }
        }
        Rectangle {
            id: playhead

            x: Math.round(root.width / 2) - 1
            width: 2
            height: parent.height
            color: ViewerStyle.playhead
        }
        Rectangle {
            x: Math.max(0, Math.min(root.width - width, hover.point.position.x - width / 2))
            visible: hover.hovered && !drag.active
            width: hoverLabel.implicitWidth + 16
            height: 22
            radius: 3
            color: ViewerStyle.surface
            border.color: ViewerStyle.outline

            Text {
                id: hoverLabel

                anchors.centerIn: parent
                color: ViewerStyle.text
                font.pixelSize: 13
                text: root.hoverText
            }
        }
        Rectangle {
            x: hover.point.position.x
            visible: hover.hovered && !drag.active
            width: 1
            height: parent.height
            color: ViewerStyle.dimText
        }
    }
    HoverHandler {
        id: hover

        cursorShape: drag.active ? Qt.ClosedHandCursor : Qt.PointingHandCursor
    }
    TapHandler {
        onTapped: point => root.jumped(scale.timeAt(point.position.x))
    }
    DragHandler {
        id: drag

        property double began: 0

        target: null
        yAxis.enabled: false
        onActiveChanged: {
            if (drag.active)
                drag.began = scale.centre;
            else
                root.jumped(scale.centre);
        }
        onActiveTranslationChanged: {
            if (!drag.active)
                return;
            scale.centre = Math.min(Date.now(), drag.began - drag.activeTranslation.x / root.width * scale.span);
            pace.asked = true;
            if (!pace.running)
                pace.send();
        }
    }
    // The newest moment thirty times a second at most, the last one always.
    Timer {
        id: pace

        property bool asked: false

        function send() {
            pace.asked = false;
            root.scrubbed(scale.centre);
            pace.start();
        }

        interval: 33
        onTriggered: {
            if (pace.asked && drag.active)
                pace.send();
        }
    }
    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => scale.zoom(Math.pow(0.8, event.angleDelta.y / 120), root.width / 2)
    }
    PinchHandler {
        target: null
        onScaleChanged: delta => scale.zoom(1 / delta, root.width / 2)
    }
}
