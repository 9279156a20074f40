// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import OrrinViewer.Host
import orrinsdkqml

// One zone under edit: the module's polygon on a carrier, which a drag of the whole shape moves, over the scene of the picture.
Item {
    id: root

    required property Item scene
    // The corners in fractions of the picture.
    required property var points
    property string name
    property bool selected: false
    readonly property alias polygon: polygon
    readonly property alias corners: corners

    signal edited(var points)
    signal chosen()
    signal removeWanted()

    function load() {
        if (root.scene.width <= 0 || root.scene.height <= 0)
            return;
        state.loading = true;
        corners.corners = root.points.map(point => Qt.point(point[0] * root.scene.width, point[1] * root.scene.height));
        state.loading = false;
    }
    // Tells the corners as they are now, none of them outside the picture.
    function tell() {
        const inside = (value, end) => Math.max(0, Math.min(1, value / end));
        root.points = corners.corners.map(corner => [inside(corner.x, root.scene.width), inside(corner.y, root.scene.height)]);
        root.edited(root.points);
    }

    width: root.scene.width
    height: root.scene.height
    z: root.selected ? 1 : 0
    // Not while the items are being laid out: a shape that changes twice in a frame keeps showing the first change.
    onWidthChanged: Qt.callLater(root.load)
    onHeightChanged: Qt.callLater(root.load)
    Component.onCompleted: root.load()

    QtObject {
        id: state

        property bool loading: false
    }
    PolygonModel {
        id: corners

        onCornersChanged: {
            if (!state.loading)
                root.tell();
        }
    }
    O_Polygon {
        id: polygon

        anchors.fill: parent
        borderColor: root.selected ? ViewerStyle.playhead : ViewerStyle.dimText
        centerText: root.name
        editable: root.selected
        fillColor: root.selected ? ViewerStyle.playhead : ViewerStyle.dimText
        handleBorderWidth: 3
        handleDiameter: 24
        parentScene: root.scene
        polygonLineModel: corners
        polygonOpacity: 0.55
        onPolygonClicked: root.chosen()
        onRemovePolygon: root.removeWanted()
        onPressedChanged: {
            if (polygon.pressed)
                return;
            const dx = root.x - polygon.lastPos.x;
            const dy = root.y - polygon.lastPos.y;
            if (dx === 0 && dy === 0)
                return;
            // The carrier goes back, the corners stay where they were dropped, and in the picture.
            state.loading = true;
            polygon.moveAllVertices(dx, dy);
            state.loading = false;
            root.x = 0;
            root.y = 0;
            root.tell();
            state.loading = true;
            corners.corners = [];
            root.load();
        }
    }
}
