// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import orrinsdkqml

// The host publishes `settings`, which qmllint cannot know.
// qmllint disable unqualified

/*! The servers of all groups; a click opens a row into its details.

    A role that the model lacks shows as an empty value. */
ListView {
    activeFocusOnTab: true
    keyNavigationEnabled: true
    // Nothing is made ahead: a reset in the midst of it warns.
    cacheBuffer: 0
    reuseItems: true
    model: ServerModel {}
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
                text: mouse.model.name ?? ""
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
            height: visible ? 9 * settings.controlHeightHints : 0
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
                    "Server Id: " + (mouse.model.serverId ?? ""),
                    "Unique Id: " + (mouse.model.uniqueId ?? ""),
                    "Server Name: " + (mouse.model.name ?? ""),
                    "IP Adress: " + (mouse.model.ip ?? ""),
                    "Hosts: " + (mouse.model.host ?? ""),
                    "Camera Count: " + (mouse.model.cameraCount ?? ""),
                    "Version: " + (mouse.model.version ?? ""),
                    "Major Version: " + (mouse.model.majorVersion ?? ""),
                    "Minor Version: " + (mouse.model.minorVersion ?? ""),
                    "Build Version: " + (mouse.model.buildVersion ?? ""),
                    "User Id: " + (mouse.model.userId ?? ""),
                    "User Name: " + (mouse.model.userName ?? ""),
                    "User Level: " + (mouse.model.userLevel ?? ""),
                    "User Privileges: " + (mouse.model.userPrivileges ?? "")
                ].join("\n")
                textFormat: Text.PlainText
            }
        }
    }
}
