// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Qt5Compat.GraphicalEffects

/*! A button with a tinted icon or a text; it repeats while held, or latches as a lock button. */
MouseArea {
    id: root

    property string iconSource
    // The host publishes `settings`, which qmllint cannot know.
    property color iconColor: settings.iconColor // qmllint disable unqualified
    property color iconHighlightColor: settings.iconHighlightColor // qmllint disable unqualified
    property color iconActiveColor: settings.iconActiveColor // qmllint disable unqualified
    property color backgroundColor: settings.backgroundColor // qmllint disable unqualified
    property color highlightColor: settings.highlightColor // qmllint disable unqualified
    property int radius: settings.controlRadiusHints // qmllint disable unqualified
    property int margins: settings.controlMarginsHints // qmllint disable unqualified
    property alias text: label.text
    property real fontPixelSize: settings.fontPixelSizeHints // qmllint disable unqualified
    property bool lockButton: false
    property bool locked: false
    property int repeatTime: 200

    signal repeat
    signal activated(bool value)

    implicitWidth: (root.text === "" ? settings.controlHeightHints : label.width) + 2 * settings.controlMarginsHints // qmllint disable unqualified
    implicitHeight: settings.controlHeightHints + 2 * settings.controlMarginsHints // qmllint disable unqualified
    hoverEnabled: true

    onPressed: {
        if (root.lockButton) {
            root.locked = !root.locked;
            root.activated(root.locked);
        } else {
            timer.start();
        }
    }
    onReleased: timer.stop()
    onCanceled: timer.stop()

    QtObject {
        id: look

        readonly property color restColor: "#363a44"
        readonly property bool lit: root.lockButton ? root.locked : settings.mobile ? root.pressed : root.containsMouse // qmllint disable unqualified
        readonly property bool active: look.lit && (root.lockButton || root.pressed)
        readonly property color unlitColor: root.lockButton || settings.mobile ? look.restColor : root.backgroundColor // qmllint disable unqualified
    }
    Timer {
        id: timer

        property int ticks: 0

        interval: ticks > 20 ? root.repeatTime / 4 : ticks > 10 ? root.repeatTime / 2 : root.repeatTime
        repeat: true
        onTriggered: {
            root.repeat();
            if (running)
                ++ticks;
        }
        onRunningChanged: {
            if (!running)
                ticks = 0;
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: root.radius
        color: look.lit ? root.highlightColor : look.unlitColor
        border.width: root.iconSource === "" ? settings.borderWidthHints : 0 // qmllint disable unqualified
        border.color: settings.borderColor // qmllint disable unqualified
    }
    Image {
        id: image

        anchors.fill: overlay
        visible: false
        source: root.iconSource === "" ? "" : "qrc:/" + root.iconSource + ".svg"
        sourceSize: Qt.size(root.width, root.height)
        fillMode: Image.PreserveAspectFit
        cache: true
        smooth: true
    }
    ColorOverlay {
        id: overlay

        anchors.fill: parent
        anchors.margins: root.margins
        visible: root.text === ""
        source: image
        color: label.color
    }
    Text {
        id: label

        anchors.centerIn: parent
        font.pixelSize: root.fontPixelSize
        color: look.active ? root.iconActiveColor : look.lit ? root.iconHighlightColor : root.iconColor
    }
}
