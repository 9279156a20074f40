// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import orrinsdkqml

// The host publishes `settings` and `devMode`, which qmllint cannot know.
// qmllint disable unqualified

/*! A page with a menu of settings pages, and of details for developers where the host's `devMode` is set. */
Page {
    id: root

    ListModel {
        id: pages

        ListElement { title: "General Settings"; page: "GeneralSettingsPage.qml"; textColor: "white" }
        ListElement { title: "Security"; page: "SecuritySettingsPage.qml"; textColor: "white" }
        ListElement { title: "Subtitles"; page: "SubtitlesSettingsPage.qml"; textColor: "white" }
        ListElement { title: "Layout"; page: "LayoutSettingsPage.qml"; textColor: "white" }

        Component.onCompleted: {
            if (typeof devMode === "undefined" || !devMode)
                return;
            for (const [title, page] of [["Log Level", "LogSettingsPage.qml"], ["System Info", "InfoSettingsPage.qml"],
                                         ["Server Group Details", "ServerGroupView.qml"], ["Server Details", "ServerView.qml"],
                                         ["Channels Details", "ChannelView.qml"]])
                pages.append({ title, page, textColor: "red" });
        }
    }
    Rectangle {
        id: title

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        height: settings.controlHeightHints + 4 * settings.controlMarginsHints
        color: settings.highlightColor

        Text {
            id: titleLabel

            anchors.centerIn: parent
            color: settings.textColor
            font.pixelSize: settings.fontPixelSizeHints
        }
    }
    StackView {
        id: stackView

        // The lists of details lie beside the other views.
        function urlOf(page: string): url {
            return Qt.resolvedUrl(page.endsWith("View.qml") ? "../Views/" + page : page);
        }
        function openPage(title: string, page: string) {
            titleLabel.text = title;
            stackView.push(stackView.urlOf(page));
        }

        anchors.top: title.bottom
        anchors.bottom: buttons.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: settings.controlMarginsHints
        clip: true
        initialItem: menu
        onDepthChanged: {
            if (depth === 1)
                titleLabel.text = "Settings Page";
        }
    }
    Component {
        id: menu

        ListView {
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            focus: true
            keyNavigationEnabled: true
            model: pages
            delegate: ActiveBackground {
                id: row

                required property string title
                required property string page
                required property string textColor

                width: ListView.view.width
                height: settings.controlHeightHints + 1
                activeColor: settings.highlightColor
                border.width: row.activeFocus ? 1 : 0
                border.color: settings.borderColor
                state: !mouse.containsMouse ? "normal" : mouse.pressed ? "active" : "highlight"
                Accessible.role: Accessible.ListItem
                Accessible.name: row.title
                Keys.onReturnPressed: stackView.openPage(row.title, row.page)
                Keys.onEnterPressed: stackView.openPage(row.title, row.page)

                ActiveLabel {
                    anchors.left: parent.left
                    anchors.leftMargin: settings.controlMarginsHints
                    anchors.verticalCenter: parent.verticalCenter
                    state: row.state
                    text: row.title
                    textColor: row.textColor
                }
                Rectangle {
                    anchors.bottom: parent.bottom
                    anchors.left: parent.left
                    anchors.right: parent.right
                    height: 1
                    color: settings.borderColor
                }
                ActiveIcon {
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    width: settings.controlHeightHints
                    height: settings.controlHeightHints
                    source: "arrow_right"
                    state: row.state
                }
                MouseArea {
                    id: mouse

                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: stackView.openPage(row.title, row.page)
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
            id: backButton

            anchors.top: parent.top
            anchors.bottom: parent.bottom
            anchors.left: parent.left
            width: opacity === 1 ? parent.height : 0
            iconSource: "arrow_left"
            margins: 0
            opacity: stackView.depth > 1 ? 1 : 0
            onClicked: stackView.pop()
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
