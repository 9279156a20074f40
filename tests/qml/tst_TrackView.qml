// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 700
    height: 400

    Component {
        id: plain

        TrackView {
            anchors.fill: parent
        }
    }
    SignalSpy {
        id: track

        signalName: "currentTrackChanged"
    }
    TestCase {
        name: "TrackView"
        when: windowShown

        readonly property var titles: ["Server Group", "Server", "Channel", "Id", "Name", "IsEnabled", "IsCamera", "Type"]
        readonly property var widths: [75, 75, 75, 75, 200, 50, 50, 50]

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            site.logOut();
        }
        function make(properties: var): var {
            const view = createTemporaryObject(plain, root, properties);
            waitForRendering(root);
            track.target = view;
            track.clear();
            return view;
        }
        function cells(parent: var): var {
            return Find.all(parent, "QQuickText").filter(each => each.text !== undefined).sort((a, b) => a.x - b.x);
        }
        function texts(view: var, row: int): var {
            view.forceLayout();
            return cells(view.itemAtCell(Qt.point(0, row))).map(each => each.text);
        }
        function test_header_namesTheColumns() {
            const view = make();
            const header = view.children.find(each => each.z === 1);
            compare(cells(header).map(each => each.text), titles);
            compare(cells(header).map(each => each.width), widths);
            compare(header.width, 650);
            compare(view.currentTrack, undefined);
            compare(view.rows, 0);
        }
        function test_rows_areTheTracks() {
            verify(site.login(1, 4, "north", 2));
            const view = make();
            tryCompare(view, "rows", 2);
            const group = String(site.serverGroupId(1));
            compare(texts(view, 0).slice(0, 7), [group, "4", "1", "1", "Stream 1", "true", ""]);
            compare(texts(view, 1).slice(0, 7), [group, "4", "2", "1", "Stream 1", "true", ""]);
            compare(cells(view.itemAtCell(Qt.point(0, 0))).map(each => each.x), [0, 75, 150, 225, 300, 500, 550, 600]);
            compare(view.contentWidth, 650);
        }
        function test_ids_chooseTheTracks() {
            verify(site.login(1, 1, "north", 3));
            verify(site.login(2, 1, "south", 3));
            const view = make({ serverGroupId: site.serverGroupId(2), serverId: 1, channelId: 3 });
            tryCompare(view, "rows", 1);
            compare(texts(view, 0).slice(0, 3), [String(site.serverGroupId(2)), "1", "3"]);
            compare(view.channelId, 3);
            view.channelId = 2;
            tryVerify(() => view.rows === 1 && view.itemAtCell(Qt.point(0, 0)) !== null && texts(view, 0)[2] === "2");
            view.channelId = 9;
            tryCompare(view, "rows", 0);
        }
        function test_currentTrack_followsTheMouseAndTheKeys() {
            verify(site.login(1, 1, "north", 3));
            const view = make();
            tryCompare(view, "rows", 3);
            view.forceLayout();
            mouseClick(view.itemAtCell(Qt.point(0, 1)), 320, 10);
            compare(view.currentRow, 1);
            compare(view.currentTrack.channelId, 2);
            compare(track.count, 1);
            compare(view.itemAtCell(Qt.point(0, 1)).color, settings.highlightColor);
            compare(view.itemAtCell(Qt.point(0, 0)).color, settings.backgroundColor);
            view.forceActiveFocus();
            keyClick(Qt.Key_Down);
            compare(view.currentTrack.channelId, 3);
            keyClick(Qt.Key_Up);
            keyClick(Qt.Key_Up);
            compare(view.currentTrack.channelId, 1);
        }
        function test_currentTrack_isNone_afterAReset() {
            verify(site.login(1, 1, "north", 3));
            const view = make();
            tryCompare(view, "rows", 3);
            view.forceLayout();
            mouseClick(view.itemAtCell(Qt.point(0, 2)), 20, 10);
            compare(view.currentTrack.channelId, 3);
            verify(site.login(2, 1, "south", 1));
            tryCompare(view, "rows", 4);
            compare(view.currentRow, -1);
            compare(view.currentTrack, undefined);
            site.logOut();
            tryCompare(view, "rows", 0);
            compare(view.currentTrack, undefined);
        }
        function test_header_stays_whileTheRowsScroll() {
            verify(site.login(1, 1, "north", 200));
            const view = make();
            tryCompare(view, "rows", 200);
            const header = view.children.find(each => each.z === 1);
            view.positionViewAtRow(150, TableView.AlignTop);
            waitForRendering(root);
            compare(header.y, 0);
            verify(texts(view, 150)[2] === "151");
            root.width = 300;
            view.contentX = 100;
            compare(header.x, -100);
            root.width = 700;
        }
        function test_header_coversNoRowThatTheKeysLeadTo() {
            verify(site.login(1, 1, "north", 200));
            const view = make();
            tryCompare(view, "rows", 200);
            const header = view.children.find(each => each.z === 1);
            const top = row => {
                view.forceLayout();
                return view.itemAtCell(Qt.point(0, row))?.mapToItem(view, 0, 0).y ?? -1;
            };
            compare(top(0), header.height);
            mouseClick(view.itemAtCell(Qt.point(0, 4)), 20, 10);
            view.contentY = view.itemAtCell(Qt.point(0, 4)).y;
            view.forceActiveFocus();
            for (let row = 3; row >= 0; --row) {
                keyClick(Qt.Key_Up);
                compare(view.currentRow, row);
                tryVerify(() => top(row) >= header.height, 1000, "row " + row);
            }
        }
        function test_names_arePlainText() {
            verify(site.login(1, 1, "north", 1));
            const view = make();
            tryCompare(view, "rows", 1);
            compare(cells(view.itemAtCell(Qt.point(0, 0)))[4].textFormat, Text.PlainText);
        }
        function test_tenThousandTracks_areReused() {
            verify(site.login(1, 1, "north", 10000));
            const view = make();
            tryCompare(view, "rows", 10000);
            verify(view.contentItem.children.length < 40, view.contentItem.children.length);
            view.positionViewAtRow(9999, TableView.AlignBottom);
            waitForRendering(root);
            compare(texts(view, 9999)[2], "10000");
            verify(view.contentItem.children.length < 60, view.contentItem.children.length);
        }
    }
}
