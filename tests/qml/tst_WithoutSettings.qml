// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml

Item {
    id: root

    width: 400
    height: 300

    Component {
        id: newer

        Column {
            O_Button { text: "Button" }
            O_Label { text: "Label" }
            O_RoundButton { text: "R" }
            O_ComboBox { model: 3 }
            O_SpinBox { editable: true }
            O_TextEdit {}
            O_TextInput {
                width: 100
                inputHeight: 30
            }
            TransparentDialog {
                width: 50
                height: 20
            }
            BusySpinner { busy: true }
            ScreenPreview {
                row: 1
                column: 1
            }
            LayoutSelector {}
        }
    }
    Component {
        id: page

        LayoutSelection {}
    }
    Component {
        id: sheet

        O_StyleSheet {}
    }
    TestCase {
        name: "WithoutSettings"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_newerComponents_askForNoSettings() {
            compare(settings, null);
            const column = createTemporaryObject(newer, root);
            compare(column.children.length, 11);
            verify(createTemporaryObject(page, root));
            compare(createTemporaryObject(sheet, root).factor, 1);
        }
    }
}
