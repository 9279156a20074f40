// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Effects

/*! An icon whose effect holds the colour of its state: "normal", "highlight" or "active".

    The strength of the effect stays at its default of 0, so that the icon shows the colours of its image. */
Item {
    id: root

    property color iconColor: "orange"
    property color iconHighlightColor: "green"
    property color iconActiveColor: "blue"
    property string source
    property alias sourceSize: image.sourceSize

    state: "normal"
    states: [
        State {
            name: "normal"
            PropertyChanges { effect.colorizationColor: root.iconColor }
        },
        State {
            name: "highlight"
            PropertyChanges { effect.colorizationColor: root.iconHighlightColor }
        },
        State {
            name: "active"
            PropertyChanges { effect.colorizationColor: root.iconActiveColor }
        }
    ]

    Image {
        id: image

        anchors.fill: parent
        visible: false
        smooth: true
        source: "qrc:/" + root.source + ".svg"
        sourceSize: Qt.size(root.width, root.height)
    }

    MultiEffect {
        id: effect

        anchors.fill: parent
        source: image
    }
}
