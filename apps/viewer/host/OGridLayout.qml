// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts

// The grid of the module's LayoutArea: as square as the number of its tiles allows, all cells of one size.
GridLayout {
    id: root

    anchors.fill: parent
    columns: Math.max(1, Math.ceil(Math.sqrt(root.visibleChildren.length)))
    columnSpacing: 2
    rowSpacing: 2
    uniformCellHeights: true
    uniformCellWidths: true
}
