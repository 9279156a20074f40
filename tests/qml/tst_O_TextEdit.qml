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

        O_TextEdit { text: "host" }
    }
    Item {
        id: elsewhere

        focus: true
    }
    SignalSpy {
        id: finished

        signalName: "editingFinished"
    }
    SignalSpy {
        id: edited

        signalName: "textEdited"
    }
    TestCase {
        name: "O_TextEdit"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_border_keepsItsSize_whateverTheItems() {
            const item = createTemporaryObject(plain, root);
            const border = Find.first(item, "QQuickRectangle");
            const input = Find.first(item, "QQuickTextInput");
            compare(border.width, 200);
            compare(border.height, input.implicitHeight + 8);
            compare(item.implicitWidth, 200);
            compare(item.implicitHeight, border.implicitHeight);
            item.width = 350;
            item.height = 100;
            compare(border.width, 200);
            compare(border.height, input.implicitHeight + 8);
            compare(input.x, 4);
            compare(input.width, 192);
        }
        function test_look_isTheThemes_untilSet() {
            const item = createTemporaryObject(plain, root);
            const border = Find.first(item, "QQuickRectangle");
            const input = Find.first(item, "QQuickTextInput");
            compare(border.radius, Theme.borderRadius);
            compare(border.border.width, Theme.borderWidth);
            compare(border.border.color, Theme.borderColor);
            compare(border.color, "#00000000");
            compare(input.color, Theme.defaultTextColor);
            item.textColor = "#010203";
            item.rectColor = "#040506";
            item.rectFill = "#070809";
            compare(input.color, "#010203");
            compare(border.border.color, "#040506");
            compare(border.color, "#070809");
        }
        function test_borderColour_tellsTheFocus() {
            const item = createTemporaryObject(plain, root, { rectColor: "#010203", rectColorSelected: "#040506" });
            const border = Find.first(item, "QQuickRectangle");
            compare(border.border.color, "#010203");
            mouseClick(item, 20, 12);
            tryCompare(border.border, "color", "#040506");
            elsewhere.forceActiveFocus();
            compare(border.border.color, "#010203");
        }
        function test_signals_areForwarded() {
            const item = createTemporaryObject(plain, root);
            finished.target = item;
            edited.target = item;
            finished.clear();
            edited.clear();
            mouseClick(item, 20, 12);
            keyClick(Qt.Key_End);
            keyClick("s");
            compare(item.text, "hosts");
            compare(edited.count, 1);
            compare(finished.count, 0);
            keyClick(Qt.Key_Return);
            compare(finished.count, 1);
        }
        function test_aliases_reachTheInput() {
            const item = createTemporaryObject(plain, root, { readOnly: true, wrapMode: TextInput.WordWrap,
                                                              echoMode: TextInput.Password });
            const input = Find.first(item, "QQuickTextInput");
            verify(input.readOnly);
            compare(input.wrapMode, TextInput.WordWrap);
            compare(input.echoMode, TextInput.Password);
            verify(input.displayText !== "host");
        }
    }
}
