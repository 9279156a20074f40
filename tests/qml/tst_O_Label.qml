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

        O_Label { text: "Entrance" }
    }
    TestCase {
        name: "O_Label"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_label_standsAtTheTopLeft_inItsOwnSize() {
            const item = createTemporaryObject(plain, root);
            const label = Find.first(item, "Label_");
            verify(label.implicitWidth > 0);
            compare(item.implicitWidth, label.implicitWidth);
            compare(item.implicitHeight, label.implicitHeight);
            compare(label.font, Qt.application.font);
            item.width = 300;
            item.height = 90;
            compare(label.x, 0);
            compare(label.y, 0);
            compare(label.width, label.implicitWidth);
            compare(label.height, label.implicitHeight);
        }
        function test_aliases_reachTheLabel() {
            const item = createTemporaryObject(plain, root, { color: "#123456", horizontalAlignment: Text.AlignHCenter,
                                                              verticalAlignment: Text.AlignBottom });
            const label = Find.first(item, "Label_");
            compare(label.text, "Entrance");
            compare(label.color, "#123456");
            compare(label.horizontalAlignment, Text.AlignHCenter);
            compare(label.verticalAlignment, Text.AlignBottom);
        }
        function test_alignment_movesTheText_inALargerItem() {
            const item = createTemporaryObject(plain, root, { width: 300, height: 90, horizontalAlignment: Text.AlignRight,
                                                              verticalAlignment: Text.AlignVCenter });
            const label = Find.first(item, "Label_");
            compare(label.x, 300 - label.implicitWidth);
            compare(label.y, (90 - label.implicitHeight) / 2);
            item.horizontalAlignment = Text.AlignHCenter;
            item.verticalAlignment = Text.AlignBottom;
            compare(label.x, (300 - label.implicitWidth) / 2);
            compare(label.y, 90 - label.implicitHeight);
        }
    }
}
