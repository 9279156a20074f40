// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls
import QtQuick.Shapes

/*! A closed polygon over a scene, for the mouse to edit. The points stand in the host's model, in coordinates of parentScene.

    The model has the roles `x` and `y`, one row for each corner and a last one that closes the outline, and the members
    `startX`, `startY`, `shapeContainsCursor`, `rowCount()`, `updateCursorPosition()`, `addPoint()`, `removePointAtIndex()`,
    `moveVertex()`, `moveAllVertices()` and `printCorvanePoints()`. */
Item {
    id: root

    property bool editable: false
    property bool animationsEnabled: true
    property bool itemFlashing: false
    property alias polygonLineModel: lineInstantiator.model
    property color borderColor: "red"
    property color fillColor: "orange"
    property color handleFillColor: "transparent"
    property int handleDiameter: 40
    property int handleBorderWidth: 4
    /*! Of the whole shape, handles included. */
    property real polygonOpacity: 0.5
    property Item parentScene
    /*! Where the component's parent stood when a press on the polygon began. */
    property point lastPos
    property bool pressed: polygonMouseArea.pressed
    property string centerText
    /*! Turns on press and hold as a slow double click. */
    property bool doubleClickHold: false

    signal polygonHovered
    signal polygonClicked(MouseEvent mouseEvent)
    signal pointsDirty
    signal removePolygon
    signal doubleClicked

    function moveVertex(vertex_index: int, x_diff: real, y_diff: real) {
        root.polygonLineModel.moveVertex(vertex_index, x_diff, y_diff);
    }
    function moveAllVertices(x_diff: real, y_diff: real) {
        root.polygonLineModel.moveAllVertices(x_diff, y_diff);
    }

    component PolyLine: PathLine {
        property int modelIndex
    }
    component PolyHandle: Rectangle {
        id: handle

        property int modelIndex
        property bool pressed: handleMouseArea.pressed
        property point last_pos

        function positionUpdated() {
            if (!handleMouseArea.pressed || polygonMouseArea.pressed)
                return;
            // Differences of the scene, so that a scaled one gets true distances.
            const from = polygonShape.mapToItem(root.parentScene, handle.last_pos.x, handle.last_pos.y);
            const to = polygonShape.mapToItem(root.parentScene, handle.x, handle.y);
            handle.last_pos = Qt.point(handle.x, handle.y);
            root.moveVertex(handle.modelIndex, to.x - from.x, to.y - from.y);
            root.pointsDirty();
        }

        width: root.handleDiameter
        height: root.handleDiameter
        radius: width / 2
        color: root.handleFillColor
        border.width: root.handleBorderWidth
        border.color: root.borderColor
        onXChanged: handle.positionUpdated()
        onYChanged: handle.positionUpdated()

        MouseArea {
            id: handleMouseArea

            anchors.fill: parent
            acceptedButtons: Qt.LeftButton | Qt.RightButton
            cursorShape: pressed ? Qt.ClosedHandCursor : Qt.OpenHandCursor
            drag.target: handle
            enabled: root.editable
            hoverEnabled: true
            visible: root.editable
            onPressed: mouse => {
                if (mouse.button === Qt.LeftButton)
                    handle.last_pos = Qt.point(handle.x, handle.y);
            }
            onClicked: mouse => {
                if (mouse.button === Qt.RightButton)
                    handleMenu.createObject(handle, { x: mouse.x, y: mouse.y, modelIndex: handle.modelIndex }).open(); // qmllint disable missing-property
            }
        }
    }

    // Made for each opening: a polygon may have thousands of corners.
    Component {
        id: handleMenu

        Menu {
            id: menu

            required property int modelIndex

            font: Application.font
            onClosed: menu.destroy()

            MenuItem {
                text: qsTr("Remove This Handle")
                onTriggered: root.polygonLineModel.removePointAtIndex(menu.modelIndex)
            }
        }
    }
    Timer {
        id: fillColorAnimator

        property int triggerCount: 0

        interval: 10
        repeat: true
        onTriggered: {
            const fill = polyPath.dynamicFillColor;
            if (triggerCount >= 1000 || fill.a < 0.35) {
                root.doubleClicked();
                stop();
                return;
            }
            polyPath.dynamicFillColor = Qt.rgba(fill.r, fill.g, fill.b, Math.max(0, fill.a * 0.99));
            triggerCount += 1;
        }
        onRunningChanged: {
            if (running)
                return;
            triggerCount = 0;
            polyPath.dynamicFillColor = Qt.binding(() => root.fillColor);
        }
    }

    // Beneath the shape, so that the handles get the presses on them.
    MouseArea {
        id: polygonMouseArea

        readonly property bool inside: root.polygonLineModel?.shapeContainsCursor ?? false

        function trackCursor() {
            if (!pressed)
                root.polygonLineModel?.updateCursorPosition?.(mapToItem(root.parentScene, mouseX, mouseY));
        }
        function addCurrentPoint() {
            root.polygonLineModel.addPoint(mapToItem(root.parentScene, mouseX, mouseY));
        }

        x: polygonShape.boundX
        y: polygonShape.boundY
        width: polygonShape.boundW
        height: polygonShape.boundH
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        cursorShape: !inside ? Qt.ArrowCursor
                             : !root.editable ? Qt.PointingHandCursor : pressed ? Qt.ClosedHandCursor : Qt.OpenHandCursor
        drag.target: inside && root.editable ? root.parent : null
        hoverEnabled: true
        onPositionChanged: trackCursor()
        onEntered: trackCursor()
        onExited: trackCursor()
        onContainsMouseChanged: {
            root.polygonHovered();
            trackCursor();
        }
        onPressed: mouse => {
            // What lies beneath the box but beside the polygon gets the press.
            mouse.accepted = inside;
            if (inside)
                root.lastPos = Qt.point(root.parent.x, root.parent.y);
        }
        onClicked: mouse => {
            if (!inside)
                return;
            root.polygonLineModel.printCorvanePoints?.(root.parentScene);
            root.polygonClicked(mouse);
            if (mouse.button === Qt.RightButton)
                polygonMenu.open();
        }
        onDoubleClicked: {
            if (!inside)
                return;
            if (root.editable)
                addCurrentPoint();
            root.doubleClicked();
        }
        onPressAndHold: mouse => {
            // A hold that means nothing stays a click.
            mouse.accepted = root.doubleClickHold && inside;
            if (mouse.accepted)
                fillColorAnimator.start();
        }
        onReleased: {
            if (inside)
                fillColorAnimator.stop();
            // The pointer may have left meanwhile; the host has moved the points by then.
            Qt.callLater(trackCursor);
        }

        Menu {
            id: polygonMenu

            font: Application.font
            onAboutToShow: {
                x = polygonMouseArea.mouseX;
                y = polygonMouseArea.mouseY;
            }

            MenuItem {
                enabled: root.editable
                text: qsTr("Add a point here")
                onTriggered: polygonMouseArea.addCurrentPoint()
            }
            MenuItem {
                enabled: root.editable
                text: polyPath.toggleShowHandles ? qsTr("Hide handles") : qsTr("Show handles")
                // From here on the handles show by this choice, whatever becomes of editable.
                onTriggered: polyPath.toggleShowHandles = !polyPath.toggleShowHandles
            }
            MenuItem {
                enabled: root.editable
                text: qsTr("Remove this polygon")
                onTriggered: root.removePolygon()
            }
        }
        Label {
            // Shown above the fill, which would hide it on a dark scene.
            parent: root
            z: 1
            anchors.centerIn: polygonMouseArea
            color: "black"
            font: Application.font
            opacity: 0.5
            text: root.centerText
            textFormat: Text.PlainText
        }
    }
    Shape {
        id: polygonShape

        property real boundX: boundingRect.x
        property real boundY: boundingRect.y
        property real boundW: boundingRect.width
        property real boundH: boundingRect.height

        anchors.fill: parent
        opacity: root.polygonOpacity
        preferredRendererType: Shape.CurveRenderer

        ShapePath {
            id: polyPath

            property color dynamicFillColor: root.fillColor
            property bool toggleShowHandles: root.editable
            readonly property point start: root.polygonLineModel ? root.mapFromItem(root.parentScene, root.polygonLineModel.startX ?? 0,
                                                                                    root.polygonLineModel.startY ?? 0)
                                                                 : Qt.point(0, 0)

            fillColor: !polygonMouseArea.inside ? dynamicFillColor
                                                : polygonMouseArea.pressed ? Qt.darker(dynamicFillColor) : Qt.lighter(dynamicFillColor)
            pathHints: ShapePath.PathLinear | ShapePath.PathSolid
            startX: start.x
            startY: start.y
            strokeColor: root.borderColor
        }
    }
    // All lines go at once ahead of a reset: each change of the list computes the path anew.
    Connections {
        function onModelAboutToBeReset() {
            lineInstantiator.clearPath();
        }

        target: root.polygonLineModel as QtObject
        ignoreUnknownSignals: true
    }
    // Each change of a path's list costs as much as the path is long: past some hundred corners one element draws all lines.
    PathPolyline {
        id: longLine
    }
    Instantiator {
        id: lineInstantiator

        readonly property int longest: 500
        property var drawnModel: null

        function isLong(): bool {
            return polyPath.pathElements.length > 0 && polyPath.pathElements[0] === longLine;
        }
        function clearPath() {
            if (polyPath.pathElements.length === 0)
                return;
            polyPath.pathElements = [];
            root.pointsDirty();
        }
        // The lines as they are now, in whichever way their number asks for.
        function drawAll() {
            const lines = Array.from({ length: lineInstantiator.count }, (_, i) => lineInstantiator.objectAt(i) as PolyLine);
            if (lines.length > longest) {
                longLine.path = lines.map(line => Qt.point(line.x, line.y));
                if (!isLong())
                    polyPath.pathElements = [longLine];
            } else if (isLong()) {
                polyPath.pathElements = lines;
            }
        }

        model: null
        onModelChanged: drawnModel = model
        onObjectAdded: (index, object) => {
            if (index >= longest || isLong()) {
                Qt.callLater(drawAll);
            } else if (index >= polyPath.pathElements.length) {
                polyPath.pathElements.push(object);
            } else {
                const lines = Array.from(polyPath.pathElements);
                lines.splice(index, 0, object);
                polyPath.pathElements = lines;
            }
            root.pointsDirty();
        }
        onObjectRemoved: (index, object) => {
            // The lines of a model that was put away.
            if (drawnModel !== model)
                clearPath();
            if (polyPath.pathElements.length === 0)
                return;
            if (isLong()) {
                Qt.callLater(drawAll);
                root.pointsDirty();
                return;
            }
            const lines = Array.from(polyPath.pathElements);
            const place = lines.indexOf(object);
            if (place < 0)
                return;
            lines.splice(place, 1);
            polyPath.pathElements = lines;
            root.pointsDirty();
        }

        PolyLine {
            id: line

            required property var model
            required property int index
            readonly property point place: root.mapFromItem(root.parentScene, line.model.x ?? 0, line.model.y ?? 0)

            modelIndex: line.index
            x: line.place.x
            y: line.place.y
            onPlaceChanged: {
                if (lineInstantiator.isLong())
                    Qt.callLater(lineInstantiator.drawAll);
            }
        }
    }
    Instantiator {
        id: handleInstantiator

        active: root.editable
        model: root.polygonLineModel
        onObjectAdded: (index, object) => {
            // The closing corner is edited by the handle of the first one.
            if (index === root.polygonLineModel.rowCount() - 1)
                (object as Item).visible = false;
            root.pointsDirty();
        }
        onObjectRemoved: root.pointsDirty()

        PolyHandle {
            id: corner

            required property var model
            required property int index

            parent: polygonShape
            modelIndex: corner.index
            visible: polyPath.toggleShowHandles
            Component.onCompleted: {
                // No bindings: the handle is dragged and tells the model, not the other way.
                const place = root.mapFromItem(root.parentScene, corner.model.x ?? 0, corner.model.y ?? 0);
                corner.x = place.x - corner.width / 2;
                corner.y = place.y - corner.height / 2;
            }
        }
    }
}
