// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 400
    height: 400

    Component {
        id: plain

        ServerCombo {
            width: 200
            editable: true
        }
    }
    TestCase {
        name: "ServerCombo"
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
            compare(item.serverUidString, "");
            compare(combo(item).textRole, "display");
            compare(combo(item).valueRole, "uid");
            compare(combo(item).count, 0);
            compare(item.implicitHeight, combo(item).implicitHeight);
            compare(createTemporaryObject(plain, root).editable, true);
        }
        function test_pick_tellsTheUid() {
            verify(site.login(11, 1, "north", 1));
            verify(site.login(12, 2, "north", 1));
            const item = make({ model: site.serverList(11) });
            compare(combo(item).count, 2);
            compare(item.serverUidString, "");
            mouseClick(item);
            const box = Find.first(item, "ComboBox_");
            tryVerify(() => box.popup.opened);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Return);
            tryCompare(item, "serverUidString", "12");
            compare(combo(item).currentText, "Recorder 12");
        }
        function test_uid_keepsAllItsDigits() {
            const item = make({ model: site.largestUid() });
            mouseClick(item);
            const box = Find.first(item, "ComboBox_");
            tryVerify(() => box.popup.opened);
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Return);
            tryCompare(item, "serverUidString", "18446744073709551615");
        }
        function test_writing_eitherWay_changesNothingElse() {
            verify(site.login(11, 1, "north", 1));
            verify(site.login(12, 2, "north", 1));
            const item = make({ model: site.serverList(11) });
            combo(item).currentIndex = 1;
            compare(item.serverUidString, "");
            item.serverUidString = "11";
            compare(combo(item).currentIndex, 1);
        }
        function test_text_isBare_whenNotEditable() {
            verify(site.login(11, 1, "north", 1));
            const item = make({ model: site.serverList(11), editable: false });
            const label = Find.first(item, "O_Label_");
            compare(label.text, "Recorder 11");
            verify(label.visible);
            verify(!Find.first(item, "ComboBox_").visible);
        }
        function test_model_mayBeMissingOrForeign_data() {
            return [ { tag: "null", model: null, count: 0 }, { tag: "texts", model: ["a", "b"], count: 2 }, { tag: "number", model: 3, count: 3 } ];
        }
        function test_model_mayBeMissingOrForeign(data: var) {
            const item = make({ model: data.model });
            compare(combo(item).count, data.count);
            compare(item.serverUidString, "");
        }
        function test_names_arePlainText_inTheListToo() {
            const item = make({ model: site.table(["display", "uid"], [["<b>North & South</b>", 1], ["\u05e6\u05e4\u05d5\u05df", 2]]) });
            mouseClick(item);
            const box = Find.first(item, "ComboBox_");
            tryVerify(() => box.popup.opened);
            const entry = Find.all(box.popup.contentItem, "MenuItem")[0];
            compare(entry.contentItem.text, "<b>North & South</b>");
            compare(entry.contentItem.textFormat, Text.PlainText);
            keyClick(Qt.Key_Escape);
            tryVerify(() => !box.popup.visible);
        }
    }
}
