// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls
import QtQuick.Dialogs
import QtQuick.Layouts
import orrinsdkqml

// Saves recorded video from the moment of the playhead on; shows how far it is, and can be left at any time.
Popup {
    id: root

    property int serverGroupId: -1
    property int serverId: -1
    property int channelId: -1
    property string camera
    // Milliseconds since the epoch, and the same in words.
    property double from: 0
    property string fromText
    property url file
    property string result
    property bool failed: false
    readonly property alias saver: saver

    function begin(camera: string, from: double, fromText: string) {
        root.camera = camera;
        root.from = from;
        root.fromText = fromText;
        root.file = saver.suggestedFile(camera, fromText);
        root.result = "";
        root.open();
    }

    anchors.centerIn: Overlay.overlay
    width: Math.min(Overlay.overlay ? Overlay.overlay.width - 32 : 480, 480)
    padding: ViewerStyle.margin
    modal: true
    focus: true
    closePolicy: saver.running ? Popup.NoAutoClose : Popup.CloseOnEscape
    background: Rectangle {
        color: ViewerStyle.surface
        border.color: ViewerStyle.outline
        radius: ViewerStyle.radius
    }
    Overlay.modal: Rectangle {
        color: ViewerStyle.dim
    }

    ClipSaver {
        id: saver

        onFinished: file => {
            root.failed = false;
            root.result = qsTr("Saved: %1").arg(saver.pathOf(file));
        }
        onFailed: reason => {
            root.failed = true;
            root.result = reason;
        }
    }
    FileDialog {
        id: chooser

        fileMode: FileDialog.SaveFile
        nameFilters: [qsTr("MP4 video (*.mp4)")]
        defaultSuffix: "mp4"
        selectedFile: root.file
        onAccepted: root.file = chooser.selectedFile
    }
    contentItem: ColumnLayout {
        spacing: 14

        Text {
            text: qsTr("Export recorded video")
            color: ViewerStyle.text
            font.pixelSize: 20
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Text {
            Layout.fillWidth: true
            text: qsTr("%1, from %2").arg(root.camera).arg(root.fromText)
            textFormat: Text.PlainText
            color: ViewerStyle.dimText
            font.pixelSize: ViewerStyle.smallText
            wrapMode: Text.Wrap
        }
        RowLayout {
            spacing: 12

            Text {
                text: qsTr("Length")
                color: ViewerStyle.text
                font.pixelSize: ViewerStyle.smallText
            }
            O_ComboBox {
                id: length

                Layout.fillWidth: true
                enabled: !saver.running
                textRole: "text"
                valueRole: "seconds"
                currentIndex: 2
                model: [
                    { text: qsTr("10 seconds"), seconds: 10 },
                    { text: qsTr("30 seconds"), seconds: 30 },
                    { text: qsTr("1 minute"), seconds: 60 },
                    { text: qsTr("5 minutes"), seconds: 300 },
                    { text: qsTr("15 minutes"), seconds: 900 },
                    { text: qsTr("1 hour"), seconds: 3600 },
                    { text: qsTr("6 hours"), seconds: 21600 },
                    { text: qsTr("24 hours"), seconds: 86400 }
                ]
                Accessible.name: qsTr("Length")
            }
        }
        RowLayout {
            spacing: 12

            Text {
                Layout.fillWidth: true
                text: saver.pathOf(root.file)
                textFormat: Text.PlainText
                color: ViewerStyle.text
                font.pixelSize: ViewerStyle.smallText
                elide: Text.ElideMiddle
            }
            O_Button {
                enabled: !saver.running
                text: qsTr("Choose …")
                onClicked: chooser.open()
            }
        }
        ProgressBar {
            Layout.fillWidth: true
            opacity: saver.running ? 1 : 0
            value: saver.progress
            Accessible.name: qsTr("Progress of the export")
        }
        Text {
            Layout.fillWidth: true
            visible: text !== ""
            text: root.result
            textFormat: Text.PlainText
            color: root.failed ? ViewerStyle.danger : ViewerStyle.good
            font.pixelSize: ViewerStyle.smallText
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
        RowLayout {
            Layout.alignment: Qt.AlignRight
            spacing: ViewerStyle.gap

            O_Button {
                text: saver.running ? qsTr("Cancel") : qsTr("Close")
                onClicked: {
                    if (saver.running)
                        saver.cancel();
                    else
                        root.close();
                }
            }
            O_Button {
                enabled: !saver.running && root.channelId > 0
                text: qsTr("Export")
                onClicked: {
                    root.result = "";
                    saver.start(root.serverGroupId, root.serverId, root.channelId, root.from, root.from + length.currentValue * 1000, root.file);
                }
            }
        }
    }
}
