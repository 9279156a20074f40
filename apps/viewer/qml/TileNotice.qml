// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

// What stands in a tile without a picture: a word that can be read at every size, and the reason where there is room for it.
Rectangle {
    id: root

    property string text
    property string detail
    property bool failed: false
    readonly property bool roomy: root.height >= 110 && root.width >= 180

    visible: root.text !== ""
    color: ViewerStyle.surface

    Column {
        anchors.centerIn: parent
        width: parent.width - 2 * Math.min(ViewerStyle.margin, parent.width / 16)
        spacing: 6

        Text {
            width: parent.width
            text: root.text
            color: root.failed ? ViewerStyle.danger : ViewerStyle.dimText
            font.pixelSize: Math.max(11, Math.min(24, root.height / 9))
            font.bold: root.failed
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        Text {
            width: parent.width
            text: root.detail
            textFormat: Text.PlainText
            color: ViewerStyle.text
            font.pixelSize: Math.max(12, Math.min(18, root.height / 14))
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            maximumLineCount: Math.max(1, Math.floor(root.height / 50))
            elide: Text.ElideRight
            visible: root.roomy && root.failed && root.detail !== ""
        }
    }
}
