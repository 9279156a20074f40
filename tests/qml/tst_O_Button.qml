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

        O_Button { text: "Connect" }
    }
    SignalSpy {
        id: clicks

        signalName: "clicked"
    }
    TestCase {
        name: "O_Button"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_size_isTheButtons_untilSet() {
            const item = createTemporaryObject(plain, root);
            const button = Find.first(item, "Button_");
            verify(button.implicitWidth > 0);
            compare(item.implicitWidth, button.implicitWidth);
            compare(item.implicitHeight, button.implicitHeight);
            item.width = 300;
            item.height = 90;
            compare(button.width, 300);
            compare(button.height, 90);
        }
        function test_button_usesTheApplicationsFont() {
            const button = Find.first(createTemporaryObject(plain, root), "Button_");
            compare(button.font.family, Qt.application.font.family);
            compare(button.font.pointSize, Qt.application.font.pointSize);
        }
        function test_aliases_reachTheButton() {
            const item = createTemporaryObject(plain, root, { checkable: true, checked: true, iconSource: "qrc:/details.svg",
                                                              iconColor: "#102030", iconWidth: 17, iconHeight: 19 });
            const button = Find.first(item, "Button_");
            compare(button.text, "Connect");
            compare(button.icon.source, "qrc:/details.svg");
            compare(button.icon.color, "#102030");
            compare(button.icon.width, 17);
            compare(button.icon.height, 19);
            compare(item.icon.width, 17);
            verify(button.checkable && button.checked);
            item.icon.name = "go-home";
            compare(button.icon.name, "go-home");
        }
        function test_click_isForwardedOnce() {
            const item = createTemporaryObject(plain, root, { checkable: true });
            clicks.clear();
            clicks.target = item;
            mouseClick(item);
            compare(clicks.count, 1);
            verify(item.checked);
        }
    }
}
