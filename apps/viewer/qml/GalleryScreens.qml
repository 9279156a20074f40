// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import orrinsdkqml

// Panels, pages, bars and layouts.
Column {
    id: root

    spacing: Theme.veryWideSpacing

    GallerySection {
        caption: "TransparentDialog: default and framed; BusySpinner; LoadingCircle"

        Rectangle {
            width: 480
            height: 150

            gradient: Gradient {
                orientation: Gradient.Horizontal
                GradientStop { position: 0; color: Theme.green }
                GradientStop { position: 1; color: Theme.yellow }
            }

            TransparentDialog {
                x: 15
                y: 25
                width: 200
                height: 100

                O_Label {
                    anchors.centerIn: parent
                    color: Theme.white
                    text: qsTr("Over video")
                }
            }
            TransparentDialog {
                x: 265
                y: 25
                width: 200
                height: 100
                backgroundColor: Theme.blackOne
                backgroundOpacity: 0.8
                border.color: Theme.yellowGreen
                border.width: 3
            }
        }
        Rectangle {
            width: 200
            height: 150
            color: Theme.grayBlue

            BusySpinner {
                anchors.fill: parent
                busy: true
            }
        }
        Item {
            width: ring.width
            height: ring.height

            LoadingCircle {
                id: ring

                onCompleted: ring.start(4000)
                Component.onCompleted: ring.start(4000)
            }
        }
    }
    GallerySection {
        caption: "Title, TitleStack, Message"

        Title {
            width: 300
            text: qsTr("<b>Rich</b> heading")
        }
        TitleStack {
            width: 300

            Title { text: qsTr("First of a stack") }
            Title { text: qsTr("Second of a stack") }
        }
        Message {
            width: 300
            Component.onCompleted: setTextWithTime(qsTr("Snapshot saved"), 24 * 3600 * 1000)
        }
    }
    GallerySection {
        caption: "Toolbar, ToolbarStack"

        Toolbar {
            ToolBarButton { iconSource: "arrow_left" }
            ToolBarButton { iconSource: "settings" }
            ToolBarButton { text: qsTr("Statistics") }
            ToolBarButton { iconSource: "arrow_right" }
        }
        ToolbarStack {
            spacing: Theme.defaultSpacing

            Toolbar {
                ToolBarButton { iconSource: "Playback_Rewind" }
                ToolBarButton { iconSource: "Playback_PlayPause" }
                ToolBarButton { iconSource: "Playback_FastForward" }
            }
            Toolbar {
                ToolBarButton { iconSource: "Playback_Live" }
                ToolBarButton { iconSource: "details" }
            }
        }
    }
    GallerySection {
        caption: "ScreenPreview: plain, selected, empty; LayoutSelector; LayoutSelection"

        Repeater {
            model: 3

            ScreenPreview {
                required property int index

                width: 120
                height: 80
                row: index < 2 ? 2 : 0
                column: 3
                selected: index === 1
            }
        }
        LayoutSelector {
            width: 300
            height: 200
        }
        LayoutSelection {
            width: 300
            height: 200
            rows: 2
            columns: 3
        }
    }
    GallerySection {
        caption: "Theme"

        Repeater {
            model: ["white", "orrinworksBlue", "darkBlue", "lightBlue", "blackOne", "blackTwo", "gray", "grayBlue", "green",
                    "yellowGreen", "yellow", "darkGray"]

            Rectangle {
                required property string modelData

                width: 140
                height: 40
                radius: Theme.borderRadius
                color: Theme[modelData]
                border.width: Theme.borderWidth
                border.color: Theme.borderColor

                Text {
                    anchors.centerIn: parent
                    color: parent.color.g > 0.6 ? "black" : "white"
                    text: parent.modelData
                }
            }
        }
    }
    GallerySection {
        caption: "O_StyleSheet: devices of 320 and 480 pixels"

        Repeater {
            model: [320, 480]

            Rectangle {
                id: field

                required property int modelData

                width: sheet.loginTextInputWidth
                height: sheet.comboHeight
                color: "transparent"
                border.width: sheet.comboBorder
                border.color: Theme.lightBlue

                O_StyleSheet {
                    id: sheet

                    Component.onCompleted: sheet.initWithDeviceModel("phone", field.modelData, 2 * field.modelData)
                }
                Text {
                    anchors.centerIn: parent
                    color: Theme.white
                    font.pixelSize: sheet.inputFontPixelSize
                    text: qsTr("factor %1").arg(sheet.factor)
                }
            }
        }
    }
    GallerySection {
        caption: "Images"

        Repeater {
            model: ["arrow_left", "arrow_right", "details", "ic_exit_to_app_black_24px", "ptzf", "settings",
                    "Playback_Rewind", "Playback_Rewind_Active", "Playback_PlayPause", "Playback_PlayPause_Active_1",
                    "Playback_PlayPause_Active_2", "Playback_Live", "Playback_Live_Active", "Playback_FastForward",
                    "Playback_FastForward_Active", "orrinsdk/widgets/images/Cross_Icon",
                    "orrinsdk/widgets/images/ptzf/PTZF_DownArrowButton_Normal"]

            Image {
                required property string modelData

                source: "qrc:/" + modelData + ".svg"
                sourceSize: Qt.size(48, 48)
            }
        }
    }
}
