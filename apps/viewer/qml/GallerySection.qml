// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

// A caption and what it names, in a row that wraps.
Column {
    id: root

    required property string caption
    default property alias content: flow.data

    width: parent?.width ?? 0
    spacing: Theme.wideMargins

    Text {
        color: Theme.lightBlue
        font.bold: true
        text: root.caption
    }
    Flow {
        id: flow

        width: root.width
        spacing: Theme.veryWideSpacing
    }
}
