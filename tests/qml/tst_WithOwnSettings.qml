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
        id: older

        Column {
            property alias background: background
            property alias label: label
            property alias button: button
            property alias box: box
            property alias form: form
            property alias combo: combo
            property alias circle: circle
            property alias title: title
            property alias message: message

            ActiveBackground { id: background }
            ActiveLabel { id: label }
            ToolBarButton { id: button }
            O_CheckBox { id: box }
            O_FormCheckBoxInput { id: form }
            O_ComboBoxInput { id: combo }
            LoadingCircle { id: circle }
            Title { id: title }
            Message { id: message }
        }
    }
    TestCase {
        name: "WithOwnSettings"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function cleanup() {
            settings.controlHeight = 100;
        }
        function test_olderComponents_followTheModulesSettings() {
            verify(settings.controlHeightHints > 0);
            const made = createTemporaryObject(older, root);
            compare(made.background.color, settings.backgroundColor);
            compare(made.label.color, settings.textColor);
            compare(made.label.font.pixelSize, Math.round(settings.fontPixelSizeHints));
            compare(made.button.height, settings.controlHeightHints + 2 * settings.controlMarginsHints);
            compare(made.button.iconActiveColor, settings.iconActiveColor);
            compare(Find.first(made.button, "QQuickRectangle").color, settings.backgroundColor);
            compare(made.box.width, settings.controlHeightHints);
            compare(made.form.width, 200 * settings.devicePixelRatio);
            compare(made.combo.height, 50 * settings.devicePixelRatio);
            compare(made.circle.radius, 1.5 * settings.controlHeightHints);
            compare(made.title.radius, settings.controlRadiusHints);
            compare(made.message.border.color, settings.borderColor);
        }
        function test_newComponents_takeAChangedPercentage_olderOnesKeepTheirs() {
            const before = createTemporaryObject(older, root);
            const height = before.box.height;
            settings.controlHeight = 200;
            compare(before.box.height, height);
            const after = createTemporaryObject(older, root);
            compare(after.box.height, settings.controlHeightHints);
            fuzzyCompare(after.box.height, 2 * height, 1);
        }
    }
}
