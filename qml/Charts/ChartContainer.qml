// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import orrinsdkqml

// A scrolling column of charts, to which the user adds more. The host publishes `statsModel` and `headingsModel`.
Item {
    id: root

    anchors.fill: parent

    // Its rows serve only as a count.
    ListModel {
        id: chartListModel

        ListElement {
            name: "initialChart"
        }
    }
    ScrollView {
        id: scrollView

        anchors.fill: parent
        clip: true
        ScrollBar.horizontal.policy: Qt.ScrollBarAlwaysOff
        ScrollBar.vertical.policy: Qt.ScrollBarAlwaysOn
        background: Rectangle {
            color: "#2a2d35"
        }

        Column {
            id: column

            x: 0
            // The rest is for the scroll bar.
            width: root.width - 30

            Repeater {
                model: chartListModel

                Chart {
                    x: column.x
                    width: column.width
                    height: 600
                }
            }
            Row {
                ToolButton {
                    font.pointSize: 12
                    text: "+"
                    width: height
                    onClicked: chartListModel.append({ name: "additionalChart" })
                }
                ToolButton {
                    font.pointSize: 12
                    text: "-"
                    // The method itself, not its result: never above 1, so the button stays hidden.
                    visible: chartListModel.rowCount > 1
                    width: height
                    onClicked: chartListModel.remove(chartListModel.count - 1)
                }
            }
        }
    }
}
