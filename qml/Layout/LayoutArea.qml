// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
// The host adds the grid type to the module.
import orrinsdkqml // qmllint disable unused-imports

/*! A place for a grid of video tiles, whose type `OGridLayout` the host registers in this module. */
Rectangle {
    anchors.fill: parent
    color: "red"

    OGridLayout {} // qmllint disable import unresolved-type
}
