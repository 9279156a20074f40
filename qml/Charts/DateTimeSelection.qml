// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls

// A row of numbers for a window of time: its beginning, read as UTC, and its length.
Item {
    id: root

    property int defaultMargins: 5
    property int defaultSpacing: 3
    property date from: "2024-03-02T09:22:00.000Z"
    property date to: "2024-03-02T09:27:00.000Z"

    function padded(number: int): string {
        return String(number).padStart(2, "0");
    }

    // The engine's parser rolls a day that the month does not have over to the next; here it is no date.
    function dateOf(text: string): date {
        const daysOfMonth = new Date(Date.UTC(year.value, month.value, 0)).getUTCDate();
        const isMoment = day.value <= daysOfMonth && (hour.value < 24 || minute.value === 0);
        return isMoment ? new Date(text) : new Date(NaN);
    }

    function updateDateTime() {
        const text = year.value + "-" + root.padded(month.value) + "-" + root.padded(day.value) + "T" + root.padded(hour.value)
                   + ":" + root.padded(minute.value) + ":00.000Z";
        console.log("dateTimeString: " + text);
        root.from = root.dateOf(text);
        const end = new Date(root.from);
        end.setMinutes(end.getMinutes() + duration.value);
        root.to = end;
        console.log("duration: " + duration.value);
        console.log("from: " + root.from);
        console.log("to: " + root.to);
    }

    width: 800
    height: 25

    Row {
        anchors.fill: parent
        anchors.margins: root.defaultMargins
        spacing: root.defaultSpacing

        Text {
            text: "Date:"
            height: year.height
            verticalAlignment: Text.AlignVCenter
        }
        SpinBox {
            id: year

            from: 1970
            to: 2050
            value: 2024
            onValueChanged: root.updateDateTime()
        }
        SpinBox {
            id: month

            from: 1
            to: 12
            value: 3
            onValueChanged: root.updateDateTime()
        }
        SpinBox {
            id: day

            from: 1
            to: 31
            value: 2
            onValueChanged: root.updateDateTime()
        }
        SpinBox {
            id: hour

            from: 0
            to: 24
            value: 9
            onValueChanged: root.updateDateTime()
        }
        SpinBox {
            id: minute

            from: 0
            to: 59
            value: 22
            onValueChanged: root.updateDateTime()
        }
        Item {
            width: 30
            height: 1
        }
        Text {
            text: "Duration:"
            height: year.height
            verticalAlignment: Text.AlignVCenter
        }
        SpinBox {
            id: duration

            from: 1
            to: 60
            value: 5
            textFromValue: value => value + " minutes"
            onValueChanged: root.updateDateTime()
        }
    }
}
