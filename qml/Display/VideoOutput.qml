// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import orrinsdkqml

/*! One tile: the live or recorded picture of one stream with everything that the user does to it.

    The host sets `serverGroupId`, `serverId` and `channelId`; `streamId` follows. It may publish `settings`, and must have `toolbars` with a
    writable `preset` in scope where presets change. */
Item {
    id: root

    property alias serverGroupId: videoOutput.serverGroupId
    property alias serverId: videoOutput.serverId
    property alias channelId: videoOutput.channelId
    // The numbers of streams and the zones of time are values that QML passes on and does not know.
    property alias streamId: videoOutput.streamId // qmllint disable missing-type
    property alias frameWidth: videoOutput.frameWidth
    property alias frameHeight: videoOutput.frameHeight
    property alias preserveAspectRatio: videoOutput.preserveAspectRatio
    property alias playbackController: playback
    property alias playbackState: playback.state
    property alias playbackPermitted: playback.playbackPermitted
    property alias ptzfController: ptzf
    property alias highStream: playback.highStream
    property alias highlighted: highlight.highlighted
    property alias extraPtzEnabled: ptzExtra.enabled
    property int direction
    property bool decorationsVisible: true
    property bool messageVisible: true
    property bool channelButtonsVisible: false
    property bool subtitlesVisible: false
    property bool effectsVisible: false
    property bool effectButtonsVisible: false
    property bool zoomSliderVisible: false
    property bool isSelected: false
    property bool isInLayout: false
    property bool ptzfAvailable: ptzf.ptzfAvailable && !isInLayout
    property bool opticalPtzEnabled: false
    property int panTiltMinSpeed: 2500

    signal message(string text)
    signal selected
    signal nextChannel
    signal previousChannel
    signal frameProcessed
    signal areaClicked
    signal toggleSingleLayout

    function reset() {
        // The spelling is fixed; the texts that come by themselves have the usual one.
        defaultState.text = qsTr("Waiiting for stream...");
        defaultState.visible = true;
    }

    function getTime(): string {
        return videoOutput.frameDateTimeServerTz;
    }

    function getTimeMs(): real {
        return videoOutput.frameTimeMs;
    }

    function getTimeZone(): var {
        return videoOutput.frameTimeZone; // qmllint disable unresolved-type
    }

    function getBeginning(): real {
        return videoOutput.getBeginning();
    }

    function getEnd(): real {
        return videoOutput.getEnd();
    }

    function select() {
        root.selected();
        root.isSelected = true;
    }

    function jump(date: var, hour: int, minute: int, second: int, time_zone: var) {
        playback.jump(date, hour, minute, second, time_zone);
    }

    function scrubJump(epoch_time: real, time_zone: var) {
        playback.scrubJump(epoch_time, time_zone);
    }

    function snapshot() {
        playback.snapshot();
    }

    function rewind() {
        playback.rewind();
    }

    function live() {
        playback.live();
    }

    function pause() {
        playback.pause();
    }

    function play() {
        playback.play();
    }

    function forward() {
        playback.forward();
    }

    function fastRewind(speed: int) {
        playback.rewindSpeed(speed);
        playback.fastRewind();
    }

    function fastForward(speed: int) {
        playback.fastForwardSpeed(speed);
        playback.fastForward();
    }

    function frameStepForward() {
        playback.frameStepForward();
    }

    function frameStepBack() {
        playback.frameStepBack();
    }

    function setTrackId(Id: int) {
        playback.setTrackId(Id);
    }

    function changeStream(value: bool) {
        playback.highStream = value;
    }

    // The dead zone keeps small clicks and drags from moving the camera; the axes are judged apart.
    function ptzfPanTilt(x: int, y: int) {
        ptzf.setPanTiltZoom(Math.abs(x) < root.panTiltMinSpeed ? 0 : x, Math.abs(y) < root.panTiltMinSpeed ? 0 : y, 0);
    }

    function ptzfPan(value: int) {
        ptzf.pan = value;
    }

    function ptzfTilt(value: int) {
        ptzf.tilt = value;
    }

    function ptzfZoom(value: int) {
        ptzf.zoom = value;
    }

    function ptzfGoToPreset(preset: int) {
        ptzf.goToPreset(preset);
    }

    function ptzfGoToTour(tour: int) {
        ptzf.goToTour(tour);
    }

    function pinchScaleDiff(pinch: var): real {
        return 1.0 + pinch.scale - pinch.previousScale;
    }

    function pinchZoom(pinch: var) {
        videoOutput.zoom(root.pinchScaleDiff(pinch), root.scaleBetween(pinch.center.x, -1.0, 1.0, 0, videoOutput.width),
                         root.scaleBetween(pinch.center.y, -1.0, 1.0, 0, videoOutput.height));
    }

    function scaleBetween(num: real, new_min: real, new_max: real, old_min: real, old_max: real): real {
        return (new_max - new_min) * (num - old_min) / (old_max - old_min) + new_min;
    }

    onPtzfAvailableChanged: root.opticalPtzEnabled = root.ptzfAvailable

    VideoDisplay {
        id: videoOutput

        function reset() {
            if (!defaultState.visible) {
                // Writing ends the binding to `messageVisible`, which is the first value and no more.
                defaultState.visible = true;
                defaultState.text = "Waiting for stream...";
            }
            ptzf.requestCapabilities();
            videoOutput.resetZoom();
        }

        anchors.fill: parent
        visible: !root.effectsVisible
        layer.enabled: true

        onServerGroupIdChanged: videoOutput.reset()
        onServerIdChanged: videoOutput.reset()
        onChannelIdChanged: videoOutput.reset()
        onStreamIdChanged: videoOutput.reset()
        Component.onCompleted: videoOutput.reset()
        onCurrentFrameChanged: {
            if (defaultState.visible)
                defaultState.visible = false;
            subtitle.update();
            root.frameProcessed();
        }
        onFrameDateTimeServerTzChanged: root.frameProcessed()
        onErrorReceived: {
            videoOutput.reset();
            defaultState.text = videoOutput.error;
        }
    }
    BusySpinner {
        id: busySpinner

        anchors.fill: parent
        visible: videoOutput.busySpinnerVisible
        busy: videoOutput.busySpinnerVisible
    }
    VideoOutputMessage {
        id: defaultState

        anchors.fill: parent
        visible: root.messageVisible
        text: qsTr("Waiting for stream...")
    }
    VideoDisplayInputArea {
        id: input

        anchors.fill: parent
        onClicked: {
            root.areaClicked();
            highlight.doHighlight();
        }
        onDoubleClicked: root.toggleSingleLayout()
        onPan: (x_diff, y_diff) => videoOutput.addOffsetPixels(x_diff, y_diff)
        onWheel: (angle, mouseX, mouseY) => videoOutput.zoom(1.0 + angle / 16, mouseX, mouseY)
        onPinchStarted: pinch => {
            root.pinchZoom(pinch);
            points.visible = true;
            points.setPoints(pinch);
        }
        onPinchUpdated: pinch => {
            root.pinchZoom(pinch);
            points.setPoints(pinch);
        }
        onPinchFinished: pinch => {
            root.pinchZoom(pinch);
            points.visible = false;
        }
    }
    Item {
        id: points

        readonly property int discSize: settings ? settings.controlHeightHints : 100 // qmllint disable unqualified
        readonly property bool discsVisible: settings ? settings.pinchPointsVisible : false // qmllint disable unqualified

        function setPoints(pinch: var) {
            points.centre(point1, pinch.point1);
            points.centre(point2, pinch.point2);
            points.centre(center, pinch.center);
        }

        function centre(disc: Item, position: point) {
            disc.x = position.x - disc.width / 2;
            disc.y = position.y - disc.height / 2;
        }

        anchors.fill: parent
        visible: false

        Rectangle {
            id: point1

            width: 2 * points.discSize
            height: 2 * points.discSize
            radius: points.discSize
            color: "#55FF0000"
            visible: points.discsVisible
        }
        Rectangle {
            id: point2

            width: 2 * points.discSize
            height: 2 * points.discSize
            radius: points.discSize
            color: "#55FF0000"
            visible: points.discsVisible
        }
        Rectangle {
            id: center

            width: points.discSize
            height: points.discSize
            radius: points.discSize / 2
            color: "#550000FF"
            visible: points.discsVisible
        }
    }
    PtzExtraControls {
        id: ptzExtra

        anchors.horizontalCenter: parent.horizontalCenter
        // Leaves room for playback controls that the host lays over the tile.
        y: root.height - ptzExtra.height - 120
        enabled: false
        visible: ptzExtra.enabled
        onGoToPreset: preset => root.ptzfGoToPreset(preset)
        onGoToTour: tour => root.ptzfGoToTour(tour)
    }
    DistancePtzf {
        id: ptzfLine

        anchors.fill: parent
        enabled: root.opticalPtzEnabled && !root.extraPtzEnabled
        visible: ptzfLine.enabled
        onSpeedXChanged: {
            if (ptzfLine.enabled)
                root.ptzfPanTilt(ptzfLine.speedX, ptzfLine.speedY);
        }
        onSpeedYChanged: {
            if (ptzfLine.enabled)
                root.ptzfPanTilt(ptzfLine.speedX, ptzfLine.speedY);
        }
        onSpeedZChanged: {
            if (ptzfLine.enabled)
                root.ptzfZoom(ptzfLine.speedZ);
        }
        onVisibleChanged: root.ptzfPanTilt(ptzfLine.speedX, ptzfLine.speedY)
    }
    Item {
        id: channelButtons

        anchors.fill: parent
        visible: root.channelButtonsVisible

        RoundButton {
            id: previousChannelButton

            x: 0
            anchors.verticalCenter: parent.verticalCenter
            icon.source: "qrc:/qt/qml/orrinsdkqml/resources/arrow_left.svg"
            icon.color: Theme.defaultIconColor
            Material.background: "transparent"
            onClicked: root.previousChannel()
        }
        RoundButton {
            id: nextChannelButton

            x: channelButtons.width - nextChannelButton.width
            anchors.verticalCenter: parent.verticalCenter
            icon.source: "qrc:/qt/qml/orrinsdkqml/resources/arrow_right.svg"
            icon.color: Theme.defaultIconColor
            Material.background: "transparent"
            onClicked: root.nextChannel()
        }
    }
    Subtitle {
        id: subtitle

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: highlight.borderWidth
        visible: root.subtitlesVisible && root.decorationsVisible && !defaultState.visible
        serverGroupId: videoOutput.serverGroupId
        serverId: videoOutput.serverId
        channelId: videoOutput.channelId
        streamId: videoOutput.streamId // qmllint disable missing-type unresolved-type
    }
    VideoDisplayBorder {
        id: highlight

        anchors.fill: parent
    }
    PlaybackController {
        id: playback

        textOverlay: settings ? settings.textOverlay : false // qmllint disable unqualified
        serverGroupId: videoOutput.serverGroupId
        serverId: videoOutput.serverId
        channelId: videoOutput.channelId
        streamId: videoOutput.streamId // qmllint disable missing-type unresolved-type
        onSnapshotSaved: filename => root.message(qsTr("Image saved in: ") + filename)
        onSnapshotFailed: error => root.message(qsTr("Screenshot failed in: ") + error)
    }
    PtzfController {
        id: ptzf

        serverGroupId: videoOutput.serverGroupId
        serverId: videoOutput.serverId
        channelId: videoOutput.channelId
        streamId: videoOutput.streamId // qmllint disable missing-type unresolved-type
        onPresetChanged: toolbars.preset = ptzf.preset // qmllint disable unqualified
    }
}
