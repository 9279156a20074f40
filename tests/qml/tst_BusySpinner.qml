// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtTest
import orrinsdkqml
import "find.js" as Find

Item {
    id: root

    width: 400
    height: 300

    Component {
        id: plain

        BusySpinner {
            width: 200
            height: 160
        }
    }
    Component {
        id: declaredBusy

        BusySpinner {
            width: 200
            height: 160
            busy: true
        }
    }
    TestCase {
        name: "BusySpinner"
        when: windowShown

        function init() {
            failOnWarning(/.?/);
        }
        function dimOf(item: var): var {
            return Find.first(item, "QQuickRectangle");
        }
        function indicatorOf(item: var): var {
            return Find.first(item, "BusyIndicator_");
        }
        function wheelOf(item: var): var {
            return Find.first(item, "QQuickImage");
        }
        function spinOf(item: var): var {
            return Find.first(item, "QQuickRotationAnimator");
        }
        // The picture around the centre, as text.
        function spokesOf(item: var): string {
            const image = grabImage(item);
            let pixels = "";
            for (let angle = 0; angle < 2 * Math.PI; angle += 0.1)
                pixels += image.pixel(100 + 24 * Math.cos(angle), 80 + 24 * Math.sin(angle));
            return pixels;
        }
        function test_defaults() {
            const item = createTemporaryObject(plain, root);
            compare(item.busySize, 64);
            compare(item.spinCycleMs, 3600);
            compare(item.busy, false);
            verify(!dimOf(item).visible);
            verify(!indicatorOf(item).running);
            compare(wheelOf(item).parent.opacity, 0);
        }
        function test_busy_dimsAndTurns() {
            const item = createTemporaryObject(plain, root, { spinCycleMs: 400 });
            item.busy = true;
            const dim = dimOf(item);
            verify(dim.visible);
            compare(dim.color, "#000000");
            compare(dim.opacity, 0.6);
            compare(dim.width, 200);
            compare(dim.height, 160);
            verify(indicatorOf(item).running);
            compare(spinOf(item).from, 0);
            compare(spinOf(item).to, 360);
            compare(spinOf(item).duration, 400);
            verify(spinOf(item).loops < 0);
            verify(spinOf(item).running);
            tryCompare(wheelOf(item).parent, "opacity", 1);
            const before = spokesOf(item);
            tryVerify(() => spokesOf(item) !== before);
            item.busy = false;
            verify(!dim.visible);
            verify(!spinOf(item).running);
            tryCompare(wheelOf(item).parent, "opacity", 0);
        }
        function test_wheel_isTheModulesImage_inItsSize() {
            const item = createTemporaryObject(plain, root, { busySize: 48 });
            const wheel = wheelOf(item);
            compare(wheel.source, "qrc:/qt/qml/orrinsdkqml/resources/wheel.png");
            compare(wheel.status, Image.Ready);
            compare(wheel.implicitWidth, 32);
            compare(wheel.width, 48);
            compare(wheel.height, 48);
            compare(wheel.fillMode, Image.PreserveAspectFit);
        }
        function test_animator_rests_whileHidden() {
            const item = createTemporaryObject(plain, root, { busy: true });
            verify(spinOf(item).running);
            item.visible = false;
            verify(item.busy);
            verify(!spinOf(item).running);
            item.visible = true;
            verify(spinOf(item).running);
        }
        function test_busy_worksFromTheDeclaration() {
            const item = createTemporaryObject(declaredBusy, root);
            verify(dimOf(item).visible);
            verify(indicatorOf(item).running);
        }
        function test_wheel_turnsAtItsSize_whenTheItemHasNone() {
            const item = createTemporaryObject(plain, root, { width: 0, height: 0, busy: true });
            compare(dimOf(item).width, 0);
            compare(wheelOf(item).width, 64);
            verify(spinOf(item).running);
        }
    }
}
