// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts

// The saved layouts: show one, save the present one, take one away, let them take turns.
Popup {
    id: root

    required property LayoutStore store
    property string shown

    signal chosen(string name)
    signal saveRequested(string name)

    width: 340
    padding: 12
    focus: true
    background: Rectangle {
        color: ViewerStyle.surface
        border.color: ViewerStyle.outline
        radius: ViewerStyle.radius
    }
    onOpened: nameField.text = root.shown

    contentItem: ColumnLayout {
        spacing: ViewerStyle.gap

        Text {
            Layout.fillWidth: true
            text: qsTr("No layout is saved yet.")
            color: ViewerStyle.dimText
            font.pixelSize: ViewerStyle.normalText
            visible: list.count === 0
        }
        ListView {
            id: list

            Layout.fillWidth: true
            Layout.preferredHeight: Math.min(contentHeight, 320)
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            model: root.store.names
            visible: count > 0
            ScrollBar.vertical: ScrollBar {}
            delegate: ItemDelegate {
                id: row

                required property string modelData

                width: list.width
                height: 44
                highlighted: row.modelData === root.shown
                Accessible.name: row.modelData
                onClicked: root.chosen(row.modelData)

                contentItem: RowLayout {
                    Text {
                        Layout.fillWidth: true
                        text: row.modelData
                        textFormat: Text.PlainText
                        color: ViewerStyle.text
                        font.pixelSize: ViewerStyle.normalText
                        elide: Text.ElideRight
                    }
                    RoundButton {
                        Layout.preferredWidth: 36
                        Layout.preferredHeight: 36
                        flat: true
                        text: "✕"
                        Accessible.name: qsTr("Delete the layout %1").arg(row.modelData)
                        onClicked: root.store.remove(row.modelData)
                    }
                }
            }
        }
        RowLayout {
            Layout.fillWidth: true

            TextField {
                id: nameField

                Layout.fillWidth: true
                placeholderText: qsTr("Name")
                maximumLength: 64
                Accessible.name: qsTr("Name of the layout")
                onAccepted: save.clicked()
            }
            Button {
                id: save

                text: qsTr("Save")
                enabled: nameField.text.trim() !== ""
                onClicked: {
                    if (enabled)
                        root.saveRequested(nameField.text);
                }
            }
        }
        RowLayout {
            Layout.fillWidth: true
            enabled: root.store.names.length > 1

            Switch {
                Layout.fillWidth: true
                text: qsTr("Take turns")
                checked: root.store.cycling
                onToggled: root.store.cycling = checked
            }
            SpinBox {
                from: 3
                to: 3600
                editable: true
                value: root.store.cycleSeconds
                textFromValue: (value, locale) => qsTr("%1 s").arg(Number(value).toLocaleString(locale, "f", 0))
                valueFromText: (text, locale) => parseInt(text.replace(/\D/g, "")) || root.store.cycleSeconds
                Accessible.name: qsTr("Seconds for each layout")
                onValueModified: root.store.cycleSeconds = value
            }
        }
    }
}
