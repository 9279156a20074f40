// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml

Item {
    id: root

    width: 400
    height: 300

    Component {
        id: declared

        Toolbar {
            spacing: 7

            property alias first: first

            Rectangle {
                width: 99
                height: 99
                visible: false
            }
            Rectangle {
                id: first

                width: 30
                height: 40
            }
            Rectangle {
                width: 50
                height: 60
            }
        }
    }
    Component {
        id: empty

        Toolbar {
            width: 12
            height: 13

            Rectangle {
                width: 30
                height: 40
                visible: false
            }
        }
    }
    Component {
        id: buttons

        Toolbar {
            ToolBarButton { iconSource: "settings" }
            ToolBarButton { text: "Events" }
        }
    }
    TestCase {
        name: "Toolbar"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_size_isThatOfTheVisibleChildren_withoutSpacing() {
            const item = createTemporaryObject(declared, root);
            compare(item.height, 40);
            compare(item.width, 80);
        }
        function test_size_stays_whenChildrenChangeLater() {
            const item = createTemporaryObject(declared, root);
            item.first.visible = false;
            item.first.height = 5;
            compare(item.height, 40);
            compare(item.width, 80);
        }
        function test_size_stays_withoutVisibleChildren() {
            const item = createTemporaryObject(empty, root);
            compare(item.width, 12);
            compare(item.height, 13);
        }
        function test_size_countsTheButtonsBoundSizes() {
            const item = createTemporaryObject(buttons, root);
            compare(item.height, 43);
            compare(item.width, item.children[0].width + item.children[1].width);
            verify(item.children[1].width > 20);
        }
    }
}
