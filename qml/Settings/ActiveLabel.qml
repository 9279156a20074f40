// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! A text that takes the colour of its state: "normal", "highlight" or "active". */
Text {
    id: root

    // qmllint disable unqualified
    property color textColor: settings.textColor
    property color textHighlightColor: settings.textHighlightColor
    property color textActiveColor: settings.textActiveColor

    font.pixelSize: settings.fontPixelSizeHints
    // qmllint enable unqualified

    state: "normal"
    states: [
        State {
            name: "normal"
            PropertyChanges { root.color: root.textColor }
        },
        State {
            name: "highlight"
            PropertyChanges { root.color: root.textHighlightColor }
        },
        State {
            name: "active"
            PropertyChanges { root.color: root.textActiveColor }
        }
    ]
}
