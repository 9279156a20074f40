// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
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

    signal loggedIn()

    function login() {
        errorText = "";
        keyRefused = false;
        manager.hostAndPort = hostField.text;
        manager.username = userField.text;
        manager.password = passwordField.text;
        if (hostField.text === "" || userField.text === "" || passwordField.text === "") {
            errorText = qsTr("Server, user and password are all needed.");
            return;
        }
        manager.connectServers(groupBox.checked);
    }

    function focusFirstEmpty() {
        const fields = [hostField, userField, passwordField];
        (fields.find(field => field.text === "") ?? passwordField).input.forceActiveFocus();
    }

    ConnectionManager {
        id: manager

        onStatusChanged: {
            if (manager.status === ConnectionManager.Connected) {
                passwordField.text = "";
                manager.password = "";
                root.loggedIn();
            } else if (manager.status === ConnectionManager.Error) {
                root.errorText = manager.error === ConnectionManager.SUCCESSFUL ? qsTr("The session timed out.")
                                                                               : manager.errorString();
                root.focusFirstEmpty();
            }
        }
    }

    Rectangle {
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
            enabled: !root.connecting

            Text {
                Layout.bottomMargin: ViewerStyle.gap
                text: qsTr("Log in")
                color: ViewerStyle.text
                font.pixelSize: ViewerStyle.titleText
            }
            ViewerField {
                id: hostField

                Layout.fillWidth: true
                label: qsTr("Server")
                placeholder: qsTr("host or host:port")
                onAccepted: userField.input.forceActiveFocus()
            }
            ViewerField {
                id: userField

                Layout.fillWidth: true
                label: qsTr("User")
                onAccepted: passwordField.input.forceActiveFocus()
            }
            ViewerField {
                id: passwordField

                Layout.fillWidth: true
                label: qsTr("Password")
                echoMode: TextInput.Password
                onAccepted: root.login()
            }
            CheckBox {
                id: groupBox

                checked: true
                text: qsTr("All servers of the site")
                font.pixelSize: ViewerStyle.normalText
                leftPadding: 0
                Material.accent: ViewerStyle.accent
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
            Button {
                Layout.fillWidth: true
                Layout.preferredHeight: ViewerStyle.controlHeight + 8
                text: root.connecting ? qsTr("Connecting …") : qsTr("Log in")
                font.pixelSize: ViewerStyle.normalText
                highlighted: true
                onClicked: root.login()
            }
        }
    }
}
