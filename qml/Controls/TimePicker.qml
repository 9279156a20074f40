// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick

// The host publishes `settings` and `timeTools`, which qmllint cannot know.
// qmllint disable unqualified

/*! A time of day in three fields. A field that passes its end begins again and moves the field above it by one. */
Rectangle {
    id: root

    property alias hour: spinHour.value
    property alias minute: spinMinute.value
    property alias second: spinSecond.value

    /*! The hours passed the end of the day, or its beginning. */
    signal hourOverflow
    signal hourUnderflow

    height: 3 * settings.controlHeightHints + 2 * settings.controlMarginsHints
    color: settings.backgroundColor

    Component.onCompleted: {
        const now = timeTools.timeNow();
        root.hour = parseInt(Qt.formatTime(now, "h"));
        root.minute = parseInt(Qt.formatTime(now, "m"));
    }

    // A step past an end wraps where the box is circular, and tells so. A value written from outside carries in the same
    // way when it is the one next to an end; what lies further out is no carry and stops at the end.
    component SpinBox: FocusScope {
        id: box

        property string label
        property int value: 0
        property int minimumValue: 0
        property int maximumValue: 99
        property bool circular: false
        property string prefix: ""

        signal overflow
        signal underflow

        function increase() {
            if (box.value < box.maximumValue) {
                box.value += 1;
            } else if (box.circular) {
                box.value = box.minimumValue;
                box.overflow();
            }
        }
        function decrease() {
            if (box.value > box.minimumValue) {
                box.value -= 1;
            } else if (box.circular) {
                box.value = box.maximumValue;
                box.underflow();
            }
        }

        width: 3 * settings.controlHeightHints
        height: settings.controlHeightHints
        activeFocusOnTab: true
        Accessible.role: Accessible.SpinBox
        Accessible.name: box.label

        onValueChanged: {
            input.show();
            if (box.value === box.maximumValue + 1 && box.circular) {
                box.value = box.minimumValue;
                box.overflow();
            } else if (box.value === box.minimumValue - 1 && box.circular) {
                box.value = box.maximumValue;
                box.underflow();
            } else if (box.value > box.maximumValue) {
                box.value = box.maximumValue;
            } else if (box.value < box.minimumValue) {
                box.value = box.minimumValue;
            }
        }
        Keys.onUpPressed: box.increase()
        Keys.onDownPressed: box.decrease()

        Rectangle {
            anchors.fill: parent
            color: settings.highlightColor
            border.width: box.activeFocus ? settings.borderWidthHints : 1
            border.color: box.activeFocus ? settings.activeColor : settings.borderColor
            radius: settings.controlRadiusHints
        }
        StepArea {
            anchors.left: parent.left
            sign: "\u2212"
            onStep: box.decrease()
        }
        TextInput {
            id: input

            function show() {
                input.text = Qt.binding(() => box.prefix + box.value);
            }
            function finish() {
                if (input.acceptableInput)
                    box.value = parseInt(input.text);
                input.show();
                input.selectAll();
            }

            anchors.centerIn: parent
            width: parent.width - 2 * parent.height
            color: settings.textColor
            focus: true
            font.family: settings.fontFamily !== "" ? settings.fontFamily : Application.font.family
            font.pixelSize: settings.fontPixelSizeHints
            horizontalAlignment: TextInput.AlignHCenter
            inputMethodHints: Qt.ImhDigitsOnly
            selectByMouse: true
            text: box.prefix + box.value
            validator: IntValidator {
                bottom: box.minimumValue
                top: box.maximumValue
            }
            // An entry that is no value of the box falls back to the last one.
            onActiveFocusChanged: {
                if (input.activeFocus) {
                    input.selectAll();
                } else {
                    input.deselect();
                    input.show();
                }
            }
            onEditingFinished: {
                box.value = parseInt(input.text);
                input.show();
            }
            Keys.onReturnPressed: input.finish()
            Keys.onEnterPressed: input.finish()
        }
        StepArea {
            anchors.right: parent.right
            sign: "+"
            onStep: box.increase()
        }
        WheelHandler {
            property real turned: 0

            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            // One notch is one step, however finely the wheel reports.
            onWheel: event => {
                turned += event.angleDelta.y;
                for (; turned >= 120; turned -= 120)
                    box.increase();
                for (; turned <= -120; turned += 120)
                    box.decrease();
            }
        }
    }
    // Steps once at the press, and on while it is held.
    component StepArea: MouseArea {
        id: area

        required property string sign

        signal step

        width: height
        height: parent.height
        onPressed: {
            area.parent.forceActiveFocus();
            area.step();
            holding.interval = 400;
            holding.start();
        }
        onReleased: holding.stop()
        onCanceled: holding.stop()

        Timer {
            id: holding

            repeat: true
            onTriggered: {
                interval = 80;
                area.step();
            }
        }
        Text {
            anchors.centerIn: parent
            color: area.pressed ? settings.iconActiveColor : settings.iconColor
            font.pixelSize: 1.2 * settings.fontPixelSizeHints
            text: area.sign
        }
    }
    component Label: Text {
        height: settings.controlHeightHints
        color: "#ffffff"
        font.pixelSize: settings.fontPixelSizeHints
        font.family: settings.fontFamily !== "" ? settings.fontFamily : Application.font.family
        verticalAlignment: Text.AlignVCenter
    }

    Label {
        id: hourLabel

        anchors.left: parent.left
        anchors.top: parent.top
        text: qsTr("Hour")
    }
    SpinBox {
        id: spinHour

        anchors.right: parent.right
        anchors.top: parent.top
        label: hourLabel.text
        maximumValue: 23
        circular: true
        prefix: value < 10 ? "0" : ""
        onOverflow: root.hourOverflow()
        onUnderflow: root.hourUnderflow()
    }
    Label {
        id: minuteLabel

        anchors.left: parent.left
        anchors.top: hourLabel.bottom
        anchors.topMargin: settings.controlMarginsHints
        text: qsTr("Minute")
    }
    SpinBox {
        id: spinMinute

        anchors.right: parent.right
        anchors.top: spinHour.bottom
        anchors.topMargin: settings.controlMarginsHints
        label: minuteLabel.text
        maximumValue: 59
        circular: true
        prefix: value < 10 ? "0" : ""
        onOverflow: spinHour.increase()
        onUnderflow: spinHour.decrease()
    }
    Label {
        id: secondLabel

        anchors.left: parent.left
        anchors.top: minuteLabel.bottom
        anchors.topMargin: settings.controlMarginsHints
        text: qsTr("Second")
    }
    SpinBox {
        id: spinSecond

        anchors.right: parent.right
        anchors.top: spinMinute.bottom
        anchors.topMargin: settings.controlMarginsHints
        label: secondLabel.text
        maximumValue: 59
        circular: true
        prefix: value < 10 ? "0" : ""
        onOverflow: spinMinute.increase()
        onUnderflow: spinMinute.decrease()
    }
}
