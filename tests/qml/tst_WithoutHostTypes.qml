// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml

Item {
    id: root

    TestCase {
        name: "WithoutHostTypes"

        function test_component_isUnusable_alone_data() {
            return [
                { tag: "ChannelView", missing: "SortedEnabledCameraModel" },
                { tag: "LayoutArea", missing: "OGridLayout" },
                { tag: "O_ScrollViewStyle", missing: "QtQuick.Controls.Styles" }
            ];
        }
        function test_component_isUnusable_alone(data) {
            const component = Qt.createComponent("orrinsdkqml", data.tag);
            compare(component.status, Component.Error);
            verify(component.errorString().includes(data.missing), component.errorString());
        }
        function test_neighbour_works_data() {
            return [ { tag: "ToolBarButton" }, { tag: "LayoutSelection" }, { tag: "BusySpinner" } ];
        }
        function test_neighbour_works(data) {
            const component = Qt.createComponent("orrinsdkqml", data.tag);
            compare(component.status, Component.Ready);
            verify(createTemporaryObject(component, root));
        }
    }
}
