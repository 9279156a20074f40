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

        O_RoundButton { text: "+" }
    }
    SignalSpy {
        id: clicks

        signalName: "clicked"
    }
    TestCase {
        name: "O_RoundButton"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_button_fillsTheItem_andUsesTheApplicationsFont() {
            const item = createTemporaryObject(plain, root);
            const button = Find.first(item, "RoundButton_");
            verify(button.implicitWidth > 0);
            compare(item.implicitWidth, button.implicitWidth);
            compare(item.implicitHeight, button.implicitHeight);
            compare(button.font.family, Qt.application.font.family);
            compare(button.font.pointSize, Qt.application.font.pointSize);
            compare(button.text, "+");
            item.width = 90;
            compare(button.width, 90);
        }
        function test_click_isForwardedOnce() {
            const item = createTemporaryObject(plain, root);
            clicks.clear();
            clicks.target = item;
            mouseClick(item);
            compare(clicks.count, 1);
        }
    }
}
