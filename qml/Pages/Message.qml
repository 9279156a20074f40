// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! A short message that fades in, stays for a while and fades out. */
Rectangle {
    id: root

    property alias text: label.text

    // The host publishes `settings`, which qmllint cannot know.
    implicitHeight: label.height + 2 * settings.controlMarginsHints // qmllint disable unqualified
    color: settings.backgroundColor // qmllint disable unqualified
    border.width: settings.borderWidthHints // qmllint disable unqualified
    border.color: settings.borderColor // qmllint disable unqualified

    state: "transparent"
    states: [
        State {
            name: "transparent"
            PropertyChanges { root.opacity: 0.0 }
        },
        State {
            name: "opaque"
            PropertyChanges { root.opacity: 1.0 }
        }
    ]
    transitions: [
        Transition {
            from: "transparent"
            to: "opaque"
            OpacityAnimator { duration: 200 }
        },
        Transition {
            from: "opaque"
            to: "transparent"
            OpacityAnimator { duration: 1000 }
        }
    ]

    /*! Shows \a text for a second; the empty text ends the message. */
    function setText(text: string) {
        root.setTextWithTime(text, 1000);
    }
    /*! Shows \a text for \a time milliseconds before it fades; the empty text lets the shown one fade at once. */
    function setTextWithTime(text: string, time: int) {
        if (text === "") {
            root.state = "transparent";
            timer.stop();
        } else {
            timer.interval = time;
            label.text = text;
            root.state = "opaque";
            timer.restart();
        }
    }

    Timer {
        id: timer

        interval: 1000
        onTriggered: root.setText("")
    }
    Text {
        id: label

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: settings.controlMarginsHints // qmllint disable unqualified
        color: settings.textColor // qmllint disable unqualified
        font.pixelSize: settings.fontPixelSizeHints // qmllint disable unqualified
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }
}
