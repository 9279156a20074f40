// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 400
    height: 300

    Component {
        id: plain

        O_ComboBoxInput {}
    }
    TestCase {
        name: "O_ComboBoxInput"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            settings.devicePixelRatio = 1;
        }
        function test_layout_followsTheDevicePixelRatio() {
            const item = createTemporaryObject(plain, root);
            compare(item.height, 50);
            compare(item.combo.x, 100);
            settings.devicePixelRatio = 2;
            compare(item.height, 100);
            compare(item.combo.x, 200);
            item.label.x = 30;
            compare(item.combo.x, 230);
        }
        function test_label_isLargeAndWhite() {
            const item = createTemporaryObject(plain, root);
            compare(item.label.font.pixelSize, 30);
            compare(item.label.color, "#ffffff");
            item.label.text = "Host";
            item.combo.model = ["a", "b"];
            compare(Find.first(item, "Label_").text, "Host");
            compare(Find.first(item, "ComboBox_").count, 2);
        }
    }
}
