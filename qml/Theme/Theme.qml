// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton

import QtQuick

/*! The colours and metrics of the newer components. */
QtObject {
    id: root

    readonly property color defaultIconColor: root.white
    readonly property color defaultTextColor: root.white
    readonly property color defaultMaterialAccentColor: root.orrinworksBlue
    readonly property color defaultMaterialForegroundColor: root.white

    readonly property color borderColor: root.darkGray
    readonly property color borderSelectedColor: root.grayBlue
    readonly property int borderWidth: 2
    readonly property int borderRadius: 4

    readonly property int defaultSpacing: 4
    readonly property int wideSpacing: 12
    readonly property int veryWideSpacing: 16
    readonly property int defaultMargins: 3
    readonly property int wideMargins: 8
    readonly property int veryWideMargins: 16

    readonly property color white: "white"
    readonly property color orrinworksBlue: "#0777BC"
    readonly property color darkBlue: "#043C5E"
    readonly property color lightBlue: "#D1ECFF"
    readonly property color blackOne: "#1A1B1F"
    readonly property color blackTwo: "#16222A"
    readonly property color gray: "#7F898C"
    readonly property color grayBlue: "#3A6073"
    readonly property color green: "#006344"
    readonly property color yellowGreen: "#B6C61A"
    readonly property color yellow: "#E0EC6F"
    readonly property color darkGray: "#434c4e"
}
