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

        TransparentDialog {
            width: 200
            height: 80
        }
    }
    TestCase {
        name: "TransparentDialog"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_look_isTheDefault_untilSet() {
            const item = createTemporaryObject(plain, root);
            const rectangle = Find.first(item, "QQuickRectangle");
            compare(item.defaultBackgroundColor.a.toFixed(2), "0.50");
            verify(Qt.colorEqual(Qt.alpha(item.defaultBackgroundColor, 1), Theme.darkBlue));
            compare(item.defaultBorderColor, Theme.white);
            compare(item.backgroundColor, item.defaultBackgroundColor);
            compare(item.border.color, Theme.white);
            compare(rectangle.width, 200);
            compare(rectangle.height, 80);
            compare(rectangle.radius, 20);
            item.height = 40;
            compare(rectangle.radius, 10);
        }
        function test_aliases_reachTheRectangle() {
            const item = createTemporaryObject(plain, root);
            const rectangle = Find.first(item, "QQuickRectangle");
            item.backgroundColor = "#ff0000";
            item.backgroundOpacity = 0.25;
            item.border.width = 3;
            item.border.color = "#00ff00";
            compare(rectangle.color.r, 1);
            compare(rectangle.color.a.toFixed(2), "0.25");
            compare(rectangle.border.width, 3);
            compare(rectangle.border.color, "#00ff00");
        }
        function test_children_standAboveTheRectangle() {
            const item = createTemporaryObject(filled, root);
            waitForRendering(item);
            compare(grabImage(item).pixel(100, 40), "#ff8000");
        }
    }
    Component {
        id: filled

        TransparentDialog {
            width: 200
            height: 80

            Rectangle {
                anchors.fill: parent
                color: "#ff8000"
            }
        }
    }
}
