// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 640
    height: 480

    // What a host has in scope.
    QtObject {
        id: toolbars

        property int preset: 0
    }
    Component {
        id: plain

        VideoOutput {
            property list<string> log

            width: 400
            height: 300
            onAreaClicked: log.push("areaClicked")
            onToggleSingleLayout: log.push("toggleSingleLayout")
            onNextChannel: log.push("nextChannel")
            onPreviousChannel: log.push("previousChannel")
            onFrameProcessed: log.push("frameProcessed")
            onSelected: log.push("selected " + isSelected)
            onMessage: text => log.push("message " + text)
        }
    }
    Component {
        id: silent

        VideoOutput {
            width: 400
            height: 300
            messageVisible: false
        }
    }
    TestCase {
        name: "VideoOutput"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
            settings.textOverlay = true;
            settings.pinchPointsVisible = false;
            toolbars.preset = 0;
        }
        // The parts in their order, without what the layer of the picture adds.
        function partsOf(item: var): var {
            return Array.from(item.children).filter(child => !String(child).startsWith("QQuickShaderEffectSource"));
        }
        function displayOf(item: var): var {
            return Find.first(item, "orrin::QmlVideoDisplay");
        }
        function panelOf(item: var): var {
            return Find.first(item, "VideoOutputMessage");
        }
        function borderOf(item: var): var {
            return Find.first(item, "VideoDisplayBorder");
        }
        function lineOf(item: var): var {
            return Find.first(item, "DistancePtzf");
        }
        function test_defaults() {
            const item = createTemporaryObject(plain, root);
            compare(item.serverGroupId, -1);
            compare(item.serverId, -1);
            compare(item.channelId, -1);
            compare(item.frameWidth, 100);
            compare(item.frameHeight, 100);
            compare(item.preserveAspectRatio, true);
            compare(item.playbackState, PlaybackController.Play);
            compare(item.playbackPermitted, false);
            compare(item.highStream, true);
            compare(item.highlighted, false);
            compare(item.extraPtzEnabled, false);
            compare(item.direction, 0);
            compare(item.panTiltMinSpeed, 2500);
            for (const name of ["decorationsVisible", "messageVisible"])
                compare(item[name], true, name);
            for (const name of ["channelButtonsVisible", "subtitlesVisible", "effectsVisible", "effectButtonsVisible", "zoomSliderVisible",
                                "isSelected", "isInLayout", "ptzfAvailable", "opticalPtzEnabled"])
                compare(item[name], false, name);
            verify(item.playbackController instanceof PlaybackController);
            verify(item.ptzfController instanceof PtzfController);
        }
        function test_children_standInTheirOrder() {
            const item = createTemporaryObject(plain, root);
            const names = partsOf(item).map(child => String(child).replace(/_QML.*|\(.*/, ""));
            compare(names, ["orrin::QmlVideoDisplay", "BusySpinner", "VideoOutputMessage", "VideoDisplayInputArea", "QQuickItem",
                            "PtzExtraControls", "DistancePtzf", "QQuickItem", "Subtitle", "VideoDisplayBorder"]);
            compare(displayOf(item).layer.enabled, true);
            for (const child of [0, 1, 2, 3, 6, 9]) {
                compare(partsOf(item)[child].width, 400, names[child]);
                compare(partsOf(item)[child].height, 300, names[child]);
            }
        }
        function test_ids_reachAllThatShareTheStream() {
            const item = createTemporaryObject(plain, root, { subtitlesVisible: true });
            item.serverGroupId = 71;
            item.serverId = 72;
            item.channelId = 73;
            for (const part of [displayOf(item), item.playbackController, item.ptzfController, Find.first(item, "Subtitle")]) {
                compare(part.serverGroupId, 71);
                compare(part.serverId, 72);
                compare(part.channelId, 73);
                compare(part.streamId, item.streamId);
            }
        }
        function test_panel_isShown_untilTheFirstFrame() {
            const item = createTemporaryObject(plain, root);
            const panel = panelOf(item);
            compare(panel.visible, true);
            compare(panel.text, "Waiting for stream...");
            displayOf(item).currentFrameChanged();
            compare(panel.visible, false);
            compare(item.log, ["frameProcessed"]);
            displayOf(item).frameDateTimeServerTzChanged();
            compare(item.log, ["frameProcessed", "frameProcessed"]);
            compare(panel.visible, false);
        }
        function test_panel_isShownAgain_byEachIdAndByAnError() {
            const item = createTemporaryObject(plain, root);
            const panel = panelOf(item);
            for (const id of ["serverGroupId", "serverId", "channelId"]) {
                displayOf(item).currentFrameChanged();
                panel.text = "";
                item[id] = 5;
                compare(panel.visible, true, id);
                compare(panel.text, "Waiting for stream...", id);
            }
            displayOf(item).currentFrameChanged();
            panel.text = "";
            displayOf(item).streamIdChanged();
            compare(panel.visible, true);
            compare(panel.text, "Waiting for stream...");
            displayOf(item).currentFrameChanged();
            // There is no stream here, so its error is an empty text; it takes the place of the other.
            displayOf(item).errorReceived();
            compare(panel.visible, true);
            compare(panel.text, "");
        }
        function test_errorText_stays_whenTheChannelChanges() {
            const item = createTemporaryObject(plain, root);
            const panel = panelOf(item);
            panel.text = "<b>No stream</b>";
            item.channelId = 9;
            compare(panel.text, "<b>No stream</b>");
            displayOf(item).currentFrameChanged();
            item.channelId = 10;
            compare(panel.text, "Waiting for stream...");
        }
        function test_panel_isShownAtTheStart_evenWithoutMessages() {
            const item = createTemporaryObject(silent, root);
            compare(panelOf(item).visible, true);
            compare(panelOf(item).text, "Waiting for stream...");
            // The property was the first value and no more.
            item.messageVisible = true;
            item.messageVisible = false;
            compare(panelOf(item).visible, true);
        }
        function test_reset_hasItsOwnText() {
            const item = createTemporaryObject(plain, root);
            displayOf(item).currentFrameChanged();
            item.reset();
            compare(panelOf(item).visible, true);
            compare(panelOf(item).text, "Waiiting for stream...");
        }
        function test_select_tellsFirst() {
            const item = createTemporaryObject(plain, root);
            item.select();
            compare(item.log, ["selected false"]);
            compare(item.isSelected, true);
        }
        function test_effects_hideThePicture_andLeaveTheRest() {
            const item = createTemporaryObject(plain, root);
            item.effectsVisible = true;
            compare(displayOf(item).visible, false);
            compare(panelOf(item).visible, true);
            mouseClick(item, 200, 100);
            compare(item.log, ["areaClicked"]);
            item.effectsVisible = false;
            compare(displayOf(item).visible, true);
        }
        function test_click_highlights() {
            const item = createTemporaryObject(plain, root);
            mouseClick(item, 200, 100);
            compare(item.log, ["areaClicked"]);
            compare(item.highlighted, true);
            item.highlighted = false;
            compare(borderOf(item).highlighted, false);
        }
        function test_doubleClick_asksForTheSingleLayout() {
            const item = createTemporaryObject(plain, root);
            mouseDoubleClickSequence(item, 200, 100);
            compare(item.log.filter(line => line === "toggleSingleLayout").length, 1);
        }
        function test_channelButtons() {
            const item = createTemporaryObject(plain, root);
            const buttons = Find.all(partsOf(item)[7], "RoundButton");
            compare(buttons.length, 2);
            const [previous, next] = buttons;
            compare(partsOf(item)[7].visible, false);
            mouseClick(item, 20, 150);
            compare(item.log, ["areaClicked"]);
            item.log = [];
            item.channelButtonsVisible = true;
            compare(previous.x, 0);
            compare(next.x, 400 - next.width);
            for (const button of buttons) {
                compare(button.y, (300 - button.height) / 2);
                compare(button.icon.color, Theme.defaultIconColor);
            }
            compare(previous.icon.source, "qrc:/qt/qml/orrinsdkqml/resources/arrow_left.svg");
            compare(next.icon.source, "qrc:/qt/qml/orrinsdkqml/resources/arrow_right.svg");
            // They lie above the control of the camera.
            item.opticalPtzEnabled = true;
            mouseClick(previous);
            mouseClick(next);
            compare(item.log, ["previousChannel", "nextChannel"]);
        }
        function test_subtitle_needsAllThree() {
            const item = createTemporaryObject(plain, root);
            const subtitle = Find.first(item, "Subtitle");
            compare(subtitle.x, 2);
            compare(subtitle.y, 2);
            compare(subtitle.width, 396);
            displayOf(item).currentFrameChanged();
            compare(subtitle.visible, false);
            item.subtitlesVisible = true;
            compare(subtitle.visible, true);
            item.decorationsVisible = false;
            compare(subtitle.visible, false);
            item.decorationsVisible = true;
            item.reset();
            compare(subtitle.visible, false);
            borderOf(item).borderWidth = 10;
            compare(subtitle.x, 10);
        }
        function test_busySpinner_isHidden_whileTheStreamIsNotBusy() {
            const item = createTemporaryObject(plain, root);
            compare(Find.first(item, "BusySpinner").visible, false);
            compare(Find.first(item, "BusySpinner").busy, false);
        }
        function test_snapshot_tellsWhatBecameOfIt() {
            const item = createTemporaryObject(plain, root);
            item.snapshot();
            compare(item.log, ["message Screenshot failed in: Couldn't save image"]);
            item.log = [];
            item.playbackController.snapshotSaved("screenshot-1");
            compare(item.log, ["message Image saved in: screenshot-1"]);
        }
        function test_textOverlay_followsTheSettings() {
            const item = createTemporaryObject(plain, root);
            compare(item.playbackController.textOverlay, true);
            settings.textOverlay = false;
            compare(item.playbackController.textOverlay, false);
        }
        function test_playback_isPassedOn() {
            const item = createTemporaryObject(plain, root);
            // Without a right to play back only the pause changes anything.
            item.pause();
            compare(item.playbackController.speed, 0);
            compare(item.playbackState, PlaybackController.Pause);
            item.play();
            item.forward();
            item.rewind();
            item.fastForward(4);
            item.fastRewind(4);
            compare(item.playbackController.speed, 0);
            for (const call of [() => item.live(), () => item.frameStepForward(), () => item.frameStepBack(), () => item.setTrackId(2),
                                () => item.jump(new Date(), 1, 2, 3, null), () => item.scrubJump(Date.now(), null),
                                () => item.changeStream(false)])
                call();
            compare(item.getBeginning(), 0);
            compare(item.getEnd(), 0);
            compare(item.getTime(), displayOf(item).frameDateTimeServerTz);
            compare(item.getTimeMs(), displayOf(item).frameTimeMs);
        }
        function test_panTilt_hasADeadZone_data() {
            return [
                { tag: "one axis below", x: 2499, y: 2500, pan: 0, tilt: 2500 },
                { tag: "both below", x: -2499, y: -2499, pan: 0, tilt: 0 },
                { tag: "at the edge", x: -2500, y: -2500, pan: -2500, tilt: -2500 },
                { tag: "beyond the range", x: 70000, y: 1, pan: 70000, tilt: 0 }
            ];
        }
        function test_panTilt_hasADeadZone(data) {
            const item = createTemporaryObject(plain, root);
            item.ptzfZoom(900);
            compare(item.ptzfController.zoom, 900);
            item.ptzfPanTilt(data.x, data.y);
            compare(item.ptzfController.pan, data.pan);
            compare(item.ptzfController.tilt, data.tilt);
            compare(item.ptzfController.zoom, 0);
        }
        function test_panTilt_followsItsSpeed() {
            const item = createTemporaryObject(plain, root, { panTiltMinSpeed: 10 });
            item.ptzfPanTilt(9, 10);
            compare(item.ptzfController.pan, 0);
            compare(item.ptzfController.tilt, 10);
            item.ptzfPan(3);
            item.ptzfTilt(4);
            compare(item.ptzfController.pan, 3);
            compare(item.ptzfController.tilt, 4);
        }
        function test_drags_steerTheCamera_whileOpticalPtzIsOn() {
            const item = createTemporaryObject(plain, root);
            const line = lineOf(item);
            compare(line.visible, false);
            compare(line.enabled, false);
            line.speedX = 5000;
            compare(item.ptzfController.pan, 0);
            item.opticalPtzEnabled = true;
            compare(line.enabled, true);
            compare(line.visible, true);
            // Being shown alone sends what the control holds.
            compare(item.ptzfController.pan, 5000);
            line.speedY = -6000;
            compare(item.ptzfController.tilt, -6000);
            line.speedX = 100;
            compare(item.ptzfController.pan, 0);
            line.speedZ = 700;
            compare(item.ptzfController.zoom, 700);
            item.extraPtzEnabled = true;
            compare(line.enabled, false);
            compare(line.visible, false);
            // As does being hidden.
            compare(item.ptzfController.zoom, 0);
            line.speedZ = 900;
            compare(item.ptzfController.zoom, 0);
        }
        function test_drag_inTheMiddle_isTheCameras_andAtTheEdgeThePictures() {
            const item = createTemporaryObject(plain, root, { opticalPtzEnabled: true });
            mousePress(item, 200, 150);
            mouseMove(item, 240, 150);
            verify(item.ptzfController.pan > 2500, item.ptzfController.pan);
            mouseRelease(item, 240, 150);
            compare(item.ptzfController.pan, 0);
            mousePress(item, 10, 150);
            mouseMove(item, 30, 150);
            compare(item.ptzfController.pan, 0);
            mouseRelease(item, 30, 150);
            // A click goes through it to the tile.
            item.log = [];
            mouseClick(item, 200, 150);
            compare(item.log, ["areaClicked"]);
        }
        function test_opticalPtz_followsWhatIsAvailable() {
            const item = createTemporaryObject(plain, root);
            item.opticalPtzEnabled = true;
            item.ptzfAvailable = true;
            compare(item.opticalPtzEnabled, true);
            item.ptzfAvailable = false;
            compare(item.opticalPtzEnabled, false);
        }
        function test_extraControls_standAboveTheHostsOnes() {
            const item = createTemporaryObject(plain, root, { height: 400 });
            const extra = partsOf(item)[5];
            compare(extra.visible, false);
            item.extraPtzEnabled = true;
            compare(extra.visible, true);
            compare(extra.y, 400 - extra.height - 120);
            fuzzyCompare(extra.x, (400 - extra.width) / 2, 0.51);
        }
        function test_preset_isWrittenToTheHostsToolbars() {
            const item = createTemporaryObject(plain, root);
            item.ptzfController.preset = 7;
            compare(toolbars.preset, 7);
        }
        function test_points_areSizedByTheSettings() {
            const item = createTemporaryObject(plain, root);
            const points = partsOf(item)[4];
            compare(points.visible, false);
            points.visible = true;
            const discs = Find.all(points, "QQuickRectangle");
            compare(discs.length, 3);
            compare(discs.map(disc => disc.width), [66, 66, 33]);
            compare(discs.map(disc => disc.height), [66, 66, 33]);
            compare(discs.map(disc => disc.radius), [33, 33, 16.5]);
            compare(discs.map(disc => String(disc.color)), ["#55ff0000", "#55ff0000", "#550000ff"]);
            compare(discs.map(disc => disc.visible), [false, false, false]);
            settings.pinchPointsVisible = true;
            compare(discs.map(disc => disc.visible), [true, true, true]);
            points.setPoints({ point1: Qt.point(100, 50), point2: Qt.point(200, 60), center: Qt.point(150, 55) });
            compare(discs.map(disc => [disc.x + disc.width / 2, disc.y + disc.height / 2]), [[100, 50], [200, 60], [150, 55]]);
        }
        function test_pinch_showsThePoints_whileItLasts() {
            const item = createTemporaryObject(plain, root);
            const points = partsOf(item)[4];
            const touch = touchEvent(item);
            touch.press(0, item, 180, 100).press(1, item, 220, 100).commit();
            for (let step = 1; step <= 5; ++step) {
                touch.move(0, item, 180 - 10 * step, 100).move(1, item, 220 + 10 * step, 100).commit();
                waitForRendering(item, 50);
            }
            tryCompare(points, "visible", true);
            touch.release(0, item, 130, 100).release(1, item, 270, 100).commit();
            tryCompare(points, "visible", false);
        }
        function test_arithmetic() {
            const item = createTemporaryObject(plain, root);
            compare(item.scaleBetween(50, -1, 1, 0, 200), -0.5);
            fuzzyCompare(item.pinchScaleDiff({ scale: 1.75, previousScale: 1.5 }), 1.25, 1e-9);
        }
    }
}
