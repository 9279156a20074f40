// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
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
            // The style's own would render markup in the names of servers and causes.
            delegate: MenuItem {
                id: entry

                required property var model
                required property int index

                width: ListView.view.width
                text: entry.model[comboBox.textRole] ?? ""
                highlighted: comboBox.highlightedIndex === entry.index
                hoverEnabled: comboBox.hoverEnabled
                Material.foreground: comboBox.currentIndex === entry.index ? comboBox.Material.accent : comboBox.Material.foreground
                contentItem: Text {
                    color: entry.Material.foreground
                    elide: Text.ElideRight
                    font: entry.font
                    text: entry.text
                    textFormat: Text.PlainText
                    verticalAlignment: Text.AlignVCenter
                }
            }
            onAccepted: root.accepted()
            onActivated: index => root.activated(index)
        }
        Item {
            implicitHeight: comboBox.implicitHeight

            O_Label {
                anchors.centerIn: parent
                text: comboBox.currentText
                textFormat: Text.PlainText
            }
        }
    }
}
