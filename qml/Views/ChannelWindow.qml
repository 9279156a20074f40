// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Controls.Material
import QtQuick.Layouts
import orrinsdkqml

/*! A window that asks for a camera, once: leaving it destroys the object.

    The caller filters channelModel by searchText; the window itself filters nothing. */
Item {
    id: root

    objectName: "channelWindow"

    /*! The list's own model, so that a caller's binding keeps feeding it. */
    property alias channelModel: addCameraListView.model
    property alias searchText: searchBox.text
    property real xCoord: 0
    property real yCoord: 0
    property bool windowVisible: channelWindow.visible

    signal addCamera(string channel_uid, real x_coord, real y_coord)

    function sendCamera(channel_uid: string) {
        root.addCamera(channel_uid, root.xCoord, root.yCoord);
    }
    function show() {
        channelWindow.show();
    }

    Window {
        id: channelWindow

        width: root.width / 2
        height: root.height / 2
        visible: false
        title: qsTr("Select Camera")
        onVisibleChanged: {
            if (visible)
                dialog.open();
            else
                dialog.close();
        }
        // The window's own close button is an answer too.
        onClosing: dialog.reject()

        Dialog {
            id: dialog

            property string selectedCamera

            anchors.centerIn: parent
            width: channelWindow.width
            height: channelWindow.height
            modal: true
            standardButtons: Dialog.Ok | Dialog.Cancel
            onAccepted: {
                if (dialog.selectedCamera !== "")
                    root.sendCamera(dialog.selectedCamera);
                root.destroy();
            }
            onRejected: root.destroy()

            contentItem: ColumnLayout {
                clip: true
                spacing: 2

                TextField {
                    id: searchBox

                    Layout.alignment: Qt.AlignCenter
                    Layout.preferredWidth: 0.8 * dialog.width
                    color: palette.text
                    placeholderText: qsTr("Search Cameras")
                    placeholderTextColor: palette.brightText
                }
                ListView {
                    id: addCameraListView

                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    clip: true
                    // Nothing is made ahead: a reset in the midst of it warns.
                    cacheBuffer: 0
                    reuseItems: true
                    section.property: "serverName"

                    ScrollBar.vertical: ScrollBar {}
                    section.delegate: ItemDelegate {
                        id: header

                        required property string section

                        anchors.horizontalCenter: parent?.horizontalCenter
                        width: Math.max(implicitWidth, sectionLabel.implicitWidth)

                        O_Label {
                            id: sectionLabel

                            anchors.centerIn: parent
                            text: header.section
                            textFormat: Text.PlainText
                        }
                    }
                    delegate: RadioDelegate {
                        id: row

                        required property var model
                        readonly property string uid: row.model.channelUniqueIdMeta ?? ""

                        // A row that comes back into sight, or takes another's place, shows whether it is the chosen one.
                        function restore() {
                            row.checked = row.uid !== "" && row.uid === dialog.selectedCamera;
                        }

                        width: 0.8 * dialog.width
                        font: Application.font
                        highlighted: checked || hovered
                        text: row.model.name ?? ""
                        contentItem: Text {
                            rightPadding: row.indicator.width + row.spacing
                            color: row.Material.foreground
                            elide: Text.ElideRight
                            font: row.font
                            text: row.text
                            textFormat: Text.PlainText
                            verticalAlignment: Text.AlignVCenter
                        }
                        onCheckedChanged: dialog.selectedCamera = row.uid
                        onDoubleClicked: {
                            dialog.selectedCamera = row.uid;
                            dialog.accept();
                        }
                        ListView.onPooled: row.checked = false
                        ListView.onReused: row.restore()
                        Component.onCompleted: row.restore()
                    }
                }
            }
        }
    }
}
