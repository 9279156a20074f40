// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import orrinsdkqml

// The host publishes `settings`, which qmllint cannot know.
// qmllint disable unqualified

/*! A page that asks for a camera, with a filter over the names.

    A row that is no camera takes no room. */
Page {
    id: root

    property var model

    /*! \a modelIndex is the row of the list as it is filtered. */
    signal channelSelected(int modelIndex)

    SortFilterProxyModel {
        id: proxyModel

        model: root.model
        filterRole: "name"
        filterRegExp: input.text
    }
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
            text: qsTr("Channel Selection")
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
        model: proxyModel
        section.property: "serverName"
        section.delegate: Item {
            id: header

            required property string section

            width: root.width
            height: settings.controlHeightHints

            ActiveBackground {
                anchors.fill: parent
                state: "highlight"
            }
            ActiveLabel {
                anchors.centerIn: parent
                width: Math.min(implicitWidth, parent.width)
                elide: Text.ElideRight
                state: "highlight"
                text: header.section
                textFormat: Text.PlainText
            }
        }
        delegate: Item {
            id: row

            required property var model
            required property int index
            readonly property bool isCamera: row.model.isCamera === true

            function choose() {
                root.channelSelected(row.index);
                root.closePage();
            }

            width: root.width
            height: row.isCamera ? settings.controlHeightHints + 2 * settings.controlMarginsHints : 0
            visible: row.isCamera
            Accessible.role: Accessible.ListItem
            Accessible.name: label.text
            Keys.onReturnPressed: row.choose()
            Keys.onEnterPressed: row.choose()

            ActiveBackground {
                anchors.fill: parent
                border.width: row.activeFocus ? 1 : 0
                border.color: settings.borderColor
                state: !mouse.containsMouse ? "normal" : mouse.pressed ? "active" : "highlight"
            }
            ActiveLabel {
                id: label

                anchors.left: parent.left
                anchors.right: ptzfIcon.left
                anchors.margins: settings.controlMarginsHints
                anchors.verticalCenter: parent.verticalCenter
                elide: Text.ElideRight
                // The reverse of the background's, so that the text stands out from it.
                state: !mouse.containsMouse ? "normal" : mouse.pressed ? "highlight" : "active"
                text: (row.model.sortId ?? "") + " - " + (row.model.name ?? "")
                textFormat: Text.PlainText
            }
            ActiveIcon {
                id: ptzfIcon

                anchors.top: parent.top
                anchors.bottom: parent.bottom
                anchors.right: parent.right
                anchors.margins: settings.controlMarginsHints
                width: height
                source: "ptzf"
                state: label.state
                visible: row.model.hasPtzf === true
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
            MouseArea {
                id: mouse

                anchors.fill: parent
                hoverEnabled: true
                onClicked: row.choose()
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
        O_TextInput {
            id: input

            anchors.left: parent.left
            anchors.right: outButton.left
            anchors.margins: settings.controlMarginsHints
            anchors.verticalCenter: parent.verticalCenter
            height: inputHeight
            inputHeight: settings.controlHeightHints
            inputPixelSize: settings.fontPixelSizeHints
            margins: 0
            text: ""
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
