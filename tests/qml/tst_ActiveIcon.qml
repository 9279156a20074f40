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

        ActiveIcon {
            width: 40
            height: 30
            source: "details"
        }
    }
    TestCase {
        name: "ActiveIcon"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function test_defaults_areTheWrittenOnes() {
            const item = createTemporaryObject(plain, root);
            compare(item.state, "normal");
            compare(item.iconColor, "#ffa500");
            compare(item.iconHighlightColor, "#008000");
            compare(item.iconActiveColor, "#0000ff");
            compare(item.sourceSize, Qt.size(40, 30));
        }
        function test_image_isHidden_andComesFromTheHostsResources() {
            const image = Find.first(createTemporaryObject(plain, root), "QQuickImage");
            compare(image.source, "qrc:/details.svg");
            compare(image.status, Image.Ready);
            verify(image.smooth);
            verify(!image.visible);
        }
        function test_effectColour_followsState_data() {
            return [
                { tag: "normal", color: "#010203" },
                { tag: "highlight", color: "#040506" },
                { tag: "active", color: "#070809" }
            ];
        }
        function test_effectColour_followsState(data) {
            const item = createTemporaryObject(plain, root,
                { iconColor: "#010203", iconHighlightColor: "#040506", iconActiveColor: "#070809" });
            const effect = Find.first(item, "QQuickMultiEffect");
            item.state = data.tag;
            compare(effect.colorizationColor, data.color);
            compare(effect.colorization, 0);
        }
        function test_picture_keepsTheImagesColour_inEachState() {
            const item = createTemporaryObject(plain, root, { width: 48, height: 48 });
            for (const state of ["normal", "highlight", "active"]) {
                item.state = state;
                waitForRendering(item);
                // The left edge of the ring.
                compare(grabImage(item).pixel(6, 24), "#e5e5e5");
            }
        }
    }
}
