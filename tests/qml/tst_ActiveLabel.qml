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

        ActiveLabel { text: "Entrance" }
    }
    TestCase {
        name: "ActiveLabel"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_look_followsSettings_whenNotSet() {
            const item = createTemporaryObject(plain, root);
            compare(item.state, "normal");
            compare(item.color, settings.textColor);
            compare(item.textColor, settings.textColor);
            compare(item.textHighlightColor, settings.textHighlightColor);
            compare(item.textActiveColor, settings.textActiveColor);
            compare(item.font.pixelSize, Math.round(settings.fontPixelSizeHints));
        }
        function test_color_followsState_data() {
            return [
                { tag: "normal", color: "#010203" },
                { tag: "highlight", color: "#040506" },
                { tag: "active", color: "#070809" }
            ];
        }
        function test_color_followsState(data) {
            const item = createTemporaryObject(plain, root,
                { textColor: "#010203", textHighlightColor: "#040506", textActiveColor: "#070809" });
            item.state = data.tag;
            compare(item.color, data.color);
        }
    }
}
