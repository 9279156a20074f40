// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! A background that takes the colour of its state: "normal", "highlight" or "active". */
Rectangle {
    id: root

    // qmllint disable unqualified
    property color backgroundColor: settings.backgroundColor
    property color highlightColor: settings.highlightColor
    property color activeColor: settings.activeColor
    // qmllint enable unqualified

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
