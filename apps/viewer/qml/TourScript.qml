// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

// The stations of a tour through the application: each is entered, becomes ready, and has its picture taken.
QtObject {
    id: root

    required property LoginPage loginPage
    required property var pages
    property Shell shell: null
    // Where the snapshot of the tour goes.
    property string folder

    readonly property int count: root.stations.length
    property int index: 0
    readonly property string name: root.stations[root.index]?.name ?? ""
    readonly property var live: root.shell?.livePage ?? null
    readonly property var timeline: root.shell?.timeline ?? null
    property double enteredAt: Date.now()
    property double target: 0
    property string snapshotName

    function isReady(): bool {
        return root.stations[root.index].ready();
    }
    function status(): string {
        return root.live ? root.live.showingPictures + "/" + root.live.wantedPictures + " " + root.loginPage.errorText : root.loginPage.errorText;
    }
    function next(): bool {
        if (root.index + 1 >= root.count)
            return false;
        root.index += 1;
        root.enteredAt = Date.now();
        root.stations[root.index].enter();
        return true;
    }
    function settled(milliseconds: double): bool {
        return Date.now() - root.enteredAt > milliseconds;
    }
    function allShow(): bool {
        return root.live !== null && root.live.wantedPictures > 0 && root.live.showingPictures === root.live.wantedPictures;
    }
    function showsTarget(): bool {
        return Math.abs(root.timeline.stream.time - root.target) < 3000;
    }

    readonly property list<QtObject> helpers: [
        Connections {
            function onSnapshotSaved(filename: string) {
                root.snapshotName = filename;
            }

            target: root.live?.selectedTile?.playbackController ?? null
        }
    ]
    readonly property var stations: [
        { name: "login", enter: () => {}, ready: () => !root.pages.busy },
        { name: "live", enter: () => root.loginPage.login(), ready: () => root.allShow() && root.settled(4000) },
        { name: "single", enter: () => root.live.toggleSingle(), ready: () => root.allShow() && root.settled(2000) },
        { name: "digital-zoom", enter: () => root.live.zoomPicture(2.5), ready: () => root.settled(800) },
        {
            name: "ptz",
            enter: () => {
                root.live.zoomPicture(0);
                root.live.showFirst(channel => channel.hasPtzf);
            },
            ready: () => root.allShow() && root.live.selectedTile.ptzfAvailable && root.settled(2500)
        },
        {
            name: "playback",
            enter: () => {
                root.live.toggleSingle();
                root.live.showFirst(() => true);
                root.target = Date.now() - 15 * 60000;
                root.timeline.commands.jump(root.target);
                root.timeline.commands.togglePlay();
            },
            ready: () => root.settled(2500) && Math.abs(root.timeline.stream.time - root.target) < 12000
        },
        {
            name: "scrub",
            enter: () => {
                root.timeline.commands.pause();
                root.target -= 7 * 60000;
                root.timeline.commands.scrub(root.target, root.timeline.stream.zone);
            },
            ready: () => root.settled(800) && root.showsTarget()
        },
        { name: "time-jump", enter: () => root.shell.openTimeJump(), ready: () => root.settled(800) },
        {
            name: "events",
            enter: () => {
                root.shell.closePopups();
                root.timeline.commands.live();
                root.shell.page = "events";
            },
            ready: () => root.settled(2500)
        },
        { name: "statistics", enter: () => root.shell.page = "statistics", ready: () => root.settled(3500) },
        { name: "settings", enter: () => root.shell.page = "settings", ready: () => root.settled(1200) },
        { name: "keys", enter: () => root.shell.openSheet(), ready: () => root.settled(800) },
        {
            name: "snapshot",
            enter: () => {
                root.shell.closePopups();
                root.shell.page = "live";
                root.live.selectedTile.playbackController.snapshot(root.folder);
            },
            ready: () => root.snapshotName !== "" && root.settled(500)
        }
    ]
}
