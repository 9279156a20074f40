// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQml.Models
import orrinsdkqml

// The host publishes `settings`, which qmllint cannot know.
// qmllint disable unqualified

/*! A table of the tracks of one channel, or of all while no id is set. A column that the model has no role for stays empty.

    One delegate draws a whole row: the columns of the model stand in another order and number than those shown. */
TableView {
    id: root

    property alias serverGroupId: tracks.serverGroupId
    property alias serverId: tracks.serverId
    property alias channelId: tracks.channelId
    /*! The `Track` of the current row; undefined without one. */
    property var currentTrack: tracks.get(root.currentRow)

    component TableViewColumn: QtObject {
        required property string role
        required property string title
        required property int width
    }

    QtObject {
        id: look

        readonly property int rowHeight: settings.controlHeightHints
        readonly property int textMargin: settings.controlMarginsHints
        readonly property list<TableViewColumn> columns: [
            TableViewColumn { role: "serverGroupId"; title: qsTr("Server Group"); width: 75 },
            TableViewColumn { role: "serverId"; title: qsTr("Server"); width: 75 },
            TableViewColumn { role: "channelId"; title: qsTr("Channel"); width: 75 },
            TableViewColumn { role: "trackId"; title: qsTr("Id"); width: 75 },
            TableViewColumn { role: "name"; title: qsTr("Name"); width: 200 },
            TableViewColumn { role: "isEnabled"; title: qsTr("IsEnabled"); width: 50 },
            TableViewColumn { role: "isCamera"; title: qsTr("IsCamera"); width: 50 },
            TableViewColumn { role: "type"; title: qsTr("Type"); width: 50 }
        ]
        readonly property int width: columns.reduce((sum, column) => sum + column.width, 0)

        // The view takes a row under the header for one that is seen.
        function uncoverCurrentRow() {
            if (root.currentRow >= 0)
                root.contentY = Math.min(root.contentY, root.currentRow * look.rowHeight - header.height);
        }
    }

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    topMargin: header.height
    // The first column of the model carries the whole row, the others give no room away.
    columnWidthProvider: column => column === 0 ? look.width : 0
    rowHeightProvider: () => look.rowHeight
    keyNavigationEnabled: true
    selectionBehavior: TableView.SelectRows
    selectionModel: ItemSelectionModel {
        model: tracks
    }
    model: TrackModel {
        id: tracks
    }
    onCurrentRowChanged: Qt.callLater(look.uncoverCurrentRow)
    delegate: Rectangle {
        id: row

        required property var model
        required property bool current

        implicitWidth: look.width
        implicitHeight: look.rowHeight
        color: row.current ? settings.highlightColor : settings.backgroundColor

        Row {
            Repeater {
                model: look.columns

                Text {
                    required property TableViewColumn modelData

                    width: modelData.width
                    height: look.rowHeight
                    leftPadding: look.textMargin
                    rightPadding: look.textMargin
                    color: settings.textColor
                    elide: Text.ElideRight
                    font.pixelSize: settings.fontPixelSizeHints
                    text: row.model[modelData.role] ?? ""
                    textFormat: Text.PlainText
                    verticalAlignment: Text.AlignVCenter
                }
            }
        }
    }

    Rectangle {
        id: header

        parent: root
        z: 1
        x: -root.contentX
        width: look.width
        height: look.rowHeight
        color: settings.highlightColor

        Row {
            Repeater {
                model: look.columns

                Text {
                    required property TableViewColumn modelData

                    width: modelData.width
                    height: header.height
                    leftPadding: look.textMargin
                    rightPadding: look.textMargin
                    color: settings.textHighlightColor
                    elide: Text.ElideRight
                    font.bold: true
                    font.pixelSize: settings.fontPixelSizeHints
                    text: modelData.title
                    verticalAlignment: Text.AlignVCenter
                }
            }
        }
    }
}
