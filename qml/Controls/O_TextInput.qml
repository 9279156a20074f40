// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import orrinsdkqml

/*! A text field with an erase cross and, in combo mode, a list of earlier entries below it. */
Item {
    id: root

    property int margins: 5
    property int borderWidth: 2
    property int controlHeights: 20
    property int controlRadii: 3
    property bool enableComboMode: false
    property alias text: input.text
    property alias echoMode: input.echoMode
    property alias inputWidth: input.width
    property alias inputHeight: input.height
    property alias inputPixelSize: input.font.pixelSize
    property alias inputMethodHints: input.inputMethodHints
    property alias readOnly: input.readOnly
    /*! The list's entries; deleting one takes a script array. */
    property alias comboModel: list.model
    property alias comboVisible: combo.visible

    implicitHeight: combo.height

    /*! Shows the border of an error, until the next call with false. */
    function showErrorBorder(show: bool) {
        inputRectangle.border.color = show ? "red" : "#606465";
    }
    function closeCombo() {
        combo.visible = false;
    }

    component Cross: Image {
        required property real side

        source: "qrc:/orrinsdk/widgets/images/Cross_Icon.svg"
        sourceSize: Qt.size(side, side)
    }

    Rectangle {
        id: inputRectangle

        anchors.top: input.top
        anchors.bottom: input.bottom
        anchors.left: input.left
        width: root.width
        radius: 2
        color: "#4e555e"
        border.width: root.borderWidth
        border.color: "#606465"
    }
    TextField {
        id: input

        width: root.width - eraseArea.width - root.margins - (root.enableComboMode ? dropDownButton.width : 0)
        height: 10
        focus: true
        // The frame is the field's ground: the style's own would cover the colour of an error.
        background: null

        MouseArea {
            id: eraseArea

            anchors.left: parent.right
            width: parent.height
            height: parent.height
            onClicked: input.text = ""

            Cross {
                anchors.centerIn: parent
                side: input.height / 3
            }
        }
    }
    Rectangle {
        id: dropDownButton

        anchors.right: parent.right
        width: input.height
        height: input.height
        visible: root.enableComboMode
        radius: inputRectangle.radius
        color: "#1f2129"
        border.width: root.borderWidth
        border.color: inputRectangle.border.color

        ActiveIcon {
            id: arrow

            anchors.centerIn: parent
            width: parent.height / 2
            height: parent.height / 4
            source: "orrinsdk/widgets/images/ptzf/PTZF_DownArrowButton_Normal"
            sourceSize: Qt.size(parent.height, parent.height)
        }
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onClicked: combo.visible = !combo.visible
            onPressed: arrow.state = "active"
            onReleased: arrow.state = "normal"
            onEntered: {
                if (!pressed)
                    arrow.state = "highlight";
            }
            onExited: {
                if (!pressed)
                    arrow.state = "normal";
            }
        }
    }
    Rectangle {
        id: combo

        anchors.top: input.bottom
        width: root.width - 2
        height: visible ? 3 * root.controlHeights : 0
        visible: false
        radius: inputRectangle.radius
        color: "#1a1d25"

        ListView {
            id: list

            function removeEntry(row: int) {
                const entries = list.model;
                entries.splice(row, 1);
                list.model = entries;
            }

            anchors.fill: parent
            anchors.margins: 2
            clip: true
            focus: true
            delegate: Rectangle {
                id: entry

                required property int index
                required property string modelData

                width: combo.width
                height: root.controlHeights
                radius: root.controlRadii
                color: rowArea.containsMouse ? "#2b2e36" : "#4e555e"

                MouseArea {
                    id: rowArea

                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: {
                        list.currentIndex = entry.index;
                        input.text = entry.modelData;
                        root.closeCombo();
                    }
                }
                Text {
                    anchors.left: parent.left
                    anchors.leftMargin: root.margins
                    anchors.right: deleteCross.left
                    anchors.rightMargin: root.margins
                    anchors.verticalCenter: parent.verticalCenter
                    color: input.color
                    elide: Text.ElideRight
                    font.pixelSize: input.font.pixelSize
                    text: entry.modelData
                }
                Cross {
                    id: deleteCross

                    anchors.right: parent.right
                    anchors.rightMargin: 2 * root.margins
                    anchors.verticalCenter: parent.verticalCenter
                    side: input.height / 3

                    MouseArea {
                        anchors.fill: parent
                        onClicked: list.removeEntry(entry.index)
                    }
                }
            }
        }
    }
}
