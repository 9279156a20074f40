// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

// A text field of the module under its label, with a list of earlier entries where there are any.
Item {
    id: root

    required property string label
    property alias text: field.text
    property alias echoMode: field.echoMode
    // Earlier entries, newest first; deleting one in the list emits entriesEdited().
    property var entries: []

    signal accepted()
    signal entriesEdited(var entries)

    // The focus goes to the text itself.
    function takeFocus() {
        field.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
    }

    implicitHeight: caption.height + 4 + ViewerStyle.controlHeight + field.implicitHeight

    Text {
        id: caption

        text: root.label
        color: ViewerStyle.dimText
        font.pixelSize: ViewerStyle.smallText
    }
    O_TextInput {
        id: field

        anchors.top: caption.bottom
        anchors.topMargin: 4
        width: root.width
        height: ViewerStyle.controlHeight
        inputHeight: ViewerStyle.controlHeight
        inputPixelSize: ViewerStyle.normalText
        controlHeights: 32
        enableComboMode: root.entries.length > 0
        Accessible.role: Accessible.EditableText
        Accessible.name: root.label
        Component.onCompleted: field.comboModel = root.entries
        onComboModelChanged: {
            if (field.comboModel !== undefined && field.comboModel.length !== root.entries.length)
                root.entriesEdited(field.comboModel);
        }
        Keys.onReturnPressed: root.accepted()
        Keys.onEnterPressed: root.accepted()
        Keys.onDownPressed: field.comboVisible = field.enableComboMode
        Keys.onEscapePressed: field.closeCombo()
    }
}
