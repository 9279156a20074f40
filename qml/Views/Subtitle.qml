// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

/*! A strip of text over a tile: what the user's options ask for, as a template that the monitor fills in. */
Item {
    id: root

    property alias serverGroupId: monitor.serverGroupId
    property alias serverId: monitor.serverId
    property alias channelId: monitor.channelId
    property alias streamId: monitor.streamId // qmllint disable missing-type
    property alias updateMs: monitor.updateMs
    property string subtitleTemplate
    // The host publishes `settings`, which may be null.
    property bool time: settings ? settings.subtitlesTime : false // qmllint disable unqualified
    property bool server: settings ? settings.subtitlesServer : false // qmllint disable unqualified
    property bool camera: settings ? settings.subtitlesCamera : false // qmllint disable unqualified
    property bool debug: settings ? settings.subtitlesDebug : false // qmllint disable unqualified
    property bool playback: settings ? settings.subtitlesPlayback : false // qmllint disable unqualified

    function update() {
        monitor.update();
    }

    function createTemplateString() {
        root.subtitleTemplate = "";
        let template = "";
        if (root.server)
            template += "<ServerName>";
        if (root.camera) {
            if (template !== "")
                template += " - ";
            template += "[<SortID>] <CameraName>";
        }
        if (root.time) {
            if (template !== "")
                template += "<p>";
            template += "<Date1a:dd MMM><D3a: yyyy><D1a: - ><Time:hh:mm:ss.zzz> <TimeAgo:(- ><TimeAgo><TimeAgo:)>";
        }
        if (template !== "")
            template = "<font color='white'>" + template + "</font>";
        if (root.playback) {
            if (template !== "")
                template += "<p>";
            template += "<b><font color='#66FF66'><Live><Play></font><font color='#ff8066'><Paused><Frame2></font>"
                + "<font color='#FFFF66'><FwdRew> <SeekSpeedAbs></font>  <font color='#FF6666'><Rec></font></b>";
        }
        if (root.debug) {
            if (template !== "")
                template += "<p>";
            template += monitor.detailLines.map(line => "\n" + " ".repeat(16) + line).join("");
        }
        root.subtitleTemplate = template;
    }

    height: label.height

    onTimeChanged: createTemplateString()
    onServerChanged: createTemplateString()
    onCameraChanged: createTemplateString()
    onDebugChanged: createTemplateString()
    onPlaybackChanged: createTemplateString()
    Component.onCompleted: createTemplateString()

    Rectangle {
        anchors.fill: parent
        color: settings ? settings.backgroundColor : "black" // qmllint disable unqualified
        opacity: 0.6
    }
    Text {
        id: label

        width: root.width
        text: monitor.subtitle
        textFormat: Text.StyledText
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap
    }
    SubtitleMonitor {
        id: monitor

        readonly property list<string> detailLines: [
            "<font color='white'>",
            "Ids:                    Server <SID> - Camera <CID><p>",
            "ClientVideoTime:        <ClientVideoTime> ms<p>",
            "ServerVideoTime:        <ServerVideoTime> ms<p>",
            "delay:                  <ImageEntryTimeMinusServerVideoTime> ms<p>",
            "total elapsed:          <ElapsedMSecsSinceImageLoad> ms<p>",
            "decode delay:           <DecodingDurationMSecs2> ms<p>",
            "theorical frame rate:   <FrameRateHuman><p>",
            "<MegaPixels> Mpx ( <Width> x <Height> ) [<ScaleWidth>:<ScaleHeight>]<p>",
            "<Type> - <PixelFormat>",
            "</font>"
        ]

        subtitleTemplate: root.subtitleTemplate
    }
}
