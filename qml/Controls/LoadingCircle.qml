// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

/*! A ring that sweeps shut over a set time while it fades in. */
Canvas {
    id: root

    property real msToComplete: 500
    // The host publishes `settings`, which qmllint cannot know.
    property real radius: 1.5 * settings.controlHeightHints // qmllint disable unqualified
    property color primaryColor: "lightblue"
    property int centerX: 0
    property int centerY: 0
    property int lineWidth: 20 * settings.devicePixelRatio // qmllint disable unqualified

    signal completed

    width: 2 * root.radius + root.lineWidth
    height: 2 * root.radius + root.lineWidth
    opacity: root.msToComplete > 0 ? timer.time / root.msToComplete : 0

    onCenterXChanged: root.x = root.centerX - root.width / 2
    onCenterYChanged: root.y = root.centerY - root.height / 2
    Component.onCompleted: {
        // A centre that came with the declaration was there before the size.
        if (root.centerX !== 0)
            root.x = root.centerX - root.width / 2;
        if (root.centerY !== 0)
            root.y = root.centerY - root.height / 2;
    }
    onPaint: {
        const context = root.getContext("2d");
        context.clearRect(0, 0, root.width, root.height);
        if (!timer.running)
            return;

        const middle = root.radius + root.lineWidth / 2;
        const sweep = timer.time / root.msToComplete * 2 * Math.PI;
        context.lineWidth = root.lineWidth;
        context.strokeStyle = root.primaryColor;
        context.beginPath();
        context.arc(middle, middle, root.radius, 0, sweep);
        context.stroke();

        context.lineWidth = 1;
        context.fillStyle = Qt.darker(root.primaryColor, 2);
        context.beginPath();
        // The overlong end angle closes the disc.
        context.arc(middle + root.radius * Math.cos(sweep), middle + root.radius * Math.sin(sweep), 10, 0, 2 * Math.PI * 40);
        context.fill();
    }

    /*! Sweeps for \a loadTimeMs; a running sweep keeps the time that it has behind it. */
    function start(loadTimeMs: real) {
        root.msToComplete = loadTimeMs;
        root.requestPaint();
        timer.start();
    }
    /*! Ends the sweep without a signal. */
    function stop() {
        timer.stop();
        timer.time = 0;
        root.requestPaint();
    }

    Timer {
        id: timer

        property int time: 0

        interval: 50
        repeat: true
        onTriggered: {
            time += 50;
            root.requestPaint();
            if (time > root.msToComplete) {
                time = 0;
                stop();
                root.completed();
            }
        }
    }
}
