// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Qt5Compat.GraphicalEffects

/*! A ring of eight sectors around a point. The host shows it at a press, feeds the pointer into actualX and actualY, and hides it at
    the release: activated() then tells the sector, counted clockwise from the right, or -1 for a pointer outside the ring.

    Coordinates are the parent's. */
Canvas {
    id: root

    // The host publishes `settings`, which qmllint cannot know.
    property int innerRadius: settings.controlHeightHints * 1 // qmllint disable unqualified
    property int outterRadius: settings.controlHeightHints * 2.75 // qmllint disable unqualified
    property int iconRadius: settings.controlHeightHints // qmllint disable unqualified
    property int originX: 0
    property int originY: 0
    property int actualX: 0
    property int actualY: 0
    property int itemActivated: -1
    property alias model: repeater.model
    property int offsetFactor: root.innerRadius / 10
    property var offsetX: [1, 0.707106781, 0, -0.707106781, -1, -0.707106781, 0, 0.707106781]
    property var offsetY: [0, 0.707106781, 1, 0.707106781, 0, -0.707106781, -1, -0.707106781]
    property var angles: [-Math.PI / 8, Math.PI / 8, 3 * Math.PI / 8, 5 * Math.PI / 8, 7 * Math.PI / 8, 9 * Math.PI / 8,
        11 * Math.PI / 8, 13 * Math.PI / 8, 15 * Math.PI / 8]

    signal activated(int itemActivated)

    visible: false
    width: 2 * root.outterRadius + 2 * root.offsetFactor
    height: root.width

    onOriginXChanged: root.x = root.originX - root.width / 2
    onOriginYChanged: root.y = root.originY - root.height / 2
    onActualXChanged: root.requestPaint()
    onActualYChanged: root.requestPaint()
    onVisibleChanged: {
        root.requestPaint();
        if (!root.visible)
            root.activated(root.itemActivated);
    }
    Component.onCompleted: {
        // An origin that came with the declaration was there before the size.
        if (root.originX !== 0)
            root.x = root.originX - root.width / 2;
        if (root.originY !== 0)
            root.y = root.originY - root.height / 2;
    }
    onPaint: {
        const context = root.getContext("2d");
        context.clearRect(0, 0, root.width, root.height);
        root.select();
        for (let i = 0; i < 8; ++i)
            root.paintSector(context, i);
    }

    function select() {
        const dx = root.originX - root.actualX;
        const dy = root.originY - root.actualY;
        const sector = Math.ceil(4 + 8 * (Math.atan2(dy, dx) - Math.PI / 8) / (2 * Math.PI)) % 8;
        const distance = Math.sqrt(dx * dx + dy * dy);
        root.itemActivated = distance >= root.innerRadius && distance <= root.outterRadius ? sector : -1;
    }

    function paintSector(context: var, i: int) {
        const x = root.width / 2 + root.offsetFactor * root.offsetX[i];
        const y = root.height / 2 + root.offsetFactor * root.offsetY[i];
        context.beginPath();
        context.fillStyle = root.itemActivated === i ? "#DDDDDD" : "#888888";
        context.strokeStyle = settings.borderColor; // qmllint disable unqualified
        context.arc(x, y, root.outterRadius, root.angles[i], root.angles[i + 1], false);
        context.arc(x, y, root.innerRadius, root.angles[i + 1], root.angles[i], true);
        context.closePath();
        context.fill();
        context.stroke();
    }

    Repeater {
        id: repeater

        model: []
        delegate: Item {
            id: icon

            required property int index
            required property string modelData

            width: root.iconRadius
            height: root.iconRadius
            x: root.width / 2 + (root.outterRadius + root.innerRadius) * 0.5 - icon.width / 2
               + root.offsetX[icon.index] * root.offsetFactor
            y: root.height / 2 - root.innerRadius / 2 + root.offsetY[icon.index] * root.offsetFactor
            transform: [
                // Upright first, then into its sector; the 2 is a fixed adjustment.
                Rotation {
                    angle: -45 * icon.index
                    origin.x: icon.width / 2
                    origin.y: icon.height / 2
                },
                Rotation {
                    angle: 45 * icon.index
                    origin.x: -(root.outterRadius + root.innerRadius) / 2 + icon.width / 2 - 2
                    origin.y: icon.height / 2
                }
            ]

            Image {
                id: image

                visible: false
                smooth: true
                source: icon.modelData + ".svg"
                sourceSize: Qt.size(icon.width, icon.height)
            }

            ColorOverlay {
                anchors.fill: parent
                source: image
                color: root.itemActivated === icon.index ? settings.iconActiveColor : settings.iconColor // qmllint disable unqualified
            }
        }
    }
}
