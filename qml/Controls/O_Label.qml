// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls

/*! A label of the style in the application's font.

    The text keeps its own size and stands at the top left; an alignment that is set moves it inside a larger wrapper. */
Item {
    id: root

    property alias text: label.text
    property alias color: label.color
    property alias horizontalAlignment: label.horizontalAlignment
    property alias verticalAlignment: label.verticalAlignment
    property alias textFormat: label.textFormat

    implicitWidth: label.implicitWidth
    implicitHeight: label.implicitHeight

    Label {
        id: label

        x: horizontalAlignment === Text.AlignRight ? root.width - width
                                                   : horizontalAlignment === Text.AlignHCenter ? (root.width - width) / 2 : 0
        y: verticalAlignment === Text.AlignBottom ? root.height - height
                                                  : verticalAlignment === Text.AlignVCenter ? (root.height - height) / 2 : 0
        font: Application.font
    }
}
