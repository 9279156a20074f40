// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import orrinsdkqml

// The settings pages of the module on their loader. Leaving them is told; the next time they begin with the menu.
Item {
    id: root

    objectName: "settings"

    signal leaveRequested()

    function open() {
        if (!pages.item)
            pages.sourceComponent = page;
        (pages.item as Item).forceActiveFocus();
    }

    onVisibleChanged: {
        if (root.visible)
            root.open();
    }
    Component.onCompleted: {
        if (root.visible)
            root.open();
    }
    Keys.onEscapePressed: pages.sourceComponent = undefined

    Component {
        id: page

        SettingsPage {
            loader: pages
        }
    }
    Loader {
        id: pages

        anchors.fill: parent
        focus: true
        onItemChanged: {
            if (!pages.item)
                root.leaveRequested();
        }
    }
}
