// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 400
    height: 300

    Component {
        id: plain

        PtzExtraControls {}
    }
    SignalSpy {
        id: presetSpy

        signalName: "goToPreset"
    }
    SignalSpy {
        id: tourSpy

        signalName: "goToTour"
    }
    TestCase {
        name: "PtzExtraControls"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function make(properties: var): var {
            const item = createTemporaryObject(plain, root, properties === undefined ? {} : properties);
            verify(item);
            presetSpy.target = item;
            tourSpy.target = item;
            presetSpy.clear();
            tourSpy.clear();
            return item;
        }
        function tumblers(item: var): var {
            return Find.all(item, "Tumbler").concat(Find.all(item, "Selector"));
        }
        function goButtons(item: var): var {
            return Find.all(item, "GoButton").concat(Find.all(item, "RoundButton"));
        }
        function cleanup() {
            presetSpy.target = null;
            tourSpy.target = null;
        }
        function test_defaults() {
            const item = make();
            compare(item.maxPresets, 255);
            compare(item.maxTours, 255);
            compare(item.implicitWidth, 200);
            compare(item.implicitHeight, 150);
            compare(goButtons(item).length, 2);
            compare(item.tumblerHeight, 1.3 * 24);
            compare(item.formatText(255, 0), 1);
            compare(item.formatText(3, 7), 8);
        }
        function test_panel_holdsTwoRowsInTheMiddle() {
            const item = make();
            const texts = Find.all(item, "Label").map(label => label.text);
            verify(texts.indexOf("Preset:") >= 0);
            verify(texts.indexOf("Tour:") >= 0);
            const grid = Find.first(item, "QQuickGridLayout");
            compare(grid.columns, 3);
            compare(grid.rows, 2);
            const column = Find.first(item, "QQuickColumnLayout");
            fuzzyCompare(column.x + column.width / 2, 100, 0.51);
            const caption = Find.all(item, "Label").find(label => label.text === "Tour:");
            compare(caption.color, Theme.defaultTextColor);
        }
        function test_separator_crossesThePanel() {
            const item = make();
            const line = Find.all(item, "QQuickRectangle").find(each => each.height === 1 && each.opacity === 0.5);
            verify(line);
            compare(line.width, 200);
            fuzzyCompare(line.y, 74.5, 0.51);
            compare(line.border.color, Find.first(item, "TransparentDialog").border.color);
        }
        function test_buttons_areRoundArrows() {
            const item = make();
            for (const button of goButtons(item)) {
                compare(button.width, 24);
                compare(button.height, 24);
                compare(button.icon.source, "qrc:/qt/qml/orrinsdkqml/resources/arrow_right.svg");
                compare(button.icon.color, Theme.white);
            }
        }
        function test_tumblers_offerTheNumbers_data() {
            return [{ tag: "all", maximum: 255 }, { tag: "few", maximum: 4 }];
        }
        function test_tumblers_offerTheNumbers(data) {
            const item = make({ maxPresets: data.maximum, maxTours: 2 });
            const [presets, tours] = tumblers(item);
            compare(presets.count, data.maximum);
            compare(tours.count, 2);
            for (const tumbler of [presets, tours]) {
                compare(tumbler.wrap, false);
                compare(tumbler.visibleItemCount, 3);
                compare(tumbler.currentIndex, 0);
                compare(tumbler.implicitHeight, item.tumblerHeight);
                compare(tumbler.currentItem.text, "1");
            }
            presets.currentIndex = data.maximum - 1;
            tryVerify(() => presets.currentItem && presets.currentItem.text === String(data.maximum));
        }
        function test_delegate_fadesWithItsDistance() {
            const item = make();
            const presets = tumblers(item)[0];
            tryCompare(presets.currentItem, "opacity", 1.0);
            compare(presets.currentItem.color, Theme.white);
            compare(presets.currentItem.font.pixelSize, presets.font.pixelSize);
            compare(presets.currentItem.horizontalAlignment, Text.AlignHCenter);
            compare(presets.currentItem.verticalAlignment, Text.AlignVCenter);
            const next = Find.all(presets, "Label").find(label => label.text === "2");
            verify(next);
            tryVerify(() => Math.abs(next.opacity - (1.0 - 1 / 1.5)) < 0.01);
        }
        function test_tumblerHeight_canBeSet() {
            const item = make({ tumblerHeight: 60 });
            compare(tumblers(item)[0].implicitHeight, 60);
        }
        function test_go_sendsTheNumberThatIsShown() {
            const item = make();
            const [presetButton, tourButton] = goButtons(item);
            mouseClick(presetButton);
            compare(presetSpy.count, 1);
            compare(presetSpy.signalArguments[0][0], 1);
            compare(tourSpy.count, 0);
            const [presets, tours] = tumblers(item);
            presets.currentIndex = 41;
            tours.currentIndex = 254;
            tryVerify(() => presets.currentItem && presets.currentItem.text === "42");
            tryVerify(() => tours.currentItem && tours.currentItem.text === "255");
            mouseClick(presetButton);
            compare(presetSpy.signalArguments[1][0], 42);
            mouseClick(tourButton);
            compare(tourSpy.count, 1);
            compare(tourSpy.signalArguments[0][0], 255);
        }
        function test_go_byTouch() {
            const item = make();
            const tourButton = goButtons(item)[1];
            touchEvent(item).press(0, tourButton).commit();
            touchEvent(item).release(0, tourButton).commit();
            compare(tourSpy.count, 1);
        }
        function test_signals_forUsers() {
            const item = make();
            for (const name of ["focusIn", "focusOut", "irisIn", "irisOut"])
                compare(typeof item[name], "function", name);
        }
    }
}
