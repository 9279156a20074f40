// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import orrinsdkqml

// Host, user, password; what went wrong stands below, in words.
Item {
    id: root

    property alias host: hostField.text
    property alias user: userField.text
    property alias password: passwordField.text
    readonly property bool connecting: manager.status === ConnectionManager.Connecting
    readonly property bool keyChanged: manager.status === ConnectionManager.Error
                                       && manager.error === ConnectionManager.PUBLIC_KEY_CHANGED
    property string errorText
    property bool keyRefused: false
    // With a site already there the page adds another one, and can be left.
    property bool addsSite: false

    signal loggedIn()
    signal leaveRequested()

    function login() {
        root.errorText = "";
        root.keyRefused = false;
        manager.hostAndPort = hostField.text.trim();
        manager.username = userField.text;
        manager.password = passwordField.text;
        if (manager.hostAndPort === "" || userField.text === "" || passwordField.text === "") {
            root.errorText = qsTr("Server, user and password are all needed.");
            root.focusFirstEmpty();
            return;
        }
        manager.connectServers(groupBox.checked);
    }

    function focusFirstEmpty() {
        const fields = [hostField, userField, passwordField];
        (fields.find(field => field.text === "") ?? passwordField).takeFocus();
    }

    function remembered(list: string): list<string> {
        return list.split(",").filter(entry => entry !== "");
    }

    ConnectionManager {
        id: manager

        onStatusChanged: {
            if (manager.status === ConnectionManager.Connected) {
                passwordField.text = "";
                manager.password = "";
                settings.addHost(manager.hostAndPort); // qmllint disable unqualified
                settings.addUser(manager.username); // qmllint disable unqualified
                settings.setLastConnectedServer(manager.hostAndPort, manager.username); // qmllint disable unqualified
                root.loggedIn();
            } else if (manager.status === ConnectionManager.Error) {
                root.errorText = manager.error === ConnectionManager.SUCCESSFUL ? qsTr("The session timed out.")
                                                                               : manager.errorString();
                root.focusFirstEmpty();
            }
        }
    }

    Flickable {
        anchors.fill: parent
        contentHeight: Math.max(height, card.height + 2 * ViewerStyle.margin)
        boundsBehavior: Flickable.StopAtBounds

        Rectangle {
            id: card

            anchors.centerIn: parent
            width: Math.min(460, parent.width - 2 * ViewerStyle.gap)
            height: form.implicitHeight + 2 * ViewerStyle.margin
            color: ViewerStyle.surface
            radius: 2 * ViewerStyle.radius

            ColumnLayout {
                id: form

                anchors.fill: parent
                anchors.margins: ViewerStyle.margin
                spacing: 16

                Text {
                    Layout.bottomMargin: ViewerStyle.gap
                    text: root.addsSite ? qsTr("Add a site") : qsTr("Log in")
                    color: ViewerStyle.text
                    font.pixelSize: ViewerStyle.titleText
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }
                EntryField {
                    id: hostField

                    Layout.fillWidth: true
                    enabled: !root.connecting
                    label: qsTr("Server (host or host:port)")
                    entries: root.remembered(settings.hosts) // qmllint disable unqualified
                    onEntriesEdited: entries => settings.hosts = entries.join(",") // qmllint disable unqualified
                    onAccepted: userField.takeFocus()
                }
                RecorderFinder {
                    Layout.fillWidth: true
                    visible: !root.connecting
                    onChosen: address => {
                        hostField.text = address;
                        userField.takeFocus();
                    }
                }
                EntryField {
                    id: userField

                    Layout.fillWidth: true
                    enabled: !root.connecting
                    label: qsTr("User")
                    entries: root.remembered(settings.users) // qmllint disable unqualified
                    onEntriesEdited: entries => settings.users = entries.join(",") // qmllint disable unqualified
                    onAccepted: passwordField.takeFocus()
                }
                EntryField {
                    id: passwordField

                    Layout.fillWidth: true
                    enabled: !root.connecting
                    label: qsTr("Password")
                    echoMode: TextInput.Password
                    onAccepted: root.login()
                }
                RowLayout {
                    spacing: ViewerStyle.gap

                    O_CheckBox {
                        id: groupBox

                        enabled: !root.connecting
                        checked: true
                        Accessible.name: groupLabel.text
                    }
                    Text {
                        id: groupLabel

                        text: qsTr("All servers of the site")
                        color: ViewerStyle.text
                        font.pixelSize: ViewerStyle.normalText

                        TapHandler {
                            onTapped: groupBox.toggle()
                        }
                    }
                }
                KeyQuestion {
                    Layout.fillWidth: true
                    visible: root.keyChanged && !root.keyRefused
                    server: hostField.text
                    onTrusted: {
                        manager.overwritePublicKey();
                        root.login();
                    }
                    onRefused: {
                        root.keyRefused = true;
                        root.errorText = "";
                    }
                }
                Text {
                    Layout.fillWidth: true
                    visible: text !== ""
                    text: root.errorText
                    textFormat: Text.PlainText
                    color: ViewerStyle.danger
                    font.pixelSize: ViewerStyle.normalText
                    wrapMode: Text.Wrap
                    Accessible.role: Accessible.AlertMessage
                    Accessible.name: text
                }
                RowLayout {
                    spacing: ViewerStyle.gap

                    O_Button {
                        Layout.fillWidth: true
                        Layout.preferredHeight: ViewerStyle.controlHeight + 8
                        enabled: !root.connecting
                        text: root.connecting ? qsTr("Connecting …") : root.addsSite ? qsTr("Add") : qsTr("Log in")
                        onClicked: root.login()
                    }
                    O_Button {
                        Layout.preferredHeight: ViewerStyle.controlHeight + 8
                        visible: root.connecting || root.addsSite
                        text: qsTr("Cancel")
                        onClicked: {
                            if (root.connecting && !root.addsSite)
                                manager.disconnectServers();
                            else
                                root.leaveRequested();
                        }
                    }
                }
            }
        }
    }
    BusySpinner {
        anchors.fill: parent
        // The button that ends the attempt stays in reach.
        enabled: false
        visible: root.connecting
        busy: root.connecting
        busySize: 96
    }
}
