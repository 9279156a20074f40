// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import orrinsdkqml

// Every component of the module's base layer in every state, for developers. It needs a host that publishes `settings`.
Rectangle {
    id: root

    // Percent of the normal control height. It is a view of the gallery's own: leaving gives the user's value back.
    property int controlHeight: 100
    readonly property real contentHeight: content.height
    property int userControlHeight: -1

    color: Theme.blackOne

    onControlHeightChanged: {
        if (root.userControlHeight >= 0)
            root.show();
    }
    Component.onCompleted: {
        root.userControlHeight = settings.controlHeight; // qmllint disable unqualified
        root.show();
    }
    Component.onDestruction: settings.controlHeight = root.userControlHeight // qmllint disable unqualified

    // Hints are read anew by new components only.
    function show() {
        content.active = false;
        settings.controlHeight = root.controlHeight; // qmllint disable unqualified
        content.active = true;
    }

    Row {
        id: choice

        x: Theme.veryWideMargins
        y: Theme.wideMargins
        spacing: Theme.wideSpacing

        O_Label {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.white
            text: qsTr("Control height")
        }
        Repeater {
            model: [100, 150, 200]

            Button {
                required property int modelData

                checkable: true
                checked: root.controlHeight === modelData
                autoExclusive: true
                text: qsTr("%1 %").arg(modelData)
                onClicked: root.controlHeight = modelData
            }
        }
    }
    Flickable {
        anchors.fill: parent
        anchors.topMargin: choice.y + choice.height
        clip: true
        contentHeight: content.height + 2 * Theme.veryWideMargins

        ScrollBar.vertical: ScrollBar {}

        Loader {
            id: content

            x: Theme.veryWideMargins
            y: Theme.veryWideMargins
            width: parent.width - 2 * Theme.veryWideMargins
            active: false

            sourceComponent: Column {
                spacing: Theme.veryWideSpacing

                GalleryControls { width: parent.width }
                GalleryScreens { width: parent.width }
            }
        }
    }
}
