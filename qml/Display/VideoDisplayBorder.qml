// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! A frame around a tile that was chosen. It stays for a while and fades. */
Item {
    id: root

    property alias fadeStartDelay: timer.interval
    property alias fadeDuration: fade.duration
    property alias borderColor: highlight.border.color
    property alias borderWidth: highlight.border.width
    property alias highlighted: highlight.highlighted

    function doHighlight() {
        fade.stop();
        highlight.highlighted = true;
        highlight.opacity = 1.0;
        timer.restart();
    }

    Rectangle {
        id: highlight

        property bool highlighted: false

        anchors.fill: parent
        visible: highlighted
        color: "transparent"
        border.color: Theme.orrinworksBlue
        border.width: 2

        // It also runs once at the start, on the hidden frame: who writes `highlighted` instead of calling doHighlight() sees no frame.
        NumberAnimation on opacity {
            id: fade

            from: 1.0
            to: 0.0
            duration: 2000
            onFinished: {
                timer.stop();
                highlight.highlighted = false;
            }
        }
    }
    Timer {
        id: timer

        interval: 5000
        onTriggered: fade.start()
    }
}
