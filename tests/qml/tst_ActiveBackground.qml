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

        ActiveBackground {}
    }
    TestCase {
        name: "ActiveBackground"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_colours_followSettings_whenNotSet() {
            const item = createTemporaryObject(plain, root);
            compare(item.state, "normal");
            compare(item.color, settings.backgroundColor);
            compare(item.backgroundColor, settings.backgroundColor);
            compare(item.highlightColor, settings.highlightColor);
            compare(item.activeColor, settings.activeColor);
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
                { backgroundColor: "#010203", highlightColor: "#040506", activeColor: "#070809" });
            item.state = data.tag;
            compare(item.color, data.color);
            item.state = "normal";
            compare(item.color, "#010203");
        }
        function test_color_followsItsProperty_whenThatChanges() {
            const item = createTemporaryObject(plain, root, { state: "active" });
            item.activeColor = "#112233";
            compare(item.color, "#112233");
        }
    }
}
