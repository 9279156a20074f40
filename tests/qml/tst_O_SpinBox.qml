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

        O_SpinBox {
            from: 0
            to: 5000
            value: 1200
        }
    }
    TestCase {
        name: "O_SpinBox"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_bareNumber_isShown_byDefault() {
            const item = createTemporaryObject(plain, root);
            const spinBox = Find.first(item, "SpinBox_");
            const label = Find.first(item, "O_Label_");
            verify(!item.editable);
            verify(!spinBox.visible);
            verify(label.visible);
            compare(label.text, "1200");
            compare(item.implicitWidth, spinBox.implicitWidth);
            compare(item.implicitHeight, spinBox.implicitHeight);
        }
        function test_spinBox_isShown_whenEditable() {
            const item = createTemporaryObject(plain, root, { editable: true, width: 250 });
            const spinBox = Find.first(item, "SpinBox_");
            verify(spinBox.visible);
            verify(spinBox.editable);
            compare(spinBox.width, 250);
            compare(spinBox.font.family, Qt.application.font.family);
            compare(spinBox.font.pointSize, Qt.application.font.pointSize);
            compare(spinBox.from, 0);
            compare(spinBox.to, 5000);
            spinBox.value = 7;
            compare(item.value, 7);
            item.editable = false;
            verify(!spinBox.visible);
            verify(!spinBox.editable);
        }
        function test_wheel_movesByOne_perNotch() {
            const item = createTemporaryObject(plain, root, { editable: true });
            mouseWheel(item, item.width / 2, item.height / 2, 0, 120);
            compare(item.value, 1201);
            mouseWheel(item, item.width / 2, item.height / 2, 0, -120);
            mouseWheel(item, item.width / 2, item.height / 2, 0, -120);
            compare(item.value, 1199);
        }
        function test_wheel_isWithoutEffect_whenNotEditable() {
            const item = createTemporaryObject(plain, root);
            mouseWheel(item, item.width / 2, item.height / 2, 0, 120);
            compare(item.value, 1200);
        }
    }
}
