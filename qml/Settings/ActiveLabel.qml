// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! A text that takes the colour of its state: "normal", "highlight" or "active". */
Text {
    id: root

    // The host publishes `settings`, which qmllint cannot know.
    property color textColor: settings.textColor // qmllint disable unqualified
    property color textHighlightColor: settings.textHighlightColor // qmllint disable unqualified
    property color textActiveColor: settings.textActiveColor // qmllint disable unqualified

    font.pixelSize: settings.fontPixelSizeHints // qmllint disable unqualified

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
