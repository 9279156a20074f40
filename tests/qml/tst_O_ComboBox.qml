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

        O_ComboBox {
            width: 200
            model: ["day", "week", "month"]
        }
    }
    Component {
        id: roles

        O_ComboBox {
            textRole: "name"
            valueRole: "code"
            model: ListModel {
                ListElement { name: "day"; code: 10 }
                ListElement { name: "week"; code: 20 }
            }
        }
    }
    SignalSpy {
        id: spy
    }
    TestCase {
        name: "O_ComboBox"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_defaults() {
            const item = createTemporaryObject(plain, root);
            const combo = Find.first(item, "ComboBox_");
            verify(item.editable);
            verify(!combo.editable);
            compare(item.count, 3);
            compare(item.currentIndex, 0);
            compare(item.currentText, "day");
            verify(item.implicitWidth > 0);
            compare(item.implicitHeight, combo.implicitHeight);
            compare(combo.width, 200);
        }
        function test_font_isTheApplications_inBoxAndList() {
            const combo = Find.first(createTemporaryObject(plain, root), "ComboBox_");
            compare(combo.font.family, Qt.application.font.family);
            compare(combo.font.pointSize, Qt.application.font.pointSize);
            compare(combo.popup.font.family, Qt.application.font.family);
            compare(combo.popup.font.pointSize, Qt.application.font.pointSize);
        }
        function test_roles_giveTextAndValue() {
            const item = createTemporaryObject(roles, root);
            item.currentIndex = 1;
            compare(item.currentText, "week");
            compare(item.currentValue, 20);
            compare(item.find("week"), 1);
            compare(item.find("year"), -1);
        }
        function test_bareText_isShown_whenNotEditable() {
            const item = createTemporaryObject(plain, root, { editable: false, currentIndex: 1 });
            const combo = Find.first(item, "ComboBox_");
            const label = Find.first(item, "O_Label_");
            verify(!combo.visible);
            verify(label.visible);
            compare(label.text, "week");
            compare(label.parent.height, combo.height);
            fuzzyCompare(label.x + label.width / 2, label.parent.width / 2, 1);
            item.editable = true;
            verify(combo.visible);
            verify(!label.visible);
        }
        function test_activated_comesWithThePickedRow() {
            const item = createTemporaryObject(plain, root);
            const combo = Find.first(item, "ComboBox_");
            spy.target = item;
            spy.signalName = "activated";
            spy.clear();
            mouseClick(item);
            tryVerify(() => combo.popup.opened);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Return);
            tryCompare(spy, "count", 1);
            compare(spy.signalArguments[0][0], 1);
            compare(item.currentIndex, 1);
            tryVerify(() => !combo.popup.visible);
        }
        function test_accepted_isForwarded() {
            const item = createTemporaryObject(plain, root);
            spy.target = item;
            spy.signalName = "accepted";
            spy.clear();
            Find.first(item, "ComboBox_").accepted();
            compare(spy.count, 1);
        }
        function test_typing_changesNothing() {
            const item = createTemporaryObject(plain, root);
            Find.first(item, "ComboBox_").forceActiveFocus();
            keyClick("x");
            compare(item.currentText, "day");
            compare(item.currentIndex, 0);
        }
    }
}
