// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton

import QtQuick

// Colours and sizes of the viewer: dark, calm, readable from a distance.
QtObject {
    readonly property color background: "#14171c"
    readonly property color surface: "#1e232b"
    readonly property color raised: "#2a313c"
    readonly property color outline: "#3a4350"
    readonly property color text: "#eef1f5"
    readonly property color dimText: "#a3adba"
    readonly property color accent: "#4da3ff"
    readonly property color danger: "#ff7a70"
    readonly property color good: "#5fd38d"
    readonly property color recorded: "#3d7fc4"
    readonly property color scale: "#98a3b0"
    readonly property color dim: "#b0000000"
    readonly property color playhead: "#ffb74d"
    readonly property color live: "#b3302f"

    readonly property int gap: 8
    readonly property int margin: 24
    readonly property int radius: 6
    readonly property int controlHeight: 48
    readonly property int smallText: 14
    readonly property int normalText: 17
    readonly property int titleText: 28
}
