// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 400
    height: 300

    Component {
        id: plain

        Title {
            width: 200
            text: "<b>Entrance</b>"
        }
    }
    Component {
        id: laidOut

        ColumnLayout {
            width: 300

            property alias title: title

            Title {
                id: title

                text: "Entrance"
            }
        }
    }
    TestCase {
        name: "Title"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_look_followsSettings() {
            const item = createTemporaryObject(plain, root);
            const text = Find.first(item, "QQuickText");
            compare(item.color, settings.backgroundColor);
            compare(item.border.width, settings.borderWidthHints);
            compare(item.border.color, settings.borderColor);
            compare(item.radius, settings.controlRadiusHints);
            compare(text.color, settings.textColor);
            compare(text.font.pixelSize, Math.round(settings.fontPixelSizeHints));
            compare(text.horizontalAlignment, Text.AlignHCenter);
            compare(text.wrapMode, Text.WordWrap);
            compare(text.x, 5);
            compare(text.y, 5);
            compare(text.width, 190);
        }
        function test_height_followsTheText() {
            const item = createTemporaryObject(plain, root);
            const text = Find.first(item, "QQuickText");
            compare(item.height, text.height + 2 * 2 + 2 * 5);
            const oneLine = item.height;
            item.text = "many words ".repeat(20);
            verify(text.lineCount > 1);
            verify(item.height > oneLine);
            compare(item.height, text.height + 14);
        }
        function test_text_mayBeRich() {
            const text = Find.first(createTemporaryObject(plain, root), "QQuickText");
            const wide = text.implicitWidth;
            text.text = "&lt;b>Entrance&lt;/b>";
            verify(wide < text.implicitWidth);
        }
        function test_layout_givesItTheWidth_andFollowsItsHeight() {
            const column = createTemporaryObject(laidOut, root);
            tryCompare(column.title, "width", 300);
            compare(column.title.Layout.alignment, Qt.AlignCenter);
            verify(column.title.Layout.fillWidth);
            const oneLine = column.implicitHeight;
            column.title.text = "many words ".repeat(20);
            tryVerify(() => column.implicitHeight > oneLine);
        }
    }
}
