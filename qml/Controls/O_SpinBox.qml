// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import orrinsdkqml

/*! A spin box of the style that the wheel turns, or the bare number where the user may not change it. */
Item {
    id: root

    property bool editable: false
    property alias from: spinBox.from
    property alias to: spinBox.to
    property alias value: spinBox.value

    implicitWidth: stack.implicitWidth
    implicitHeight: stack.implicitHeight

    StackLayout {
        id: stack

        anchors.fill: parent
        currentIndex: root.editable ? 0 : 1

        SpinBox {
            id: spinBox

            Layout.fillWidth: true
            font: Application.font
            editable: root.editable

            // One notch of 15 degrees is one step.
            WheelHandler {
                property: "value"
                rotationScale: 1 / 15
            }
        }
        O_Label {
            Layout.fillWidth: true
            text: spinBox.value.toString()
        }
    }
}
