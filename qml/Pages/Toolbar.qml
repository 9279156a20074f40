// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! Buttons in a row. It takes its size from them once, at completion. */
Row {
    id: root

    Component.onCompleted: {
        if (root.visibleChildren.length === 0)
            return;
        let total = 0;
        for (const item of root.visibleChildren)
            total += item.width;
        root.height = root.visibleChildren[0].height;
        root.width = total;
    }
}
