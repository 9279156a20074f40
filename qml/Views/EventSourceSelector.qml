// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Layouts
import orrinsdkqml

/*! Two numbers that name the source of an event: the device and its part. */
Item {
    id: root

    property bool editable: false
    property alias eventSourceDeviceId: device.value
    property alias eventSourceSubDeviceId: subDevice.value

    implicitWidth: layout.implicitWidth
    implicitHeight: layout.implicitHeight

    GridLayout {
        id: layout

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        columns: 2
        rowSpacing: Theme.wideSpacing

        O_Label {
            Layout.fillWidth: true
            text: qsTr("Device ID:")
        }
        O_SpinBox {
            id: device

            Layout.fillWidth: true
            editable: root.editable
        }
        O_Label {
            Layout.fillWidth: true
            text: qsTr("Sub Device:")
        }
        O_SpinBox {
            id: subDevice

            Layout.fillWidth: true
            editable: root.editable
        }
    }
}
