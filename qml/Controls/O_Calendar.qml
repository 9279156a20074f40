// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts

// The host publishes `settings` and `timeTools`, which qmllint cannot know.
// qmllint disable unqualified

/*! A month of days of which one is picked. Days that can hold no recording are grey and out of the user's reach. */
Control {
    id: root

    /*! The picked day. */
    property date selectedDate
    /*! The beginning of the recording in milliseconds since the epoch; -1 keeps all days of the past. */
    property real trackBeginning: -1
    /*! The zone of that recording, a time zone value of the host. */
    property var timeZone
    /*! The month that is shown, 0 to 11, and its year. It follows the picked day. */
    property int visibleMonth: 0
    property int visibleYear: 1970

    /*! The user picked \a date, by a click. */
    signal clicked(date date)
    /*! The user is through with it, by a double click or the return key. */
    signal accepted

    /*! Moves the picked day, across the ends of months and years. */
    function addDays(count: int) {
        const day = grid.dayOf(root.selectedDate);
        root.selectedDate = new Date(day.getFullYear(), day.getMonth(), day.getDate() + count);
    }
    function showPreviousMonth() {
        root.visibleYear = root.visibleMonth === 0 ? root.visibleYear - 1 : root.visibleYear;
        root.visibleMonth = (root.visibleMonth + 11) % 12;
    }
    function showNextMonth() {
        root.visibleYear = root.visibleMonth === 11 ? root.visibleYear + 1 : root.visibleYear;
        root.visibleMonth = (root.visibleMonth + 1) % 12;
    }

    activeFocusOnTab: true
    focusPolicy: Qt.StrongFocus
    padding: settings.controlMarginsHints
    implicitWidth: 10 * settings.controlHeightHints
    implicitHeight: 9 * settings.controlHeightHints
    Accessible.role: Accessible.Table
    Accessible.name: Qt.formatDate(root.selectedDate)

    onSelectedDateChanged: {
        const day = grid.dayOf(root.selectedDate);
        if (isNaN(day))
            return;
        root.visibleYear = day.getFullYear();
        root.visibleMonth = day.getMonth();
    }
    Keys.onLeftPressed: grid.move(root.mirrored ? 1 : -1)
    Keys.onRightPressed: grid.move(root.mirrored ? -1 : 1)
    Keys.onUpPressed: grid.move(-7)
    Keys.onDownPressed: grid.move(7)
    Keys.onReturnPressed: root.accepted()
    Keys.onEnterPressed: root.accepted()
    Keys.onPressed: event => {
        const day = grid.dayOf(root.selectedDate);
        if (isNaN(day))
            return;
        switch (event.key) {
        case Qt.Key_PageUp:
            grid.pickInMonth(day.getFullYear(), day.getMonth() - 1, day.getDate());
            break;
        case Qt.Key_PageDown:
            grid.pickInMonth(day.getFullYear(), day.getMonth() + 1, day.getDate());
            break;
        case Qt.Key_Home:
            grid.pickInMonth(day.getFullYear(), day.getMonth(), 1);
            break;
        case Qt.Key_End:
            grid.pickInMonth(day.getFullYear(), day.getMonth(), 31);
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    component MonthButton: Button {
        Layout.preferredWidth: settings.controlHeightHints * 1.5
        Layout.fillHeight: true
        focusPolicy: Qt.NoFocus
        flat: true
        font.pixelSize: 1.3 * settings.fontPixelSizeHints
        padding: 0
    }

    contentItem: ColumnLayout {
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            Layout.preferredHeight: 1.5 * settings.controlHeightHints

            MonthButton {
                text: "\u2039"
                Accessible.name: qsTr("Previous month")
                onClicked: root.showPreviousMonth()
            }
            Text {
                Layout.fillWidth: true
                color: settings.textColor
                elide: Text.ElideRight
                font.pixelSize: 1.2 * settings.fontPixelSizeHints
                horizontalAlignment: Text.AlignHCenter
                text: root.locale.standaloneMonthName(root.visibleMonth) + " " + root.visibleYear
            }
            MonthButton {
                text: "\u203a"
                Accessible.name: qsTr("Next month")
                onClicked: root.showNextMonth()
            }
        }
        DayOfWeekRow {
            Layout.fillWidth: true
            Layout.preferredHeight: settings.controlHeightHints
            locale: root.locale
            delegate: Text {
                required property string shortName

                color: settings.textDisabledColor
                elide: Text.ElideRight
                font.pixelSize: 0.9 * settings.fontPixelSizeHints
                horizontalAlignment: Text.AlignHCenter
                text: shortName
                verticalAlignment: Text.AlignVCenter
            }
        }
        MonthGrid {
            id: grid

            // A day that comes from a date without a time stands at midnight UTC, which is another day in the west.
            function dayOf(date: date): date {
                return date.getTime() % 86400000 === 0 ? new Date(date.getUTCFullYear(), date.getUTCMonth(), date.getUTCDate())
                                                       : new Date(date.getFullYear(), date.getMonth(), date.getDate());
            }
            function isAvailable(date: date): bool {
                return date <= grid.dayOf(timeTools.dateNow())
                        && !timeTools.dateUnavailable(root.trackBeginning, date, root.timeZone);
            }
            function pick(date: date): bool {
                if (isNaN(date) || !grid.isAvailable(date))
                    return false;
                root.selectedDate = date;
                return true;
            }
            function move(days: int) {
                const day = grid.dayOf(root.selectedDate);
                grid.pick(new Date(day.getFullYear(), day.getMonth(), day.getDate() + days));
            }
            // The day of that month, or its last one where it is shorter.
            function pickInMonth(year: int, month: int, day: int) {
                const last = new Date(year, month + 1, 0).getDate();
                grid.pick(new Date(year, month, Math.min(day, last)));
            }

            Layout.fillWidth: true
            Layout.fillHeight: true
            locale: root.locale
            month: root.visibleMonth
            year: root.visibleYear
            padding: 0
            spacing: 0

            delegate: Item {
                id: cell

                required property var model
                readonly property date day: new Date(cell.model.year, cell.model.month, cell.model.day)
                readonly property bool available: grid.isAvailable(cell.day)
                readonly property bool selected: cell.day.getTime() === grid.dayOf(root.selectedDate).getTime()

                Rectangle {
                    anchors.centerIn: parent
                    width: Math.min(parent.width, parent.height) - 2
                    height: width
                    radius: width / 2
                    color: cell.selected ? settings.activeColor : area.containsMouse && cell.available ? settings.highlightColor : "transparent"
                    border.width: cell.day.getTime() === grid.dayOf(timeTools.dateNow()).getTime() ? 1 : 0
                    border.color: settings.borderActiveColor
                }
                Text {
                    anchors.centerIn: parent
                    color: !cell.available ? settings.textDisabledColor : cell.selected ? settings.textHighlightColor : settings.textColor
                    font.bold: cell.selected
                    font.pixelSize: settings.fontPixelSizeHints
                    opacity: cell.model.month === root.visibleMonth ? 1 : 0.4
                    text: cell.model.day
                }
                MouseArea {
                    id: area

                    anchors.fill: parent
                    enabled: cell.available
                    hoverEnabled: true
                    onClicked: {
                        root.forceActiveFocus();
                        const day = cell.day;
                        if (grid.pick(day))
                            root.clicked(day);
                    }
                    onDoubleClicked: root.accepted()
                }
            }
        }
    }

    Rectangle {
        anchors.centerIn: parent
    }
}
