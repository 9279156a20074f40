// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! Mouse and touch gestures over a picture.

    Positions are in pixels or normalised: from (-1, -1) at the top left to (1, 1) at the bottom right. A click is told in pixels, a
    double click normalised. */
Item {
    id: root

    property real last_x: 0.0
    property real last_y: 0.0

    signal message(string text)
    signal pressed(int mouseX, int mouseY)
    signal released
    signal clicked(real mouseX, real mouseY)
    signal doubleClicked(real mouseX, real mouseY)
    signal pan(real x_diff, real y_diff)
    signal mouseChanged(real mouseX, real mouseY)
    signal wheel(int angle, real mouseX, real mouseY)
    signal pinchStarted(var pinch)
    signal pinchUpdated(var pinch)
    signal pinchFinished(var pinch)

    function scaleBetween(num: real, new_min: real, new_max: real, old_min: real, old_max: real): real {
        return (new_max - new_min) * (num - old_min) / (old_max - old_min) + new_min;
    }

    PinchArea {
        anchors.fill: parent
        onPinchStarted: pinch => {
            mouseArea.enabled = false;
            root.released();
            root.pinchStarted(pinch);
        }
        onPinchUpdated: pinch => root.pinchUpdated(pinch)
        onPinchFinished: pinch => {
            mouseArea.enabled = true;
            root.pinchFinished(pinch);
        }

        MouseArea {
            id: mouseArea

            function normalisedX(x: real): real {
                return root.scaleBetween(x, -1.0, 1.0, 0, mouseArea.width);
            }

            function normalisedY(y: real): real {
                return root.scaleBetween(y, -1.0, 1.0, 0, mouseArea.height);
            }

            anchors.fill: parent
            onPressed: mouse => {
                root.pressed(mouse.x, mouse.y);
                root.last_x = mouse.x;
                root.last_y = mouse.y;
            }
            onPositionChanged: mouse => {
                root.pan(mouse.x - root.last_x, mouse.y - root.last_y);
                root.last_x = mouse.x;
                root.last_y = mouse.y;
                root.mouseChanged(mouseArea.normalisedX(mouse.x), mouseArea.normalisedY(mouse.y));
            }
            onReleased: {
                root.released();
                root.last_x = 0;
                root.last_y = 0;
            }
            onClicked: mouse => root.clicked(mouse.x, mouse.y)
            onDoubleClicked: mouse => root.doubleClicked(mouseArea.normalisedX(mouse.x), mouseArea.normalisedY(mouse.y))
            // One step for each event, whatever the wheel's own; what is not up counts as down.
            onWheel: wheel => root.wheel(wheel.angleDelta.y > 0 ? 1 : -1, mouseArea.normalisedX(wheel.x), mouseArea.normalisedY(wheel.y))
        }
    }
}
