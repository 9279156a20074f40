// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

// A word in the middle of a tile or a page that has no picture.
Item {
    id: root

    property alias text: label.text
    property alias color: label.color

    visible: label.text !== ""

    Text {
        id: label

        anchors.centerIn: parent
        width: parent.width - 2 * ViewerStyle.gap
        color: ViewerStyle.dimText
        font.pixelSize: Math.max(12, Math.min(ViewerStyle.normalText, root.height / 8))
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: 4
        elide: Text.ElideRight
    }
}
