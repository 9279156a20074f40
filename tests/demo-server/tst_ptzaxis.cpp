// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/camerapainter.h"
#include "ptz/ptzaxis.h"
#include "ptz/ptzmotor.h"
#include "site/site.h"
#include "timestrip.h"

#include <QGuiApplication>
#include <QTest>

#include <cmath>

using namespace orrin::demo;
using namespace Qt::StringLiterals;

namespace {

constexpr PtzAxis::Limits Limits{-1.0, 1.0, 0.5, 2.0};
constexpr std::int64_t T0 = 1'700'000'000'000;

bool near(double left, double right, double by = 1e-6)
{
    return std::abs(left - right) <= by;
}

} // namespace

/*! Where a camera looks, as a function of time and of what it was told. */
class TestPtzAxis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void axis_rests_untilItIsTold()
    {
        const PtzAxis axis(Limits, 0.25);
        QCOMPARE(axis.position(0), 0.25);
        QCOMPARE(axis.position(T0), 0.25);
        QCOMPARE(axis.speed(T0), 0.0);
        QCOMPARE(PtzAxis(Limits, 7).position(T0), 1.0);
    }

    void drive_gainsSpeedSteadily()
    {
        PtzAxis axis(Limits, 0);
        axis.drive(T0, 1.0);
        QVERIFY(near(axis.speed(T0), 0));
        QVERIFY(near(axis.speed(T0 + 125), 0.25));
        QVERIFY(near(axis.speed(T0 + 250), 0.5));
        QVERIFY(near(axis.speed(T0 + 1000), 0.5));
        QVERIFY(near(axis.position(T0 + 250), 0.0625));
        QVERIFY(near(axis.position(T0 + 1250), 0.5625));
        // What was before does not change by it.
        QCOMPARE(axis.position(T0 - 1), 0.0);
    }

    void stop_rollsOut()
    {
        PtzAxis axis(Limits, 0);
        axis.drive(T0, 1.0);
        axis.drive(T0 + 1000, 0.0);
        const double at = axis.position(T0 + 1000);
        QVERIFY(near(axis.position(T0 + 1250), at + 0.0625));
        QVERIFY(near(axis.position(T0 + 9000), at + 0.0625));
        QVERIFY(near(axis.speed(T0 + 9000), 0));
    }

    void axis_standsAtItsEnd_andTurnsRound()
    {
        PtzAxis axis(Limits, 0.9);
        axis.drive(T0, 1.0);
        QVERIFY(near(axis.position(T0 + 5000), 1.0));
        QVERIFY(near(axis.speed(T0 + 5000), 0));
        axis.drive(T0 + 5000, -1.0);
        QVERIFY(near(axis.position(T0 + 6250), 1.0 - 0.5625));
        // The end was left at once, not after the time that was spent at it.
        axis.drive(T0 + 6250, 1.0);
        for (int ms = 6250; ms < 12000; ms += 7) {
            const double position = axis.position(T0 + ms);
            QVERIFY(position >= -1.0 && position <= 1.0);
        }
        QVERIFY(near(axis.position(T0 + 12000), 1.0));
    }

    void turn_atTheEnd_keepsWithinIt()
    {
        // Reversed so late that the run-out meets the end.
        PtzAxis axis(Limits, 0.99);
        axis.drive(T0, 1.0);
        axis.drive(T0 + 90, -1.0);
        double last = axis.position(T0);
        for (int ms = 0; ms < 2000; ++ms) {
            const double position = axis.position(T0 + ms);
            QVERIFY(position <= 1.0);
            QVERIFY2(std::abs(position - last) < 0.001, "it jumped");
            last = position;
        }
        QVERIFY(last < 0.5);
    }

    void goTo_arrivesAndStands_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("to");
        QTest::newRow("far") << -1.0 << 1.0;
        QTest::newRow("back") << 1.0 << -1.0;
        QTest::newRow("near") << 0.0 << 0.01;
        QTest::newRow("nowhere") << 0.3 << 0.3;
    }
    void goTo_arrivesAndStands()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        PtzAxis axis(Limits, from);
        axis.goTo(T0, to);
        double last = from;
        for (int ms = 0; ms <= 6000; ms += 5) {
            const double position = axis.position(T0 + ms);
            QVERIFY(std::abs(position - last) <= 0.5 * 0.005 + 1e-6);
            last = position;
        }
        QVERIFY(near(last, to));
        QVERIFY(near(axis.speed(T0 + 6000), 0));
    }

    void goTo_brakesFirst_andKeepsToTheRange()
    {
        PtzAxis axis(Limits, 0);
        axis.drive(T0, 1.0);
        axis.goTo(T0 + 500, -5.0);
        QVERIFY(axis.position(T0 + 600) > axis.position(T0 + 500));
        QVERIFY(near(axis.position(T0 + 10000), -1.0));
    }

    void order_replacesWhatWasToCome()
    {
        PtzAxis axis(Limits, 0);
        axis.drive(T0, 0.5);
        axis.drive(T0 + 2000, 0.0);
        axis.drive(T0 + 1000, 0.4);
        // The stop that was planned is gone.
        QVERIFY(near(axis.speed(T0 + 3000), 0.2));
        QVERIFY(axis.isMoving(T0));
        QVERIFY(!axis.isMoving(T0 - 1));
    }

    void history_isBounded()
    {
        PtzAxis axis(Limits, 0);
        for (int i = 0; i < 20000; ++i)
            axis.drive(T0 + i * 100, i % 2 ? 1.0 : -1.0);
        const double position = axis.position(T0 + 20000 * 100);
        QVERIFY(position >= -1.0 && position <= 1.0);
        // What is forgotten stands where it is first known.
        QCOMPARE(axis.position(0), axis.position(T0));
    }

    void motor_stopsByItself_afterItsTime()
    {
        PtzMotor motor;
        motor.move(T0, {1.0, {}, {}}, 1000);
        QVERIFY(motor.isMoving(T0 + 900));
        QVERIFY(!motor.isMoving(T0 + 1300));
        QVERIFY(near(motor.viewAt(T0 + 9000).pan, motor.viewAt(T0 + 1300).pan));
        QCOMPARE(motor.viewAt(T0 + 9000).tilt, 0.0);
        // Told again in time, it goes on without a jerk.
        motor.move(T0 + 10000, {-1.0, {}, {}}, 1000);
        motor.move(T0 + 10900, {-1.0, {}, {}}, 1000);
        QVERIFY(motor.isMoving(T0 + 11500));
    }

    void motor_movesEachAxisAlone()
    {
        PtzMotor motor;
        motor.move(T0, {0.5, -0.5, 1.0}, 60000);
        motor.stop(T0 + 1000, false, true);
        QVERIFY(near(motor.viewAt(T0 + 3000).zoom, motor.viewAt(T0 + 2000).zoom));
        QVERIFY(motor.viewAt(T0 + 3000).pan > motor.viewAt(T0 + 2000).pan);
        QVERIFY(motor.viewAt(T0 + 3000).tilt < motor.viewAt(T0 + 2000).tilt);
        motor.moveFocus(T0, -1.0);
        QVERIFY(motor.focusAt(T0 + 500) < 0.5);
        motor.focusTo(T0 + 500, 1.0);
        QVERIFY(near(motor.focusAt(T0 + 5000), 1.0));
    }

    void picture_showsThePosition()
    {
        const Site site = Site::builtIn();
        const Camera &camera = site.recorders.first().cameras.at(1);
        QVERIFY(camera.motor);
        CameraPainter painter(camera, site.recorders.first().timeZone, {640, 360}, Picture::Range::Limited);
        const auto read = [&](std::int64_t time) {
            const Picture &picture = painter.paint(time, camera.viewAt(time));
            return orrin::timestrip::read(picture.plane(0), picture.stride(0), 640, 360);
        };
        const Picture home = painter.paint(T0, camera.viewAt(T0));
        QCOMPARE(read(T0)->pan, 128);
        camera.motor->move(T0, {1.0, 1.0, 0.5}, 60000);
        const auto later = read(T0 + 1250);
        QVERIFY(later);
        QCOMPARE(int(later->pan), int(View::stripAxis(0.5625)));
        QVERIFY(later->tilt > 128 && later->zoom > 0);
        // The scene moves as well, and a moment of the past is shown as it was.
        QVERIFY(!(painter.paint(T0 + 1250, camera.viewAt(T0 + 1250)) == home));
        QVERIFY(painter.paint(T0, camera.viewAt(T0)) == home);
        QVERIFY(!site.recorders.first().cameras.first().motor);

        // Out of focus, the scene blurs, and the strip can be read all the same.
        camera.motor->stop(T0 + 1250, true, true);
        const Picture sharp = painter.paint(T0 + 9000, camera.viewAt(T0 + 9000));
        camera.motor->focusTo(T0 + 1250, 0.1);
        QVERIFY(!(painter.paint(T0 + 9000, camera.viewAt(T0 + 9000)) == sharp));
        QVERIFY(read(T0 + 9000));
        camera.motor->focusTo(T0 + 3000, View::Sharp);
        QVERIFY(painter.paint(T0 + 9000, camera.viewAt(T0 + 9000)) == sharp);
    }
};

QTEST_MAIN(TestPtzAxis)
#include "tst_ptzaxis.moc"
