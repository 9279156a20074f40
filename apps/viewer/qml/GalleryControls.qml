// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import orrinsdkqml

// The form controls and the state components, each in all its states.
Column {
    id: root

    readonly property string longText: qsTr("A name that is much longer than the place it is given, as some are")

    spacing: Theme.veryWideSpacing

    GallerySection {
        caption: "ActiveBackground, ActiveLabel, ActiveIcon: normal, highlight, active"

        Repeater {
            model: ["normal", "highlight", "active"]

            ActiveBackground {
                id: row

                required property string modelData

                width: 260
                height: settings.controlHeightHints // qmllint disable unqualified
                state: row.modelData

                ActiveLabel {
                    anchors.left: parent.left
                    anchors.leftMargin: Theme.wideMargins
                    anchors.verticalCenter: parent.verticalCenter
                    state: row.modelData
                    textActiveColor: "white"
                    text: row.modelData
                }
                ActiveIcon {
                    anchors.right: parent.right
                    width: parent.height
                    height: parent.height
                    source: "details"
                    state: row.modelData
                }
            }
        }
    }
    GallerySection {
        caption: "ToolBarButton: icons, text, text beside an icon name, lock button off and on"

        ToolBarButton { iconSource: "settings" }
        ToolBarButton { iconSource: "ptzf" }
        ToolBarButton {
            iconSource: "ic_exit_to_app_black_24px"
            margins: 0
        }
        ToolBarButton { text: qsTr("Events") }
        ToolBarButton {
            text: qsTr("Live")
            iconSource: "Playback_Live"
        }
        ToolBarButton {
            iconSource: "details"
            lockButton: true
        }
        ToolBarButton {
            iconSource: "details"
            lockButton: true
            locked: true
        }
    }
    GallerySection {
        caption: "O_Button: plain, checkable, checked, with icon, disabled; O_RoundButton; O_Label"

        O_Button { text: qsTr("Connect") }
        O_Button {
            text: qsTr("Off")
            checkable: true
        }
        O_Button {
            text: qsTr("On")
            checkable: true
            checked: true
        }
        O_Button {
            text: qsTr("Details")
            iconSource: "qrc:/details.svg"
            iconColor: Theme.defaultIconColor
        }
        O_Button {
            text: qsTr("Connect")
            enabled: false
        }
        O_RoundButton { text: "+" }
        O_Label { text: qsTr("A label") }
    }
    GallerySection {
        caption: "O_ComboBox and O_SpinBox: editable and not; O_ComboBoxInput"

        O_ComboBox { model: [qsTr("Day"), qsTr("Week"), root.longText] }
        O_ComboBox {
            editable: false
            model: [qsTr("Day"), qsTr("Week")]
        }
        O_SpinBox {
            editable: true
            value: 42
        }
        O_SpinBox { value: 42 }
        O_ComboBoxInput {
            width: 260
            color: "transparent"
            label.text: qsTr("Host")
            combo.model: ["north", "south"]
        }
    }
    GallerySection {
        caption: "O_CheckBox: off, on, disabled; O_FormCheckBoxInput"

        O_CheckBox {}
        O_CheckBox { checked: true }
        O_CheckBox {
            checked: true
            enabled: false
        }
        O_FormCheckBoxInput { labelText: qsTr("Trace") }
        O_FormCheckBoxInput {
            labelText: qsTr("Debug")
            checked: true
        }
    }
    GallerySection {
        caption: "O_TextEdit: plain, filled, read only, password, long text"

        O_TextEdit { text: qsTr("operator") }
        O_TextEdit {
            text: qsTr("operator")
            rectFill: Theme.blackTwo
            rectColor: Theme.lightBlue
        }
        O_TextEdit {
            text: qsTr("read only")
            readOnly: true
        }
        O_TextEdit {
            text: "12345678"
            echoMode: TextInput.Password
        }
        O_TextEdit { text: root.longText }
    }
    GallerySection {
        caption: "O_TextInput: plain, with an error, password, combo mode closed and open"

        Repeater {
            model: ["plain", "error", "password", "closed", "open"]

            Item {
                id: cell

                required property string modelData

                width: 260
                height: field.inputHeight + field.implicitHeight

                O_TextInput {
                    id: field

                    width: parent.width
                    controlHeights: settings.controlHeightHints // qmllint disable unqualified
                    inputHeight: settings.controlHeightHints // qmllint disable unqualified
                    inputPixelSize: settings.fontPixelSizeHints // qmllint disable unqualified
                    text: cell.modelData
                    echoMode: cell.modelData === "password" ? TextInput.Password : TextInput.Normal
                    enableComboMode: cell.modelData === "closed" || cell.modelData === "open"
                    comboModel: ["north.example.com", "south.example.com", root.longText]
                    comboVisible: cell.modelData === "open"
                    Component.onCompleted: field.showErrorBorder(cell.modelData === "error")
                }
            }
        }
    }
}
