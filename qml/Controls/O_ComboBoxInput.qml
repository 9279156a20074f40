// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls

/*! A combo box with a label before it. */
Rectangle {
    id: root

    property alias label: label
    property alias combo: combo

    // The host publishes `settings`, which qmllint cannot know.
    height: 50 * settings.devicePixelRatio // qmllint disable unqualified

    Label {
        id: label

        color: "white"
        font.pixelSize: 30
    }
    ComboBox {
        id: combo

        x: label.x + 100 * settings.devicePixelRatio // qmllint disable unqualified
    }
}
