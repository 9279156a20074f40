// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! Toolbars below each other, as high as the visible ones. */
Column {
    id: root

    onVisibleChildrenChanged: root.height = root.expectedHeight()
    Component.onCompleted: root.height = root.expectedHeight()

    /*! The height that the visible children and the spacing between them take. */
    function expectedHeight(): real {
        const count = root.visibleChildren.length;
        if (count === 0)
            return 0;
        let total = (count - 1) * root.spacing;
        for (const item of root.visibleChildren)
            total += item.height;
        return total;
    }
}
