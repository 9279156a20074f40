// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

/*! A page that asks for the rows and columns of a layout. */
Page {
    id: root

    property alias rows: selector.rows
    property alias columns: selector.columns
    property alias row: selector.row
    property alias column: selector.column
    property alias spacing: selector.spacing

    signal layoutSelected(int rows, int columns)

    LayoutSelector {
        id: selector

        // No anchors: a user of the page may give the selector a size of its own.
        width: parent.width
        height: parent.height
        onLayoutSelected: (rows, columns) => root.layoutSelected(rows, columns)
    }
}
