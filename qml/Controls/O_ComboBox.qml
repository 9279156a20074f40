// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import orrinsdkqml

/*! A combo box of the style, or the bare text of its current entry where the user may not change it. */
Item {
    id: root

    /*! Whether the user may pick another entry. It is no free text input either way. */
    property bool editable: true
    property alias model: comboBox.model
    property alias currentIndex: comboBox.currentIndex
    property alias count: comboBox.count
    property alias textRole: comboBox.textRole
    property alias valueRole: comboBox.valueRole
    property alias currentText: comboBox.currentText
    property alias currentValue: comboBox.currentValue

    signal accepted
    signal activated(int index)

    implicitWidth: stack.implicitWidth
    implicitHeight: stack.implicitHeight

    function find(text: string): int {
        return comboBox.find(text);
    }

    StackLayout {
        id: stack

        anchors.fill: parent
        currentIndex: root.editable ? 0 : 1

        ComboBox {
            id: comboBox

            Layout.fillWidth: true
            font: Application.font
            popup.font: Application.font
            onAccepted: root.accepted()
            onActivated: index => root.activated(index)
        }
        Item {
            implicitHeight: comboBox.implicitHeight

            O_Label {
                anchors.centerIn: parent
                text: comboBox.currentText
            }
        }
    }
}
