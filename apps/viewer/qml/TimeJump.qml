// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import orrinsdkqml

// Asks for a moment to jump to. The page of the module lies in a popup and closes it by closing itself.
Item {
    id: root

    objectName: "timeJump"

    readonly property alias opened: popup.opened
    // The beginning of the recording in milliseconds since the epoch, and the zone of its server; days before it are grey.
    property real trackBeginning: -1
    property var timeZone

    // The moment in the zone of this computer.
    signal accepted(date time)
    signal closed()

    function open() {
        pages.sourceComponent = page;
        popup.open();
    }
    function close() {
        popup.close();
    }

    Component {
        id: page

        DatetimeSelection {
            id: selection

            loader: pages
            trackBeginning: root.trackBeginning
            timeZone: root.timeZone
            onDatetimeSelected: {
                const day = selection.selectedDate;
                // A day without a time stands at midnight UTC.
                const utc = day.getTime() % 86400000 === 0;
                root.accepted(utc ? new Date(day.getUTCFullYear(), day.getUTCMonth(), day.getUTCDate(), selection.hour, selection.minute, selection.second)
                                  : new Date(day.getFullYear(), day.getMonth(), day.getDate(), selection.hour, selection.minute, selection.second));
            }
        }
    }
    Popup {
        id: popup

        parent: Overlay.overlay
        anchors.centerIn: parent
        width: Math.min(520, (parent?.width ?? 0) - 2 * ViewerStyle.gap)
        height: Math.min(480, (parent?.height ?? 0) - 2 * ViewerStyle.gap)
        focus: true
        modal: true
        Overlay.modal: Rectangle {
            color: ViewerStyle.dim
        }
        padding: 1
        background: Rectangle {
            color: ViewerStyle.surface
            border.color: ViewerStyle.outline
        }
        contentItem: Loader {
            id: pages

            focus: true
            onItemChanged: {
                if (!pages.item)
                    popup.close();
            }
        }
        onClosed: {
            pages.sourceComponent = undefined;
            root.closed();
        }
    }
}
