// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

// What hangs at the pointer while a camera or a tile is dragged to another tile.
Rectangle {
    id: root

    property string name
    property int serverGroupId: -1
    property int serverId: -1
    property int channelId: -1
    // The tile that is dragged; -1 for a camera of the list.
    property int tile: -1

    function begin(name: string, tile: int, serverGroupId: int, serverId: int, channelId: int, position: point) {
        root.name = name;
        root.tile = tile;
        root.serverGroupId = serverGroupId;
        root.serverId = serverId;
        root.channelId = channelId;
        root.moveTo(position);
        root.visible = true;
        root.Drag.active = true;
    }

    // In scene coordinates.
    function moveTo(position: point) {
        const place = root.parent.mapFromItem(null, position.x, position.y);
        root.x = place.x - root.Drag.hotSpot.x;
        root.y = place.y - root.Drag.hotSpot.y;
    }

    function end(done: bool) {
        if (!root.Drag.active)
            return;
        if (done)
            root.Drag.drop();
        else
            root.Drag.cancel();
        root.Drag.active = false;
        root.visible = false;
    }

    Drag.hotSpot.x: 12
    Drag.hotSpot.y: 12
    width: Math.min(220, label.implicitWidth + 24)
    height: 32
    radius: ViewerStyle.radius
    color: ViewerStyle.raised
    border.color: ViewerStyle.accent
    opacity: 0.9
    visible: false
    z: 100

    Text {
        id: label

        anchors.fill: parent
        anchors.margins: 6
        text: root.name
        textFormat: Text.PlainText
        color: ViewerStyle.text
        font.pixelSize: ViewerStyle.smallText
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
    }
}
