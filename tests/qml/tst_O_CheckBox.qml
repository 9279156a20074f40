// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml

Item {
    id: root

    width: 400
    height: 300

    Component {
        id: plain

        O_CheckBox {}
    }
    TestCase {
        name: "O_CheckBox"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            settings.controlHeightHints = 33;
        }
        function test_size_followsTheControlHeight() {
            const item = createTemporaryObject(plain, root);
            compare(item.width, 33);
            compare(item.height, 33);
            settings.controlHeightHints = 50;
            compare(item.width, 50);
            compare(item.height, 50);
            compare(item.scale, 1);
            compare(item.antialiasing, false);
            compare(item.text, "");
        }
        function test_click_toggles() {
            const item = createTemporaryObject(plain, root);
            mouseClick(item);
            verify(item.checked);
            mouseClick(item);
            verify(!item.checked);
        }
        function test_indicator_standsInsideTheSquare() {
            const item = createTemporaryObject(plain, root);
            verify(item.indicator.x >= 0);
            verify(item.indicator.x + item.indicator.width <= item.width);
        }
    }
}
