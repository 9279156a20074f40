// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
// For the grid that the host adds to the module.
import orrinsdkqml // qmllint disable unused-imports

/*! A place for a grid of video tiles.

    Its type `OGridLayout` is the host's, who registers it in this module before the first import. */
Rectangle {
    anchors.fill: parent
    color: "red"

    OGridLayout {} // qmllint disable import unresolved-type
}
