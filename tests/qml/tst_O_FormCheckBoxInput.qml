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

        O_FormCheckBoxInput { labelText: "Log" }
    }
    TestCase {
        name: "O_FormCheckBoxInput"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            settings.controlHeightHints = 33;
            settings.controlMarginsHints = 5;
            settings.devicePixelRatio = 1;
        }
        function test_layout_followsSettings() {
            const item = createTemporaryObject(plain, root);
            const row = Find.first(item, "QQuickRow");
            const label = Find.first(item, "O_Label_");
            const box = Find.first(item, "O_CheckBox_");
            compare(item.color, "#00000000");
            compare(item.width, 200);
            compare(item.height, 33);
            compare(row.width, 200);
            compare(row.spacing, 5);
            compare(label.width, 50);
            compare(label.height, 33);
            compare(box.x, 55);
            compare(box.width, 150);
            compare(box.height, 33);
            settings.devicePixelRatio = 1.5;
            settings.controlHeightHints = 50;
            settings.controlMarginsHints = 8;
            compare(item.width, 300);
            compare(item.height, 50);
            compare(row.spacing, 8);
            compare(label.width, 75);
            compare(box.width, 225);
        }
        function test_label_isWhiteAndRightAligned() {
            const item = createTemporaryObject(plain, root);
            const label = Find.first(item, "O_Label_");
            const text = Find.first(label, "Label_");
            compare(label.text, "Log");
            compare(label.color, "#ffffff");
            compare(label.horizontalAlignment, Text.AlignRight);
            compare(label.verticalAlignment, Text.AlignVCenter);
            compare(text.x + text.width, label.width);
            item.labelText = "All";
            compare(text.text, "All");
        }
        function test_checked_isTheBoxs() {
            const item = createTemporaryObject(plain, root);
            const box = Find.first(item, "O_CheckBox_");
            verify(!item.checked);
            mouseClick(box);
            verify(item.checked);
            item.checked = false;
            verify(!box.checked);
        }
    }
}
