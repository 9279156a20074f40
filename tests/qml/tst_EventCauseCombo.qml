// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 400
    height: 400

    Component {
        id: plain

        EventCauseCombo {
            width: 200
            editable: true
        }
    }
    Component {
        id: early

        EventCauseCombo {
            eventCause: "Door"
            model: ListModel {
                ListElement { display: "Motion" }
                ListElement { display: "Door" }
            }
        }
    }
    ListModel {
        id: causes

        ListElement { display: "Motion" }
        ListElement { display: "Door" }
        ListElement { display: "Tamper" }
    }
    TestCase {
        name: "EventCauseCombo"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            site.logOut();
        }
        function make(properties: var): var {
            return createTemporaryObject(plain, root, properties);
        }
        function combo(item: var): var {
            return Find.first(item, "O_ComboBox_");
        }
        function test_defaults() {
            const item = make({ editable: false });
            compare(item.eventCause, "");
            compare(combo(item).count, 0);
            compare(combo(item).textRole, "display");
            verify(combo(item).loadComplete);
            compare(item.implicitHeight, combo(item).implicitHeight);
        }
        function test_cause_isSelected_whenWritten() {
            const item = make({ model: causes });
            item.eventCause = "Tamper";
            compare(combo(item).currentIndex, 2);
            item.eventCause = "Door";
            compare(combo(item).currentText, "Door");
        }
        function test_cause_thatIsUnknown_selectsNothing() {
            const item = make({ model: causes });
            item.eventCause = "Flood";
            compare(combo(item).currentIndex, -1);
            compare(combo(item).currentText, "");
        }
        function test_cause_isSelected_whenTheModelComes() {
            const item = make();
            item.eventCause = "Door";
            compare(combo(item).currentIndex, -1);
            item.model = causes;
            compare(combo(item).currentIndex, 1);
        }
        function test_cause_ofTheDeclaration_waitsForAnotherChange() {
            const item = createTemporaryObject(early, root);
            compare(combo(item).currentIndex, 0);
            item.selectCurrentCause();
            compare(combo(item).currentIndex, 1);
        }
        function test_cause_isSelected_whenItArrivesLate() {
            verify(site.login(7, 2, "north", 1));
            const item = make({ model: site.causes(7) });
            item.eventCause = "Door";
            compare(combo(item).currentIndex, -1);
            site.report(7, 1, { cause: "Motion" });
            site.report(7, 1, { cause: "Door" });
            tryVerify(() => combo(item).count >= 2);
            tryVerify(() => combo(item).currentText === "Door");
        }
        function test_pick_becomesTheCause() {
            const item = make({ model: causes });
            mouseClick(item);
            const box = Find.first(item, "ComboBox_");
            tryVerify(() => box.popup.opened);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Return);
            tryCompare(item, "eventCause", "Tamper");
        }
        function test_text_isBare_whenNotEditable() {
            const item = make({ model: causes, editable: false });
            item.eventCause = "Door";
            const label = Find.first(item, "O_Label_");
            verify(label.visible);
            compare(label.text, "Door");
            compare(label.textFormat, Text.PlainText);
        }
        function test_model_mayBeMissingOrForeign_data() {
            return [ { tag: "null", model: null }, { tag: "texts", model: ["Motion"] }, { tag: "roleless", model: site.table(["other"], [["x"]]) } ];
        }
        function test_model_mayBeMissingOrForeign(data: var) {
            const item = make({ model: data.model });
            item.eventCause = "Flood";
            compare(combo(item).currentIndex, -1);
        }
    }
}
