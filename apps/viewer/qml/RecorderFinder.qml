// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import orrinsdkqml

// Finds recorders on the local network and offers their addresses. What they say of themselves is shown as it is, with the address
// beside it: anybody can answer.
ColumnLayout {
    id: root

    readonly property alias recorders: finder
    readonly property alias searching: finder.searching
    // Rows that are seen without scrolling.
    property int visibleRows: 4

    // A recorder was picked; the address is host:port.
    signal chosen(string address)

    function search() {
        finder.search();
        root.asked = true;
    }

    // Back to the button alone.
    function close() {
        finder.clear();
        root.asked = false;
    }

    function choose(row: int) {
        const address = finder.address(row);
        if (address !== "")
            root.chosen(address);
    }

    spacing: ViewerStyle.gap

    property bool asked: false
    readonly property string notice: {
        if (!root.asked || finder.count > 0)
            return "";
        if (finder.searching)
            return qsTr("Looking for recorders …");
        return finder.networkMissing ? qsTr("There is no network to look in.")
                                    : qsTr("No recorder answered. Recorders in other networks have to be typed in.");
    }

    onVisibleChanged: {
        if (!root.visible)
            finder.stop();
    }

    FoundRecorders {
        id: finder
    }
    O_Button {
        Layout.fillWidth: true
        Layout.preferredHeight: ViewerStyle.controlHeight
        text: finder.searching ? qsTr("Stop looking") : root.asked ? qsTr("Look again") : qsTr("Find recorders")
        onClicked: finder.searching ? finder.stop() : root.search()
    }
    ProgressBar {
        id: progress

        Layout.fillWidth: true
        visible: finder.searching
        Accessible.name: qsTr("Looking for recorders")

        NumberAnimation on value {
            from: 0
            to: 1
            duration: finder.duration
            running: finder.searching
        }
    }
    Text {
        Layout.fillWidth: true
        visible: root.notice !== ""
        text: root.notice
        color: ViewerStyle.dimText
        font.pixelSize: ViewerStyle.smallText
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    ListView {
        id: list

        readonly property int rowHeight: 56

        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(list.count, root.visibleRows) * list.rowHeight
        visible: list.count > 0
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        currentIndex: -1
        keyNavigationEnabled: true
        model: finder
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Recorders found")

        ScrollBar.vertical: ScrollBar {}
        delegate: ItemDelegate {
            id: row

            required property int index
            required property string name
            required property string address
            required property string hardware
            readonly property string detail: row.hardware === "" ? row.address : qsTr("%1, %2").arg(row.address).arg(row.hardware)

            width: list.width
            height: list.rowHeight
            highlighted: ListView.isCurrentItem && list.activeFocus
            Accessible.name: row.name + ", " + row.detail
            onClicked: {
                list.currentIndex = row.index;
                root.choose(row.index);
            }

            contentItem: ColumnLayout {
                spacing: 2

                Text {
                    Layout.fillWidth: true
                    text: row.name
                    textFormat: Text.PlainText
                    color: ViewerStyle.text
                    font.pixelSize: ViewerStyle.normalText
                    elide: Text.ElideRight
                }
                Text {
                    Layout.fillWidth: true
                    text: row.detail
                    textFormat: Text.PlainText
                    color: ViewerStyle.dimText
                    font.pixelSize: ViewerStyle.smallText
                    elide: Text.ElideRight
                }
            }
        }
        Keys.onReturnPressed: root.choose(list.currentIndex)
        Keys.onEnterPressed: root.choose(list.currentIndex)
        Keys.onSpacePressed: root.choose(list.currentIndex)
        onActiveFocusChanged: {
            if (list.activeFocus && list.currentIndex < 0 && list.count > 0)
                list.currentIndex = 0;
        }
    }
}
