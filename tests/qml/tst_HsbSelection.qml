// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml

Item {
    id: root

    property int early: 0

    width: 400
    height: 300

    Component {
        id: plain

        HsbSelection {
            width: 300
            onZoomChanged: root.early += 1
            onHueChanged: root.early += 1
        }
    }
    SignalSpy {
        id: spy
    }
    TestCase {
        name: "HsbSelection"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
            root.early = 0;
        }
        function cleanup() {
            spy.target = null;
        }
        function make(): var {
            const item = createTemporaryObject(plain, root);
            verify(item);
            return item;
        }
        function sliders(item: var): var {
            return Array.from(item.children).filter(child => child.from !== undefined);
        }
        function test_rows() {
            const item = make();
            compare(item.columns, 2);
            compare(item.rows, 5);
            const texts = Array.from(item.children).filter(child => child.text !== undefined);
            compare(texts.map(text => text.text).join(), "Zoom,Hue,Saturation,Contrast,Brightness");
            compare(sliders(item).length, 5);
            for (let i = 0; i < 5; ++i) {
                compare(texts[i].width, 60);
                compare(texts[i].height, settings.controlHeightHints);
                compare(texts[i].font.pixelSize, Math.round(settings.fontPixelSizeHints));
                compare(texts[i].color, settings.textColor);
                compare(sliders(item)[i].width, 240);
                compare(sliders(item)[i].height, settings.controlHeightHints);
                tryCompare(sliders(item)[i], "y", i * settings.controlHeightHints);
            }
        }
        function test_ranges() {
            const [zoom, ...others] = sliders(make());
            compare(zoom.from, 10);
            compare(zoom.to, 300);
            compare(zoom.value, 100);
            for (const other of others) {
                compare(other.from, -1.0);
                compare(other.to, 1.0);
                compare(other.value, 0.0);
            }
        }
        function test_start_isNotReported() {
            make();
            compare(root.early, 0);
        }
        function test_slider_reportsItsValue_data() {
            return [
                { tag: "zoom", index: 0, value: 250, signal: "zoomChanged", expected: 2.5 },
                { tag: "zoom of none", index: 0, from: 200, value: 100, signal: "zoomChanged", expected: 1.0 },
                { tag: "hue", index: 1, value: 0.5, signal: "hueChanged", expected: 0.5 },
                { tag: "saturation", index: 2, value: -0.5, signal: "saturationChanged", expected: -0.5 },
                { tag: "contrast", index: 3, value: 1.0, signal: "contrastChanged", expected: 1.0 },
                { tag: "brightness", index: 4, value: -1.0, signal: "brightnessChanged", expected: -1.0 }
            ];
        }
        function test_slider_reportsItsValue(data) {
            const item = make();
            const slider = sliders(item)[data.index];
            if (data.from !== undefined)
                slider.value = data.from;
            spy.target = item;
            spy.signalName = data.signal;
            spy.clear();
            slider.value = data.value;
            compare(spy.count, 1);
            fuzzyCompare(spy.signalArguments[0][0], data.expected, 1e-9);
            slider.value = data.value;
            compare(spy.count, 1);
        }
        function test_drag_reports() {
            const item = make();
            spy.target = item;
            spy.signalName = "hueChanged";
            spy.clear();
            const slider = sliders(item)[1];
            mousePress(slider, slider.width / 2, slider.height / 2);
            mouseMove(slider, slider.width / 2 + 60, slider.height / 2);
            mouseMove(slider, slider.width - 1, slider.height / 2);
            mouseRelease(slider, slider.width - 1, slider.height / 2);
            verify(spy.count >= 1);
            compare(spy.signalArguments[spy.count - 1][0], 1.0);
        }
    }
}
