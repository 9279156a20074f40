// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import orrinsdkqml

// The host publishes `settings` and `liveEventModel`, which qmllint cannot know.
// qmllint disable unqualified

/*! The live events of all servers; a click opens a row into its details. */
Page {
    id: root

    Rectangle {
        id: title

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        height: settings.controlHeightHints + 4 * settings.controlMarginsHints
        color: settings.highlightColor

        Text {
            anchors.centerIn: parent
            color: settings.textColor
            font.pixelSize: settings.fontPixelSizeHints
            text: "Live Event Stream"
        }
    }
    ListView {
        anchors.top: title.bottom
        anchors.bottom: buttons.top
        anchors.left: parent.left
        anchors.right: parent.right
        activeFocusOnTab: true
        clip: true
        keyNavigationEnabled: true
        // Nothing is made ahead: a reset in the midst of it warns.
        cacheBuffer: 0
        reuseItems: true
        model: liveEventModel
        delegate: MouseArea {
            id: mouse

            required property var model

            width: ListView.view.width
            height: main.height + details.height + settings.controlMarginsHints
            hoverEnabled: true
            Accessible.role: Accessible.ListItem
            Accessible.name: label.text
            Keys.onReturnPressed: details.toggle()
            Keys.onEnterPressed: details.toggle()
            Keys.onSpacePressed: details.toggle()
            ListView.onPooled: details.visible = false
            onClicked: details.toggle()

            ActiveBackground {
                id: main

                anchors.left: parent.left
                anchors.right: parent.right
                height: settings.controlHeightHints + 2 * settings.controlMarginsHints
                activeColor: settings.highlightColor
                border.width: mouse.activeFocus ? 1 : 0
                border.color: settings.borderColor
                state: !mouse.containsMouse ? "normal" : mouse.pressed ? "active" : "highlight"

                ActiveLabel {
                    id: label

                    anchors.left: parent.left
                    anchors.right: icon.left
                    anchors.margins: settings.controlMarginsHints
                    anchors.verticalCenter: parent.verticalCenter
                    elide: Text.ElideRight
                    font.pixelSize: settings.fontPixelSizeHints
                    state: main.state
                    text: (mouse.model.causeString ?? "") + " on " + (mouse.model.serverName ?? "") + "-" + (mouse.model.sourceName ?? "")
                          + " at " + (mouse.model.timeString ?? "")
                    textFormat: Text.PlainText
                    textColor: mouse.model.causeColor ?? settings.textColor
                }
                ActiveIcon {
                    id: icon

                    anchors.right: parent.right
                    anchors.rightMargin: settings.controlMarginsHints
                    anchors.verticalCenter: parent.verticalCenter
                    width: settings.controlHeightHints
                    height: settings.controlHeightHints
                    source: "details"
                    state: main.state
                    iconColor: mouse.model.causeColor ?? settings.iconColor
                }
                Rectangle {
                    anchors.bottom: parent.bottom
                    anchors.left: parent.left
                    anchors.right: parent.right
                    anchors.leftMargin: 2 * settings.controlMarginsHints
                    anchors.rightMargin: 2 * settings.controlMarginsHints
                    height: 1
                    color: settings.borderColor
                }
            }
            Rectangle {
                id: details

                function toggle() {
                    details.visible = !details.visible;
                }

                anchors.top: main.bottom
                anchors.left: parent.left
                anchors.right: parent.right
                anchors.leftMargin: settings.controlMarginsHints
                anchors.rightMargin: settings.controlMarginsHints
                visible: false
                height: visible ? 8.25 * settings.controlHeightHints : 0
                clip: visible
                color: "#11FFFFFF"
                border.width: 1
                border.color: settings.textActiveColor
                radius: settings.controlRadiusHints

                Text {
                    anchors.left: parent.left
                    anchors.right: parent.right
                    anchors.margins: settings.controlMarginsHints
                    anchors.verticalCenter: parent.verticalCenter
                    color: settings.textHighlightColor
                    font.pixelSize: 0.9 * settings.fontPixelSizeHints
                    text: [
                        "Id: " + (mouse.model.id ?? ""),
                        "Source Id: " + (mouse.model.sourceId ?? ""),
                        "Source Name: " + (mouse.model.sourceName ?? ""),
                        "Text: " + (mouse.model.text ?? ""),
                        "stateCode: " + (mouse.model.stateCode ?? ""),
                        "stateString: " + (mouse.model.stateString ?? ""),
                        "timeCode: " + (mouse.model.timeCode ?? ""),
                        "timeString: " + (mouse.model.timeString ?? ""),
                        "timeZoneOffset: " + (mouse.model.timeZoneOffset ?? ""),
                        "timeZoneName: " + (mouse.model.timeZoneName ?? ""),
                        "serverUniqueId: " + (mouse.model.serverUniqueId ?? ""),
                        "serverName: " + (mouse.model.serverName ?? ""),
                        "instanceNumber: " + (mouse.model.instanceNumber ?? ""),
                        "sortId: " + (mouse.model.sortId ?? "")
                    ].join("\n")
                    textFormat: Text.PlainText
                }
            }
        }
    }
    Rectangle {
        id: buttons

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        height: settings.controlHeightHints + 2 * settings.controlMarginsHints
        color: settings.backgroundColor

        Rectangle {
            anchors.bottom: parent.top
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: 15
            anchors.rightMargin: 15
            height: 1
            color: settings.borderColor
        }
        ToolBarButton {
            id: outButton

            anchors.top: parent.top
            anchors.bottom: parent.bottom
            anchors.right: parent.right
            width: parent.height
            iconSource: "ic_exit_to_app_black_24px"
            margins: 0
            onClicked: root.closePage()
        }
    }
}
