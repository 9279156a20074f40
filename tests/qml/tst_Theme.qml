// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml

Item {
    id: root

    width: 400
    height: 300

    TestCase {
        name: "Theme"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_value_data() {
            return [
                { tag: "defaultIconColor", value: Qt.color("#ffffff") },
                { tag: "defaultTextColor", value: Qt.color("#ffffff") },
                { tag: "defaultMaterialAccentColor", value: Qt.color("#0777bc") },
                { tag: "defaultMaterialForegroundColor", value: Qt.color("#ffffff") },
                { tag: "borderColor", value: Qt.color("#434c4e") },
                { tag: "borderSelectedColor", value: Qt.color("#3a6073") },
                { tag: "white", value: Qt.color("#ffffff") },
                { tag: "orrinworksBlue", value: Qt.color("#0777bc") },
                { tag: "darkBlue", value: Qt.color("#043c5e") },
                { tag: "lightBlue", value: Qt.color("#d1ecff") },
                { tag: "blackOne", value: Qt.color("#1a1b1f") },
                { tag: "blackTwo", value: Qt.color("#16222a") },
                { tag: "gray", value: Qt.color("#7f898c") },
                { tag: "grayBlue", value: Qt.color("#3a6073") },
                { tag: "green", value: Qt.color("#006344") },
                { tag: "yellowGreen", value: Qt.color("#b6c61a") },
                { tag: "yellow", value: Qt.color("#e0ec6f") },
                { tag: "darkGray", value: Qt.color("#434c4e") },
                { tag: "borderWidth", value: 2 },
                { tag: "borderRadius", value: 4 },
                { tag: "defaultSpacing", value: 4 },
                { tag: "wideSpacing", value: 12 },
                { tag: "veryWideSpacing", value: 16 },
                { tag: "defaultMargins", value: 3 },
                { tag: "wideMargins", value: 8 },
                { tag: "veryWideMargins", value: 16 }
            ];
        }
        function test_value(data) {
            compare(Theme[data.tag], data.value);
        }
        function test_value_isReadOnly_data() {
            return test_value_data();
        }
        function test_value_isReadOnly(data) {
            try {
                Theme[data.tag] = data.value;
            } catch (error) {
                compare(Theme[data.tag], data.value);
                return;
            }
            fail("written");
        }
    }
}
