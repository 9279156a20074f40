// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    readonly property var flags: ["time", "server", "camera", "debug", "playback"]
    readonly property string playbackText: "<b><font color='#66FF66'><Live><Play></font><font color='#ff8066'><Paused><Frame2></font>"
        + "<font color='#FFFF66'><FwdRew> <SeekSpeedAbs></font>  <font color='#FF6666'><Rec></font></b>"
    readonly property string timeText: "<Date1a:dd MMM><D3a: yyyy><D1a: - ><Time:hh:mm:ss.zzz> <TimeAgo:(- ><TimeAgo><TimeAgo:)>"

    width: 400
    height: 300

    Component {
        id: plain

        Subtitle { width: 300 }
    }
    TestCase {
        name: "Subtitle"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
            for (const name of ["subtitlesTime", "subtitlesServer", "subtitlesCamera", "subtitlesDebug", "subtitlesPlayback"])
                settings[name] = false;
        }
        function monitorOf(item: var): var {
            return Find.first(item, "orrin::QmlSubtitleMonitor");
        }
        function make(on: var): var {
            const values = {};
            for (const flag of root.flags)
                values[flag] = on.includes(flag);
            return createTemporaryObject(plain, root, values);
        }
        function test_look() {
            const item = make([]);
            const background = Find.first(item, "QQuickRectangle");
            const label = Find.first(item, "QQuickText");
            compare(background.color, settings.backgroundColor);
            fuzzyCompare(background.opacity, 0.6, 0.001);
            compare(background.width, 300);
            compare(background.height, item.height);
            compare(item.height, label.height);
            compare(label.width, 300);
            compare(label.horizontalAlignment, Text.AlignHCenter);
            compare(label.wrapMode, Text.WordWrap);
            compare(label.textFormat, Text.StyledText);
            compare(item.subtitleTemplate, "");
        }
        function test_aliases_reachTheMonitor() {
            const item = make([]);
            const monitor = monitorOf(item);
            item.serverGroupId = 1;
            item.serverId = 2;
            item.channelId = 3;
            item.updateMs = 250;
            compare(monitor.serverGroupId, 1);
            compare(monitor.serverId, 2);
            compare(monitor.channelId, 3);
            compare(monitor.updateMs, 250);
            item.subtitleTemplate = "<CID>";
            compare(monitor.subtitleTemplate, "<CID>");
        }
        function test_flags_followTheSettings() {
            const item = createTemporaryObject(plain, root);
            for (const flag of root.flags) {
                const option = "subtitles" + flag[0].toUpperCase() + flag.slice(1);
                compare(item[flag], false);
                settings[option] = true;
                compare(item[flag], true, flag);
                settings[option] = false;
            }
        }
        function test_template_isBuiltOfItsParts_data() {
            return [
                { tag: "nothing", on: [], expected: "" },
                { tag: "server", on: ["server"], expected: "<font color='white'><ServerName></font>" },
                { tag: "camera", on: ["camera"], expected: "<font color='white'>[<SortID>] <CameraName></font>" },
                { tag: "server and camera", on: ["server", "camera"],
                  expected: "<font color='white'><ServerName> - [<SortID>] <CameraName></font>" },
                { tag: "time", on: ["time"], expected: "<font color='white'>" + root.timeText + "</font>" },
                { tag: "server, camera, time", on: ["server", "camera", "time"],
                  expected: "<font color='white'><ServerName> - [<SortID>] <CameraName><p>" + root.timeText + "</font>" },
                { tag: "playback", on: ["playback"], expected: root.playbackText },
                { tag: "camera, playback", on: ["camera", "playback"],
                  expected: "<font color='white'>[<SortID>] <CameraName></font><p>" + root.playbackText }
            ];
        }
        function test_template_isBuiltOfItsParts(data) {
            compare(make(data.on).subtitleTemplate, data.expected);
            // The same by changes.
            const item = make([]);
            for (const flag of data.on)
                item[flag] = true;
            compare(item.subtitleTemplate, data.expected);
            compare(monitorOf(item).subtitleTemplate, data.expected);
        }
        function test_details_standInLinesOfTheirOwn() {
            const alone = make(["debug"]).subtitleTemplate;
            const lines = alone.split("\n");
            compare(lines.length, 12);
            compare(lines[0], "");
            for (const line of lines.slice(1)) {
                compare(line.slice(0, 16), " ".repeat(16));
                verify(line[16] !== " ");
            }
            compare(lines[1].trim(), "<font color='white'>");
            compare(lines[2].trim(), "Ids:                    Server <SID> - Camera <CID><p>");
            compare(lines[5].trim(), "delay:                  <ImageEntryTimeMinusServerVideoTime> ms<p>");
            compare(lines[9].trim(), "<MegaPixels> Mpx ( <Width> x <Height> ) [<ScaleWidth>:<ScaleHeight>]<p>");
            compare(lines[10].trim(), "<Type> - <PixelFormat>");
            compare(lines[11].trim(), "</font>");
            compare(make(["server", "debug"]).subtitleTemplate, "<font color='white'><ServerName></font><p>" + alone);
            compare(make(["playback", "debug"]).subtitleTemplate, root.playbackText + "<p>" + alone);
        }
        function test_template_isEmptyFirst_atEachChange() {
            const item = make(["server"]);
            const seen = [];
            item.subtitleTemplateChanged.connect(() => seen.push(item.subtitleTemplate));
            item.camera = true;
            compare(seen, ["", "<font color='white'><ServerName> - [<SortID>] <CameraName></font>"]);
        }
        function test_update_isPassedOn() {
            const item = make(["camera"]);
            item.update();
            compare(Find.first(item, "QQuickText").text, monitorOf(item).subtitle);
        }
    }
}
