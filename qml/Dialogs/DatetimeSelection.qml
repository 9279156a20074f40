// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import orrinsdkqml

// The host publishes `settings` and `timeTools`, which qmllint cannot know.
// qmllint disable unqualified

/*! A page that asks for a date and a time of day. */
Page {
    id: root

    /*! Kept for the caller; nothing here writes them. */
    property int year: 2000
    property int month: 1
    property int day: 1
    property alias hour: timePicker.hour
    property alias minute: timePicker.minute
    property alias second: timePicker.second
    /*! The day that is picked; today in the zone that the user prefers, at first. */
    property alias selectedDate: calendar.selectedDate
    /*! The beginning of the recording in milliseconds since the epoch and the zone of its server: earlier days cannot be picked. */
    property alias trackBeginning: calendar.trackBeginning
    property alias timeZone: calendar.timeZone

    /*! The caller reads the date and the time from the properties; the page closes after it. */
    signal datetimeSelected

    Rectangle {
        id: title

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        height: settings.controlHeightHints + 4 * settings.controlMarginsHints
        color: settings.highlightColor

        Text {
            anchors.centerIn: parent
            color: settings.textColor
            font.pixelSize: settings.fontPixelSizeHints
            text: "Time jump"
        }
    }
    Column {
        id: layout

        anchors.top: title.bottom
        anchors.topMargin: root.height / 16
        anchors.bottom: buttons.top
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.margins: 2 * settings.controlMarginsHints
        width: Math.min(30 * settings.controlHeightHints, root.width)
        spacing: 4 * settings.controlMarginsHints

        Item {
            width: parent.width
            height: settings.controlHeightHints

            Row {
                anchors.centerIn: parent
                spacing: 2 * settings.controlMarginsHints

                O_Label {
                    id: date

                    height: settings.controlHeightHints
                    color: settings.textColor
                    text: qsTr("Selected date: %1").arg(Qt.formatDate(calendar.selectedDate))
                    verticalAlignment: Text.AlignVCenter
                }
                ToolBarButton {
                    id: changeDate

                    width: settings.controlHeightHints
                    height: settings.controlHeightHints
                    iconSource: "settings"
                    margins: 0
                    onClicked: calendarArea.visible = true
                }
            }
        }
        TimePicker {
            id: timePicker

            anchors.horizontalCenter: parent.horizontalCenter
            width: 5 * settings.controlHeightHints
            onHourOverflow: calendar.addDays(1)
            onHourUnderflow: calendar.addDays(-1)
        }
    }
    Rectangle {
        id: buttons

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        height: settings.controlHeightHints + 2 * settings.controlMarginsHints
        color: settings.backgroundColor

        Rectangle {
            anchors.bottom: parent.top
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: 15
            anchors.rightMargin: 15
            height: 1
            color: settings.borderColor
        }
        ToolBarButton {
            anchors.centerIn: parent
            anchors.margins: settings.controlMarginsHints
            width: 4 * settings.controlHeightHints
            height: settings.controlHeightHints
            text: "Go"
            onClicked: {
                root.datetimeSelected();
                root.closePage();
            }
        }
        ToolBarButton {
            id: outButton

            anchors.top: parent.top
            anchors.bottom: parent.bottom
            anchors.right: parent.right
            width: parent.height
            iconSource: "ic_exit_to_app_black_24px"
            margins: 0
            onClicked: root.closePage()
        }
    }
    Item {
        id: calendarArea

        anchors.fill: parent
        visible: false
        onVisibleChanged: {
            if (visible)
                calendar.forceActiveFocus();
        }

        // The area is a page of its own: nothing beneath shows or is reached.
        Rectangle {
            anchors.fill: parent
            color: root.color

            MouseArea {
                anchors.fill: parent
                acceptedButtons: Qt.AllButtons
                hoverEnabled: true
                onWheel: wheel => wheel.accepted = true
            }
        }
        O_Calendar {
            id: calendar

            anchors.top: parent.top
            anchors.bottom: hideCalendar.top
            anchors.left: parent.left
            anchors.right: parent.right
            selectedDate: timeTools.dateNow()
            onAccepted: calendarArea.visible = false
        }
        ToolBarButton {
            id: hideCalendar

            anchors.bottom: parent.bottom
            anchors.right: parent.right
            height: settings.controlHeightHints + 2 * settings.controlMarginsHints
            iconSource: "ic_exit_to_app_black_24px"
            margins: 0
            onClicked: calendarArea.visible = false
        }
    }
}
