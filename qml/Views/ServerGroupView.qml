// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import orrinsdkqml

// The host publishes `settings`, which qmllint cannot know.
// qmllint disable unqualified

/*! The server groups of all logins; a click opens a row into its details. */
ListView {
    activeFocusOnTab: true
    keyNavigationEnabled: true
    // Nothing is made ahead: a reset in the midst of it warns.
    cacheBuffer: 0
    reuseItems: true
    model: ServerGroupModel {}
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
                text: "Server Group Id: " + (mouse.model.serverGroupId ?? "")
                textFormat: Text.PlainText
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
            height: visible ? 1.5 * settings.controlHeightHints : 0
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
                    "Server Group Id: " + (mouse.model.serverGroupId ?? ""),
                    "Hosts: " + (mouse.model.hosts ?? "")
                ].join("\n")
                textFormat: Text.PlainText
            }
        }
    }
}
