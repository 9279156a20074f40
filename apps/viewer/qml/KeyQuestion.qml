// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts

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
        RowLayout {
            Layout.alignment: Qt.AlignRight
            spacing: ViewerStyle.gap

            Button {
                text: qsTr("Do not connect")
                flat: true
                onClicked: root.refused()
            }
            Button {
                text: qsTr("Trust the new key")
                Material.foreground: ViewerStyle.danger
                flat: true
                onClicked: root.trusted()
            }
        }
    }
}
