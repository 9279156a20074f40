// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml

Item {
    id: root

    width: 400
    height: 300

    property int reached: 0

    MouseArea {
        id: beneath

        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onPressed: ++root.reached
        onWheel: ++root.reached
    }
    Loader {
        id: loader

        anchors.fill: parent
    }
    Component {
        id: first

        Page {
            loader: root.loader

            objectName: "first"
        }
    }
    Component {
        id: second

        Page { objectName: "second" }
    }

    property alias loader: loader
    TestCase {
        name: "Page"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            loader.sourceComponent = undefined;
            root.reached = 0;
        }
        function test_page_keepsEventsFromWhatLiesBeneath() {
            loader.sourceComponent = first;
            compare(loader.item.color, "#2b2e36");
            mouseMove(root, 50, 50);
            root.reached = 0;
            for (const button of [Qt.LeftButton, Qt.RightButton, Qt.MiddleButton])
                mouseClick(root, 60, 60, button);
            mouseWheel(root, 60, 60, 0, 120);
            mouseMove(root, 90, 90);
            compare(root.reached, 0);
            verify(!beneath.containsMouse);
            loader.item.closePage();
            mouseMove(root, 60, 60);
            verify(beneath.containsMouse);
            mouseClick(root, 60, 60);
            verify(root.reached > 0);
        }
        function test_openPage_putsAnotherInItsPlace() {
            loader.sourceComponent = first;
            loader.item.openPage(second);
            compare(loader.item.objectName, "second");
        }
        function test_closePage_emptiesTheLoader() {
            loader.sourceComponent = first;
            loader.item.closePage();
            compare(loader.item, null);
            compare(loader.status, Loader.Null);
        }
        function test_closePage_fails_withoutALoader() {
            const page = createTemporaryObject(second, root);
            compare(page.loader, undefined);
            try {
                page.closePage();
            } catch (error) {
                verify(error instanceof TypeError);
                compare(page.objectName, "second");
                return;
            }
            fail("closed");
        }
    }
}
