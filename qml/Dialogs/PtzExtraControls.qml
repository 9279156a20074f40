// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts
import orrinsdkqml

/*! A small panel that sends a camera to a stored position or on a stored tour. Focus and iris are declared for users; nothing here
    emits them. */
Item {
    id: root

    property int maxPresets: 255
    property int maxTours: 255
    property real tumblerHeight: 1.3 * presetGoButton.height

    signal goToPreset(int preset)
    signal goToTour(int tour)
    signal focusIn
    signal focusOut
    signal irisIn
    signal irisOut

    implicitWidth: backgroundRect.width
    implicitHeight: backgroundRect.height

    /*! Rows count from 0, presets and tours from 1. */
    function formatText(count: int, modelData: int): int {
        return modelData + 1;
    }

    component Selector: Tumbler {
        id: selector

        implicitHeight: root.tumblerHeight
        visibleItemCount: 3
        wrap: false
        Component.onCompleted: currentIndex = 0
        delegate: Label {
            // The attached properties want the index.
            required property int index
            required property int modelData

            text: root.formatText(Tumbler.tumbler.count, modelData)
            color: Theme.white
            font.pixelSize: presetTumbler.font.pixelSize
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            opacity: 1.0 - Math.abs(Tumbler.displacement) / (Tumbler.tumbler.visibleItemCount / 2)
        }

        /*! What the row in the middle shows. */
        function number(): int {
            return Number((selector.currentItem as Label).text);
        }
    }
    component GoButton: RoundButton {
        Layout.preferredWidth: 24
        Layout.preferredHeight: width
        padding: 0
        topInset: 0
        leftInset: 0
        rightInset: 0
        bottomInset: 0
        icon.source: "qrc:/qt/qml/orrinsdkqml/resources/arrow_right.svg"
        icon.color: Theme.white
        Material.accent: Theme.defaultMaterialAccentColor
        Material.background: "transparent"
    }

    TransparentDialog {
        id: backgroundRect

        width: 200
        height: 150

        ColumnLayout {
            anchors.centerIn: parent

            GridLayout {
                columns: 3
                rows: 2

                Label {
                    text: qsTr("Preset:")
                    color: Theme.defaultTextColor
                }
                Selector {
                    id: presetTumbler

                    model: root.maxPresets
                }
                GoButton {
                    id: presetGoButton

                    onClicked: root.goToPreset(presetTumbler.number())
                }
                Label {
                    text: qsTr("Tour:")
                    color: Theme.defaultTextColor
                }
                Selector {
                    id: tourTumbler

                    model: root.maxTours
                }
                GoButton {
                    id: tourGoButton

                    onClicked: root.goToTour(tourTumbler.number())
                }
            }
        }

        Rectangle {
            anchors.centerIn: parent
            width: parent.width
            height: 1
            border.color: backgroundRect.border.color
            opacity: 0.5
        }
    }
}
