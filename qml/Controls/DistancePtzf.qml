// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! Steers a camera by gestures: a drag is pan and tilt, at a speed that grows with its length; a wheel and a pinch are zoom.

    Speeds are signed, up to 32767 for full speed and beyond for a longer drag: to the right, down and in when positive. A frame around
    the item takes no input, and clicks go on to what lies beneath. */
Item {
    id: root

    property int originX: 0
    property int originY: 0
    property int mouseX: 0
    property int mouseY: 0
    // Written by functions, never bound: positions that are reset one by one would make wild speeds in between.
    property int speedX: 0
    property int speedY: 0
    property int speedZ: 0
    property color lineColor: "#0000CC"
    property color lineBorderColor: "#999999"
    property int lineWidth: 5
    property real deadZonePercent: 0.1
    readonly property int maxPtzValue: 32767
    readonly property int maxPixelValue: Math.min(root.width, root.height)
    readonly property int zoomStep: root.maxPtzValue / 128

    onOriginXChanged: canvas.requestPaint()
    onOriginYChanged: canvas.requestPaint()
    onMouseXChanged: canvas.requestPaint()
    onMouseYChanged: canvas.requestPaint()

    function scaleBetween(num: real, new_min: real, new_max: real, old_min: real, old_max: real): real {
        return (new_max - new_min) * (num - old_min) / (old_max - old_min) + new_min;
    }

    /*! A third of the smaller side gives full speed. */
    function updateXandYSpeeds() {
        root.speedX = (root.mouseX - root.originX) / root.maxPixelValue * root.maxPtzValue * 3;
        root.speedY = (root.mouseY - root.originY) / root.maxPixelValue * root.maxPtzValue * 3;
    }

    function pinchToZoomSpeed(pinch: var): int {
        const scale = Math.max(0.4, Math.min(10.0, pinch.scale));
        return scale > 1.0 ? root.scaleBetween(scale, 0, root.maxPtzValue, 1.0, 10.0)
                           : root.scaleBetween(scale, -root.maxPtzValue, 0, 0.4, 1.0);
    }

    function endDrag() {
        root.mouseX = 0;
        root.mouseY = 0;
        root.originX = 0;
        root.originY = 0;
        root.updateXandYSpeeds();
    }

    Timer {
        id: zoomTimer

        interval: 500
        onTriggered: root.speedZ = 0
    }

    Canvas {
        id: canvas

        x: root.x + root.width * root.deadZonePercent
        y: root.y + root.height * root.deadZonePercent
        width: root.width - 2 * canvas.x
        height: root.height - 2 * canvas.y
        onPaint: {
            const context = canvas.getContext("2d");
            context.clearRect(0, 0, root.width, root.height);
            context.lineCap = "round";
            for (const [color, width] of [[root.lineBorderColor, 1.5 * root.lineWidth], [root.lineColor, root.lineWidth]]) {
                context.strokeStyle = color;
                context.lineWidth = width;
                context.beginPath();
                context.moveTo(root.originX, root.originY);
                context.lineTo(root.mouseX, root.mouseY);
                context.stroke();
            }
        }
    }

    PinchArea {
        id: pinchZoom

        x: canvas.x
        y: canvas.y
        width: canvas.width
        height: canvas.height
        onPinchStarted: pinch => root.speedZ = root.pinchToZoomSpeed(pinch)
        onPinchUpdated: pinch => root.speedZ = root.pinchToZoomSpeed(pinch)
        onPinchFinished: root.speedZ = 0

        MouseArea {
            anchors.fill: parent
            propagateComposedEvents: true
            onPressed: mouse => {
                root.originX = mouse.x;
                root.mouseX = mouse.x;
                root.originY = mouse.y;
                root.mouseY = mouse.y;
            }
            onPositionChanged: mouse => {
                root.mouseX = mouse.x;
                root.mouseY = mouse.y;
                root.updateXandYSpeeds();
            }
            onReleased: root.endDrag()
            // A pinch may take the drag over: nobody holds the camera then.
            onCanceled: root.endDrag()
            onWheel: wheel => {
                // Only the first of a series has a direction; the others add to it, whichever way they turn.
                root.speedZ = zoomTimer.running ? root.speedZ + root.zoomStep : wheel.angleDelta.y * root.zoomStep;
                zoomTimer.restart();
            }
        }
    }
}
