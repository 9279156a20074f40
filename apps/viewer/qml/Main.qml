// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import orrinsdkqml

ApplicationWindow {
    id: root

    required property StartOptions options

    // What the tour looks at.
    readonly property string tourPage: pages.currentItem?.objectName ?? ""
    readonly property bool tourReady: pages.busy ? false
                                      : tourPage === "live" ? liveSettled : tourPage === "login"
    readonly property string tourStatus: tourPage === "live" ? livePictures + " of " + liveWanted + " pictures" : loginPage.errorText
    property int livePictures: 0
    property int liveWanted: 0
    property bool liveSettled: false

    function tourNext() {
        if (tourPage === "login")
            loginPage.login();
    }

    width: 1280
    height: 800
    minimumWidth: 360
    minimumHeight: 480
    visible: true
    title: qsTr("Orrin Viewer")
    color: ViewerStyle.background

    Material.theme: Material.Dark
    Material.accent: ViewerStyle.accent
    Material.background: ViewerStyle.background
    Material.foreground: ViewerStyle.text

    Component.onCompleted: {
        loginPage.host = root.options.server;
        loginPage.user = root.options.user;
        loginPage.password = root.options.takePassword();
        loginPage.focusFirstEmpty();
        if (!root.options.headless && loginPage.host !== "" && loginPage.user !== "" && loginPage.password !== "")
            loginPage.login();
    }

    Shortcut {
        enabled: root.options.developer
        sequence: "Ctrl+G"
        onActivated: {
            if (pages.currentItem?.objectName === "gallery")
                pages.pop();
            else
                pages.push(gallery);
        }
    }
    ConnectionManager {
        id: session
    }
    StackView {
        id: pages

        anchors.fill: parent
        initialItem: LoginPage {
            id: loginPage

            objectName: "login"
            onLoggedIn: {
                if (pages.depth === 1)
                    pages.push(live);
            }
        }
    }
    // The tiles show pictures before the last recorder of the site has told its cameras.
    Timer {
        interval: 1500
        running: root.livePictures > 0 && root.livePictures === root.liveWanted
        onTriggered: root.liveSettled = true
    }
    Component {
        id: gallery

        Flickable {
            objectName: "gallery"
            contentHeight: components.contentHeight

            Gallery {
                id: components

                width: parent.width
                height: Math.max(contentHeight, root.height)
            }
        }
    }
    Component {
        id: live

        LivePage {
            objectName: "live"
            onShowingPicturesChanged: root.livePictures = showingPictures
            onWantedPicturesChanged: root.liveWanted = wantedPictures
            Component.onCompleted: root.liveWanted = wantedPictures
            onLogoutRequested: {
                session.disconnectServers();
                pages.pop();
            }
        }
    }
}
