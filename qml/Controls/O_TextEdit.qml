// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

/*! A single-line input in a rounded border. The border keeps its implicit size, whatever size the item is given. */
Item {
    id: root

    property alias text: input.text
    property alias readOnly: input.readOnly
    property alias wrapMode: input.wrapMode
    property alias echoMode: input.echoMode
    property color textColor: Theme.defaultTextColor
    property color rectColor: Theme.borderColor
    property color rectColorSelected: Theme.borderSelectedColor
    property color rectFill: "transparent"

    signal editingFinished
    signal textEdited

    implicitWidth: border.implicitWidth
    implicitHeight: border.implicitHeight

    FocusScope {
        width: border.width
        height: border.height

        Rectangle {
            id: border

            implicitWidth: 200
            implicitHeight: input.implicitHeight + 2 * Theme.defaultSpacing
            radius: Theme.borderRadius
            color: root.rectFill
            border.width: Theme.borderWidth
            border.color: input.activeFocus ? root.rectColorSelected : root.rectColor

            TextInput {
                id: input

                anchors.fill: parent
                anchors.margins: Theme.defaultSpacing
                activeFocusOnTab: true
                clip: true
                color: root.textColor
                onEditingFinished: root.editingFinished()
                onTextEdited: root.textEdited()
            }
        }
    }
}
