// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! A panel over a tile with a text that shrinks until it fits. The size of the panel decides, a new text keeps the size that it finds. */
Item {
    id: root

    property alias text: message.text

    Rectangle {
        id: rect

        anchors.fill: parent
        color: "#444444"
        onHeightChanged: message.fit()

        Text {
            id: message

            function fit() {
                message.font.pixelSize = Application.font.pixelSize;
                // A pixel size of 0 does not take: 1 is the smallest.
                while (message.contentHeight > rect.height && rect.height > 0 && message.font.pixelSize > 1)
                    message.font.pixelSize -= 1;
            }

            // Centred by its longest line.
            x: (rect.width - contentWidth) / 2
            y: (rect.height - height) / 2
            width: 0.7 * rect.width
            height: contentHeight
            color: "white"
            wrapMode: Text.Wrap
            // The width of the panel has reached the text here.
            onWidthChanged: message.fit()
        }
    }
}
