// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import orrinsdkqml

Window {
    property alias server: manager.hostAndPort
    property alias user: manager.username
    property alias password: manager.password
    width: 640; height: 360; visible: true

    ConnectionManager { id: manager; Component.onCompleted: connectServers() }
    VideoDisplay { anchors.fill: parent; serverGroupId: 1; serverId: 1
                   channelId: manager.status === ConnectionManager.Connected ? 1 : -1 }
}
