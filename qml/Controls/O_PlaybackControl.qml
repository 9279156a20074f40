// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick

/*! An older transport bar of four icons. It drives the host's `receiver`, keeps its state in the host's `streamingInfo.state`, and
    frames its hot spots while the host's `test.enableHotspotTest` is true. The icons are the host's, at the root of its resources. */
// The host publishes settings, receiver, streamingInfo and test, which qmllint cannot know.
// qmllint disable unqualified
Rectangle {
    id: root

    readonly property real dpr: settings.devicePixelRatio

    width: parent.width
    height: 74 * root.dpr
    color: "transparent"

    Timer {
        id: repeatTimer

        interval: 400
        repeat: true
        triggeredOnStart: true
        onTriggered: {
            if (streamingInfo.state === "rewind")
                receiver.rewind();
            else if (streamingInfo.state === "forward")
                receiver.forward();
        }
    }

    ListModel {
        id: icons

        ListElement {
            name: "rewind"
            icon: "Playback_Rewind.svg"
            iconActive: "Playback_Rewind_Active.svg"
            iconActive2: ""
            iconWidth: 29
            iconHeight: 20
        }
        ListElement {
            name: "play"
            icon: "Playback_PlayPause.svg"
            iconActive: "Playback_PlayPause_Active_1.svg"
            iconActive2: "Playback_PlayPause_Active_2.svg"
            iconWidth: 40
            iconHeight: 40
        }
        ListElement {
            name: "live"
            icon: "Playback_Live.svg"
            iconActive: "Playback_Live_Active.svg"
            iconActive2: ""
            iconWidth: 20
            iconHeight: 20
        }
        ListElement {
            name: "forward"
            icon: "Playback_FastForward.svg"
            iconActive: "Playback_FastForward_Active.svg"
            iconActive2: ""
            iconWidth: 29
            iconHeight: 20
        }
    }

    Item {
        anchors.centerIn: parent
        width: parent.width
        height: 40 * root.dpr

        ListView {
            anchors.centerIn: parent
            width: (32 * 3 + count * 40) * root.dpr
            height: parent.height
            orientation: ListView.Horizontal
            spacing: 32 * root.dpr
            focus: true
            model: icons
            delegate: Item {
                id: button

                required property string name
                required property string icon
                required property string iconActive
                required property string iconActive2
                required property int iconWidth
                required property int iconHeight
                readonly property bool seeks: button.name === "rewind" || button.name === "forward"

                width: 40 * root.dpr
                height: 40 * root.dpr

                function currentIcon(): string {
                    if (streamingInfo.state === button.name)
                        return button.iconActive;
                    return button.name === "play" && streamingInfo.state === "paused" ? button.iconActive2 : button.icon;
                }

                function press() {
                    switch (button.name) {
                    case "rewind":
                        receiver.stepBack();
                        break;
                    case "forward":
                        receiver.stepForward();
                        break;
                    case "live":
                        receiver.live();
                        streamingInfo.state = "live";
                        return;
                    case "play":
                        if (streamingInfo.state !== "play") {
                            receiver.play();
                            streamingInfo.state = "play";
                        } else {
                            receiver.pause();
                            streamingInfo.state = "paused";
                        }
                        return;
                    }
                    button.show(button.iconActive);
                    streamingInfo.state = "paused";
                }

                function hold() {
                    if (!button.seeks)
                        return;
                    streamingInfo.state = button.name;
                    button.show(button.iconActive);
                    repeatTimer.start();
                }

                function release() {
                    if (!button.seeks)
                        return;
                    button.show(button.icon);
                    repeatTimer.stop();
                }

                // Ends the binding to the state: from here on this icon changes by press and release alone.
                function show(file: string) {
                    iconArea.source = "qrc:/" + file;
                }

                Image {
                    id: iconArea

                    anchors.centerIn: parent
                    source: "qrc:/" + button.currentIcon()
                    sourceSize: Qt.size(button.iconWidth * root.dpr, button.iconHeight * root.dpr)
                }

                Rectangle {
                    anchors.fill: parent
                    color: "transparent"
                    border.color: test.enableHotspotTest ? "red" : "transparent"

                    MouseArea {
                        anchors.fill: parent
                        onPressed: button.press()
                        onPressAndHold: button.hold()
                        onReleased: button.release()
                        onCanceled: button.release()
                    }
                }
            }
        }
    }
}
