// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls

// The chooser of a statistic, with a filter for a long list of them.
Item {
    id: root

    property int defaultMargins: 2
    property int defaultSpacing: 10
    property alias model: statCombo.model
    property alias filterText: filterInput.text
    property alias currentText: statCombo.currentText

    signal statModelChanged(heading: string)

    width: 300
    height: 50

    onModelChanged: {
        if (model)
            model.sort(0);
    }

    Grid {
        columns: 2
        spacing: root.defaultSpacing

        Text {
            text: qsTr("Statistic:")
            color: "white"
            height: statCombo.height
            verticalAlignment: Text.AlignVCenter
        }
        ComboBox {
            id: statCombo

            textRole: "display"
            height: 28
            font.pointSize: filterInput.font.pointSize
            Component.onCompleted: currentIndex = 0
            onCurrentTextChanged: {
                if (model)
                    root.statModelChanged(currentText);
            }
        }
        Text {
            id: filterLabel

            text: qsTr("Filter:")
            color: "white"
            width: filterMetrics.tightBoundingRect.width
            height: filterFrame.height
            verticalAlignment: Text.AlignVCenter

            TextMetrics {
                id: filterMetrics

                font: filterLabel.font
                text: filterLabel.text
            }
        }
        Rectangle {
            id: filterFrame

            width: statCombo.width
            height: statCombo.height - 4
            color: "#31323b"
            border.color: "#4d4f56"
            border.width: 1

            TextInput {
                id: filterInput

                anchors.fill: parent
                anchors.margins: 4
                color: "white"
                verticalAlignment: TextInput.AlignVCenter
            }
        }
    }
}
