// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
// The base type comes from the host: Qt 6 ships none. Only a use of this component needs it.
import QtQuick.Controls.Styles // qmllint disable import

/*! Scroll bar style of the older views: a flat handle on black, without arrows. */
ScrollViewStyle { // qmllint disable import unresolved-type
    id: root

    property var backgroundWidth: 0
    property var backgroundHeight: 0

    scrollBarBackground: Rectangle {
        width: root.backgroundWidth
        height: root.backgroundHeight
        color: "black"
    }
    incrementControl: Item {}
    decrementControl: Item {}
    handle: Item {
        // The host publishes `settings`, which qmllint cannot know.
        implicitWidth: 12 * settings.devicePixelRatio // qmllint disable unqualified
        implicitHeight: 3 * settings.devicePixelRatio // qmllint disable unqualified

        Rectangle {
            anchors.fill: parent
            color: "darkGray"
        }
    }
}
