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

        TitleStack {
            Rectangle {
                implicitHeight: 20
                height: 20
            }
            Rectangle {
                height: 30
            }
        }
    }
    Component {
        id: titles

        TitleStack {
            Title { text: "Entrance" }
            Title { text: "Yard" }
        }
    }
    Component {
        id: plain

        TitleStack {}
    }
    Component {
        id: child

        Rectangle {}
    }
    TestCase {
        name: "TitleStack"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_height_isTheSumOfTheDeclaredChildren() {
            const item = createTemporaryObject(declared, root);
            compare(item.spacing, 0);
            compare(item.height, 50);
        }
        function test_height_countsDeclaredTitles() {
            const item = createTemporaryObject(titles, root);
            verify(item.children[0].height > 20);
            compare(item.height, item.children[0].height + item.children[1].height);
        }
        function test_height_followsAddedAndRemovedChildren() {
            const item = createTemporaryObject(plain, root);
            const first = child.createObject(null, { height: 20 });
            const second = child.createObject(null, { height: 35 });
            first.parent = item;
            compare(item.height, 20);
            second.parent = item;
            compare(item.height, 55);
            first.parent = null;
            compare(item.height, 35);
            first.destroy();
            second.destroy();
        }
        function test_height_leavesOutHiddenChildren() {
            const item = createTemporaryObject(plain, root);
            const hidden = createTemporaryObject(child, root, { height: 20, visible: false });
            const shown = createTemporaryObject(child, root, { height: 35 });
            hidden.parent = item;
            shown.parent = item;
            compare(item.height, 35);
        }
        function test_height_staysAsItIs_whenAChildGrowsOrHides() {
            const item = createTemporaryObject(plain, root);
            const first = createTemporaryObject(child, root, { height: 20 });
            first.parent = item;
            first.height = 90;
            compare(item.height, 20);
            first.visible = false;
            compare(item.height, 20);
        }
    }
}
