// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls

/*! Dims what lies beneath and turns a wheel while busy. */
Item {
    id: root

    property real busySize: 64
    property real spinCycleMs: 3600
    property bool busy: false

    onBusyChanged: {
        dim.visible = root.busy;
        indicator.running = root.busy;
    }

    Rectangle {
        id: dim

        anchors.fill: parent
        visible: false
        color: "black"
        opacity: 0.6
    }
    BusyIndicator {
        id: indicator

        anchors.centerIn: parent
        running: false

        contentItem: Item {
            implicitWidth: root.busySize
            implicitHeight: root.busySize

            Item {
                anchors.centerIn: parent
                width: root.busySize
                height: root.busySize
                opacity: indicator.running ? 1 : 0

                Behavior on opacity {
                    OpacityAnimator {
                        duration: 250
                    }
                }
                RotationAnimator {
                    target: wheel
                    from: 0
                    to: 360
                    duration: root.spinCycleMs
                    loops: Animation.Infinite
                    running: indicator.visible && indicator.running
                }
                Image {
                    id: wheel

                    width: root.busySize
                    height: root.busySize
                    fillMode: Image.PreserveAspectFit
                    source: "qrc:/qt/qml/orrinsdkqml/resources/wheel.png"
                }
            }
        }
    }
}
