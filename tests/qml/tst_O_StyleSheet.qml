// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml

Item {
    id: root

    width: 400
    height: 300

    Component {
        id: plain

        O_StyleSheet {}
    }
    TestCase {
        name: "O_StyleSheet"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        readonly property var bases: ({
            loginTextInputWidth: 290,
            inputFontPixelSize: 16,
            dropDownButtonWidth: 13,
            dropDownButtonHeight: 20,
            dropDownButtonRightMargin: 2,
            comboHeight: 48,
            comboBorder: 2,
            deleteBtnWidth: 9,
            deleteBtnHeight: 9,
            loginLayoutLRMargin: 80
        })

        function test_defaults_standForFactorOne() {
            const sheet = createTemporaryObject(plain, root);
            compare(sheet.deviceModel, "");
            compare(sheet.deviceWidth, 0);
            compare(sheet.deviceHeight, 0);
            compare(sheet.factor, 1);
            for (const name in bases)
                compare(sheet[name], bases[name], name);
        }
        function test_init_scalesToTheShortSide_data() {
            return [
                { tag: "desktop ignores the size", model: "Desktop", w: 10, h: 20, width: 640, height: 960, factor: 2 },
                { tag: "320 is 1", model: "phone", w: 320, h: 480, width: 320, height: 480, factor: 1 },
                { tag: "640 by 960 is 2", model: "", w: 640, h: 960, width: 640, height: 960, factor: 2 },
                { tag: "landscape", model: "phone", w: 800, h: 360, width: 800, height: 360, factor: 1.125 },
                { tag: "not quite desktop", model: "desktop", w: 160, h: 200, width: 160, height: 200, factor: 0.5 }
            ];
        }
        function test_init_scalesToTheShortSide(data) {
            const sheet = createTemporaryObject(plain, root);
            sheet.initWithDeviceModel(data.model, data.w, data.h);
            compare(sheet.deviceModel, data.model);
            compare(sheet.deviceWidth, data.width);
            compare(sheet.deviceHeight, data.height);
            compare(sheet.factor, data.factor);
            for (const name in bases)
                compare(sheet[name], Math.trunc(bases[name] * data.factor), name);
        }
        function test_scaledValues_loseTheirFraction_whenFactorIsFractional() {
            const sheet = createTemporaryObject(plain, root, { factor: 1.3 });
            compare(sheet.dropDownButtonWidth, 16);
            compare(sheet.deleteBtnWidth, 11);
            compare(sheet.loginTextInputWidth, 377);
            sheet.factor = 0.99;
            compare(sheet.comboBorder, 1);
        }
    }
}
