// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick

// The pages of the application, one button each: at the side of a wide window, along the bottom of a tall one.
Rectangle {
    id: root

    // Objects with page, name, icon and keys.
    required property var pages
    required property string current
    property bool upright: true
    // Below the pages, or at their right.
    property alias extra: extra.data

    signal chosen(string page)

    implicitWidth: upright ? 56 : 200
    implicitHeight: upright ? 200 : 56
    color: ViewerStyle.surface
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Pages")

    Grid {
        anchors.horizontalCenter: root.upright ? parent.horizontalCenter : undefined
        anchors.verticalCenter: root.upright ? undefined : parent.verticalCenter
        anchors.top: root.upright ? parent.top : undefined
        anchors.left: root.upright ? undefined : parent.left
        anchors.margins: ViewerStyle.gap
        columns: root.upright ? 1 : 20
        spacing: ViewerStyle.gap

        Repeater {
            model: root.pages

            ViewerButton {
                required property var modelData

                width: 44
                height: 44
                margins: 10
                name: modelData.name
                keys: modelData.keys
                iconSource: "viewer/" + modelData.icon
                active: root.current === modelData.page
                Accessible.role: Accessible.PageTab
                onTriggered: root.chosen(modelData.page)
            }
        }
    }
    Grid {
        id: extra

        anchors.horizontalCenter: root.upright ? parent.horizontalCenter : undefined
        anchors.verticalCenter: root.upright ? undefined : parent.verticalCenter
        anchors.bottom: root.upright ? parent.bottom : undefined
        anchors.right: root.upright ? undefined : parent.right
        anchors.margins: ViewerStyle.gap
        columns: root.upright ? 1 : 20
        spacing: ViewerStyle.gap
    }
}
