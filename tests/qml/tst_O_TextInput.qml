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

        O_TextInput {
            width: 300
            inputHeight: 36
            inputPixelSize: 14
        }
    }
    Component {
        id: bare

        O_TextInput {
            width: 300
        }
    }
    TestCase {
        name: "O_TextInput"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function make(properties: var): var {
            return createTemporaryObject(plain, root, properties);
        }
        function frameOf(item: var): var {
            return Find.all(item, "QQuickRectangle").find(r => Qt.colorEqual(r.color, "#4e555e") && r.parent === item);
        }
        function buttonOf(item: var): var {
            return Find.all(item, "QQuickRectangle").find(r => Qt.colorEqual(r.color, "#1f2129"));
        }
        function listOf(item: var): var {
            return Find.first(item, "QQuickListView");
        }
        function crossOf(item: var): var {
            return Find.all(item, "").find(object => String(object.source).endsWith("Cross_Icon.svg"));
        }
        function openList(item: var): var {
            item.comboVisible = true;
            waitForRendering(item);
            return listOf(item);
        }
        function test_defaults() {
            const item = createTemporaryObject(bare, root);
            compare(item.margins, 5);
            compare(item.borderWidth, 2);
            compare(item.controlHeights, 20);
            compare(item.controlRadii, 3);
            compare(item.enableComboMode, false);
            compare(item.comboVisible, false);
            compare(item.implicitHeight, 0);
            compare(item.inputHeight, 10);
            compare(item.text, "");
            verify(Find.first(item, "TextField_").focus);
        }
        function test_fieldWidth_leavesRoomForTheButtons() {
            const item = make({});
            compare(item.inputWidth, 300 - 36 - 5);
            verify(!buttonOf(item).visible);
            item.enableComboMode = true;
            compare(item.inputWidth, 300 - 36 - 5 - 36);
            verify(buttonOf(item).visible);
            compare(buttonOf(item).x, 264);
            item.margins = 10;
            item.width = 400;
            compare(item.inputWidth, 400 - 36 - 10 - 36);
        }
        function test_frame_coversTheItemsWidth_andTheFieldsHeight() {
            const item = make({ borderWidth: 3 });
            const frame = frameOf(item);
            compare(frame.width, 300);
            compare(frame.height, 36);
            compare(frame.radius, 2);
            compare(frame.border.width, 3);
            compare(frame.border.color, "#606465");
        }
        function test_errorBorder_staysUntilTakenBack() {
            const item = make({ enableComboMode: true });
            item.showErrorBorder(true);
            compare(frameOf(item).border.color, "#ff0000");
            compare(buttonOf(item).border.color, "#ff0000");
            item.text = "typed";
            compare(frameOf(item).border.color, "#ff0000");
            item.showErrorBorder(false);
            compare(frameOf(item).border.color, "#606465");
        }
        function test_errorBorder_isSeenRoundTheFocusedField() {
            const item = make({});
            item.showErrorBorder(true);
            Find.first(item, "TextField_").forceActiveFocus();
            waitForRendering(item);
            const frame = grabImage(root);
            compare(frame.pixel(0, 18), "#ff0000");
            compare(frame.pixel(150, 0), "#ff0000");
            compare(frame.pixel(150, 35), "#ff0000");
            compare(frame.pixel(299, 18), "#ff0000");
        }
        function test_eraseCross_emptiesTheField() {
            const item = make({ text: "camera" });
            mouseClick(item, item.inputWidth + 18, 18);
            compare(item.text, "");
            const cross = crossOf(item);
            compare(cross.source, "qrc:/orrinsdk/widgets/images/Cross_Icon.svg");
            compare(cross.sourceSize, Qt.size(12, 12));
        }
        function test_aliases_reachTheField() {
            const item = make({ echoMode: TextInput.Password, readOnly: true, inputMethodHints: Qt.ImhUrlCharactersOnly });
            const field = Find.first(item, "TextField_");
            compare(field.echoMode, TextInput.Password);
            verify(field.readOnly);
            compare(field.inputMethodHints, Qt.ImhUrlCharactersOnly);
            compare(field.font.pixelSize, 14);
            compare(field.height, 36);
        }
        function test_list_opensByTheButton_andClosesByIt() {
            const item = make({ enableComboMode: true, comboModel: ["a", "b"] });
            verify(!item.comboVisible);
            compare(item.implicitHeight, 0);
            mouseClick(buttonOf(item));
            verify(item.comboVisible);
            compare(item.implicitHeight, 60);
            compare(listOf(item).parent.y, 36);
            compare(listOf(item).parent.width, 298);
            verify(listOf(item).clip);
            mouseClick(buttonOf(item));
            verify(!item.comboVisible);
            item.comboVisible = true;
            item.closeCombo();
            verify(!item.comboVisible);
            compare(item.implicitHeight, 0);
        }
        function test_arrow_followsThePointer() {
            const item = make({ enableComboMode: true });
            const button = buttonOf(item);
            const arrow = Find.first(button, "ActiveIcon_");
            compare(arrow.source, "orrinsdk/widgets/images/ptzf/PTZF_DownArrowButton_Normal");
            compare(arrow.width, 18);
            compare(arrow.height, 9);
            compare(arrow.sourceSize, Qt.size(36, 36));
            compare(arrow.state, "normal");
            mouseMove(button, 10, 10);
            compare(arrow.state, "highlight");
            mousePress(button, 10, 10);
            compare(arrow.state, "active");
            mouseRelease(button, 10, 10);
            compare(arrow.state, "normal");
            mouseMove(button, 12, 12);
            mouseMove(root, 10, 250);
            compare(arrow.state, "normal");
        }
        function test_rowClick_takesTheTextAndCloses() {
            const item = make({ enableComboMode: true, comboModel: ["north", "south"] });
            const list = openList(item);
            const row = list.itemAtIndex(1);
            compare(row.height, 20);
            compare(row.width, 298);
            compare(row.radius, 3);
            compare(row.color, "#4e555e");
            mouseMove(row, 20, 10);
            compare(row.color, "#2b2e36");
            mouseClick(row, 20, 10);
            compare(item.text, "south");
            compare(list.currentIndex, 1);
            verify(!item.comboVisible);
        }
        function test_deleteCross_removesTheEntry_andLeavesTheListOpen() {
            const item = make({ enableComboMode: true, comboModel: ["north", "south", "west"], text: "typed" });
            const list = openList(item);
            const cross = crossOf(list.itemAtIndex(1));
            compare(cross.x + cross.width, 298 - 10);
            mouseClick(cross);
            compare(Array.from(item.comboModel), ["north", "west"]);
            compare(list.count, 2);
            verify(item.comboVisible);
            compare(item.text, "typed");
        }
        function test_rowText_isElidedBeforeTheCross() {
            const item = make({ enableComboMode: true, comboModel: ["a very long entry ".repeat(20)] });
            const row = openList(item).itemAtIndex(0);
            const text = Find.first(row, "QQuickText");
            const cross = crossOf(row);
            verify(text.truncated);
            compare(text.x, 5);
            compare(text.x + text.width, cross.x - 5);
            compare(text.font.pixelSize, 14);
        }
    }
}
