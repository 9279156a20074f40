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

        EventSourceSelector {
            width: 300
        }
    }
    TestCase {
        name: "EventSourceSelector"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function boxes(item: var): var {
            return Find.all(item, "O_SpinBox_");
        }
        function test_defaults() {
            const item = createTemporaryObject(plain, root);
            compare(item.editable, false);
            compare(item.eventSourceDeviceId, 0);
            compare(item.eventSourceSubDeviceId, 0);
            const layout = item.children[0];
            compare(layout.columns, 2);
            compare(layout.rowSpacing, Theme.wideSpacing);
            compare(layout.width, 300);
            compare(item.implicitHeight, layout.implicitHeight);
            const labels = Find.all(item, "O_Label_").map(each => each.text);
            verify(labels.includes("Device ID:"));
            verify(labels.includes("Sub Device:"));
            compare(boxes(item).map(each => [each.from, each.to]), [[0, 99], [0, 99]]);
        }
        function test_numbers_areLabels_whenNotEditable() {
            const item = createTemporaryObject(plain, root, { eventSourceDeviceId: 12, eventSourceSubDeviceId: 3 });
            const shown = Find.all(item, "O_Label_").filter(each => each.visible).map(each => each.text);
            compare(shown, ["Device ID:", "12", "Sub Device:", "3"]);
        }
        function test_numbers_areStepped_whenEditable() {
            const item = createTemporaryObject(plain, root, { editable: true });
            waitForRendering(item);
            const box = Find.first(boxes(item)[1], "SpinBox_");
            box.forceActiveFocus();
            keyClick(Qt.Key_Up);
            keyClick(Qt.Key_Up);
            compare(item.eventSourceSubDeviceId, 2);
            compare(item.eventSourceDeviceId, 0);
            mouseWheel(boxes(item)[0], 60, 10, 0, 120);
            verify(item.eventSourceDeviceId > 0);
        }
        function test_numbers_stayInTheRangeOfTheControl() {
            const item = createTemporaryObject(plain, root);
            item.eventSourceDeviceId = 1000;
            compare(item.eventSourceDeviceId, 99);
            item.eventSourceDeviceId = -5;
            compare(item.eventSourceDeviceId, 0);
        }
    }
}
