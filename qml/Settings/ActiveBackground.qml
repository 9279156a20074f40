// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! A background that takes the colour of its state: "normal", "highlight" or "active". */
Rectangle {
    id: root

    // The host publishes `settings`, which qmllint cannot know.
    property color backgroundColor: settings.backgroundColor // qmllint disable unqualified
    property color highlightColor: settings.highlightColor // qmllint disable unqualified
    property color activeColor: settings.activeColor // qmllint disable unqualified

    state: "normal"
    states: [
        State {
            name: "normal"
            PropertyChanges { root.color: root.backgroundColor }
        },
        State {
            name: "highlight"
            PropertyChanges { root.color: root.highlightColor }
        },
        State {
            name: "active"
            PropertyChanges { root.color: root.activeColor }
        }
    ]
}
