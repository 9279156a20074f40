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

        ToolbarStack {
            spacing: 6

            property alias first: first
            property alias second: second

            Rectangle {
                id: first

                width: 30
                height: 40
            }
            Rectangle {
                id: second

                width: 50
                height: 60
            }
        }
    }
    Component {
        id: empty

        ToolbarStack {
            height: 44
        }
    }
    TestCase {
        name: "ToolbarStack"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_height_isTheSumWithSpacing() {
            const item = createTemporaryObject(declared, root);
            compare(item.expectedHeight(), 106);
            compare(item.height, 106);
        }
        function test_height_followsVisibility() {
            const item = createTemporaryObject(declared, root);
            item.first.visible = false;
            compare(item.height, 60);
            item.second.visible = false;
            compare(item.height, 0);
            compare(item.expectedHeight(), 0);
            item.first.visible = true;
            compare(item.height, 40);
        }
        function test_height_isNull_withoutChildren() {
            const item = createTemporaryObject(empty, root);
            compare(item.height, 0);
        }
        function test_height_followsAGrownChild_onlyWithTheNextChangeOfVisibility() {
            const item = createTemporaryObject(declared, root);
            item.first.height = 90;
            compare(item.height, 106);
            compare(item.expectedHeight(), 156);
            item.second.visible = false;
            compare(item.height, 90);
        }
    }
}
