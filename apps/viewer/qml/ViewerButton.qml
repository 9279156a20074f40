// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import orrinsdkqml

// A tool bar button that keyboard and screen reader can use too: it has a name, a place in the tab order and a ring when it
// has the focus.
ToolBarButton {
    id: root

    required property string name
    // Shown beside the name, for those who learn the keys.
    property string keys
    property bool active: false

    // By pointer, key or screen reader.
    signal triggered()

    activeFocusOnTab: true
    iconColor: root.active ? settings.iconActiveColor : settings.iconColor // qmllint disable unqualified
    backgroundColor: root.active ? settings.highlightColor : "transparent" // qmllint disable unqualified
    opacity: root.enabled ? 1 : 0.35
    cursorShape: Qt.PointingHandCursor

    Accessible.role: Accessible.Button
    Accessible.name: root.name
    Accessible.focusable: true
    Accessible.onPressAction: root.triggered()
    Keys.onSpacePressed: root.triggered()
    Keys.onReturnPressed: root.triggered()
    Keys.onEnterPressed: root.triggered()

    onClicked: root.triggered()

    ToolTip.visible: root.containsMouse && root.name !== ""
    ToolTip.delay: 600
    ToolTip.text: root.keys === "" ? root.name : root.name + "  (" + KeyNames.text(root.keys) + ")"

    Rectangle {
        anchors.fill: parent
        color: "transparent"
        radius: root.radius
        border.color: ViewerStyle.accent
        border.width: 2
        visible: root.activeFocus
    }
}
