// SPDX-License-Identifier: GPL-3.0-or-later
import QtCore
import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import orrinsdkqml

ApplicationWindow {
    id: root

    required property StartOptions options
    property Shell shell: null

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

    // The shell has pages of its own by that name, so that it cannot push here itself.
    function addSite() {
        pages.push(siteLogin);
    }
    function logOut() {
        session.disconnectServers();
        pages.pop(null);
        loginPage.focusFirstEmpty();
    }

    function movedOrSized() {
        if (!root.options.headless)
            keepPlace.restart();
    }
    function restorePlace() {
        if (root.options.size.width > 0) {
            root.width = root.options.size.width;
            root.height = root.options.size.height;
            return;
        }
        if (root.options.headless || place.wide < root.minimumWidth || place.high < root.minimumHeight)
            return;
        root.width = Math.min(place.wide, root.Screen.desktopAvailableWidth);
        root.height = Math.min(place.high, root.Screen.desktopAvailableHeight);
        // Back on a screen that is no longer there the window could not be reached.
        if (place.left >= 0 && place.left < root.Screen.desktopAvailableWidth - 100 && place.top >= 0 && place.top < root.Screen.desktopAvailableHeight - 100) {
            root.x = place.left;
            root.y = place.top;
        }
    }

    onXChanged: root.movedOrSized()
    onYChanged: root.movedOrSized()
    onWidthChanged: root.movedOrSized()
    onHeightChanged: root.movedOrSized()
    Component.onCompleted: {
        root.restorePlace();
        if (root.options.fullscreen)
            root.visibility = Window.FullScreen;
        const last = settings.lastConnectedServer; // qmllint disable unqualified
        loginPage.host = root.options.server !== "" ? root.options.server : last[0] ?? "";
        loginPage.user = root.options.user !== "" ? root.options.user : last[1] ?? "";
        loginPage.password = root.options.takePassword();
        loginPage.focusFirstEmpty();
        if (!root.options.headless && loginPage.host !== "" && loginPage.user !== "" && loginPage.password !== "")
            loginPage.login();
    }

    // Where the window stood comes back with the next start, also after a crash; a tour always begins alike.
    Settings {
        id: place

        property int left: -1
        property int top: -1
        property int wide: 0
        property int high: 0

        category: "Window"
    }
    Timer {
        id: keepPlace

        interval: 500
        onTriggered: {
            if (root.visibility !== Window.Windowed)
                return;
            place.left = root.x;
            place.top = root.y;
            place.wide = root.width;
            place.high = root.height;
        }
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
    Shortcut {
        sequences: [StandardKey.Quit]
        onActivated: root.close()
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
                    pages.push(shellPage);
            }
        }
    }
    TourScript {
        id: tour

        objectName: "tour"
        loginPage: loginPage
        shell: root.shell
        pages: pages
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
        id: shellPage

        Shell {
            id: made

            objectName: "shell"
            Component.onCompleted: root.shell = made
            Component.onDestruction: root.shell = null
            startLayout: root.options.layout
            onLogoutRequested: root.logOut()
            onSiteRequested: root.addSite()
        }
    }
    // A further site beside those that are there.
    Component {
        id: siteLogin

        LoginPage {
            objectName: "site"
            addsSite: true
            onLoggedIn: pages.pop()
            onLeaveRequested: pages.pop()
            StackView.onActivated: focusFirstEmpty()
        }
    }
}
