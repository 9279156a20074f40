// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls.Material
import QtQuick.Layouts
import orrinsdkqml

// The question whether a server's new key is to be trusted.
Rectangle {
    id: root

    required property string server

    signal trusted()
    signal refused()

    color: ViewerStyle.raised
    border.color: ViewerStyle.danger
    radius: ViewerStyle.radius
    implicitHeight: content.implicitHeight + 2 * ViewerStyle.gap

    KeyFingerprints {
        id: keys
    }
    ColumnLayout {
        id: content

        anchors.fill: parent
        anchors.margins: ViewerStyle.gap
        spacing: ViewerStyle.gap

        Text {
            Layout.fillWidth: true
            text: qsTr("The key of %1 is not the one it had at your last login. The server may have been set up anew, or somebody may stand between you and it.").arg(root.server)
            textFormat: Text.PlainText
            color: ViewerStyle.text
            font.pixelSize: ViewerStyle.smallText
            wrapMode: Text.Wrap
        }
        GridLayout {
            Layout.fillWidth: true
            columns: 2
            columnSpacing: 16
            rowSpacing: 4

            Text {
                text: qsTr("Trusted so far")
                color: ViewerStyle.dimText
                font.pixelSize: ViewerStyle.smallText
            }
            Text {
                text: qsTr("Shown now")
                color: ViewerStyle.danger
                font.pixelSize: ViewerStyle.smallText
            }
            Text {
                objectName: "trustedFingerprint"
                text: keys.trusted
                color: ViewerStyle.text
                font.family: "monospace"
                font.pixelSize: 12
            }
            Text {
                objectName: "shownFingerprint"
                text: keys.shown
                color: ViewerStyle.text
                font.family: "monospace"
                font.pixelSize: 12
            }
        }
        RowLayout {
            Layout.alignment: Qt.AlignRight
            spacing: ViewerStyle.gap

            O_Button {
                text: qsTr("Do not connect")
                onClicked: root.refused()
            }
            O_Button {
                text: qsTr("Trust the new key")
                Material.foreground: ViewerStyle.danger
                onClicked: root.trusted()
            }
        }
    }
}
