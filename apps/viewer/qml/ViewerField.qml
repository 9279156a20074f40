// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// A text field under its label.
ColumnLayout {
    id: root

    required property string label
    property alias text: input.text
    property alias echoMode: input.echoMode
    property alias placeholder: input.placeholderText
    property alias input: input

    signal accepted()

    spacing: 4

    Text {
        text: root.label
        color: ViewerStyle.dimText
        font.pixelSize: ViewerStyle.smallText
    }
    TextField {
        id: input

        Layout.fillWidth: true
        Layout.preferredHeight: ViewerStyle.controlHeight
        Accessible.name: root.label
        color: ViewerStyle.text
        font.pixelSize: ViewerStyle.normalText
        leftPadding: 12
        rightPadding: 12
        placeholderTextColor: "#6c7683"
        selectByMouse: true
        verticalAlignment: TextInput.AlignVCenter
        background: Rectangle {
            color: ViewerStyle.background
            border.color: input.activeFocus ? ViewerStyle.accent : ViewerStyle.outline
            border.width: input.activeFocus ? 2 : 1
            radius: ViewerStyle.radius
        }
        onAccepted: root.accepted()
    }
}
