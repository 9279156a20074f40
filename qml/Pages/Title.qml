// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts

/*! A framed heading, which may hold simple rich text. */
Rectangle {
    id: root

    property string text

    Layout.fillWidth: true
    Layout.alignment: Qt.AlignCenter

    // The host publishes `settings`, which qmllint cannot know.
    implicitHeight: label.height + 2 * settings.borderWidthHints + 2 * settings.controlMarginsHints // qmllint disable unqualified
    color: settings.backgroundColor // qmllint disable unqualified
    border.width: settings.borderWidthHints // qmllint disable unqualified
    border.color: settings.borderColor // qmllint disable unqualified
    radius: settings.controlRadiusHints // qmllint disable unqualified

    Text {
        id: label

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: settings.controlMarginsHints // qmllint disable unqualified
        color: settings.textColor // qmllint disable unqualified
        font.pixelSize: settings.fontPixelSizeHints // qmllint disable unqualified
        horizontalAlignment: Text.AlignHCenter
        text: root.text
        wrapMode: Text.WordWrap
    }
}
