// SPDX-License-Identifier: GPL-3.0-or-later
import QtQml
import QtQuick.Layouts

/*! Titles below each other. The height follows the children, not their later heights. */
ColumnLayout {
    id: root

    spacing: 0

    onChildrenChanged: sum.takeHeight()
    // Declared children join before their heights are known.
    Component.onCompleted: {
        if (root.children.length > 0)
            sum.takeHeight();
    }

    QtObject {
        id: sum

        function takeHeight() {
            root.height = 0;
            for (const item of root.visibleChildren)
                root.height += item.height;
        }
    }
}
