// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/replay/syncclock.h"

#include <QTest>

#include <thread>

using namespace orrin::replay;
using namespace std::chrono_literals;
using orrin::Time300;

namespace {

double secondsUntil(const std::optional<SyncClock::Instant> &due)
{
    return due ? std::chrono::duration<double>(*due - std::chrono::steady_clock::now()).count() : 1e9;
}

} // namespace

class TestSyncClock : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void run_standsUntilAllAreReady();
    void run_beginsWithoutOneThatNeverIs();
    void due_followsTheRate_data();
    void due_followsTheRate();
    void due_isNothing_forAnotherRun();
    void hold_stopsTheClock_forAWhile();
    void jump_waitsForAll();
    void start_isWhereSomethingIs();
    void wake_isCalledOutsideTheLock();
    void member_mayLeaveInAnyState();
};

void TestSyncClock::run_standsUntilAllAreReady()
{
    SyncClock clock;
    int woken = 0;
    const auto a = clock.join([&woken] { ++woken; });
    const auto b = clock.join({});
    clock.prepare(1, 3000, 1.0);
    clock.ready(a, 1, 3010);
    QVERIFY(!clock.due(1, 3010));
    QCOMPARE(clock.now(), 3000);
    clock.ready(b, 1, 3005);
    QVERIFY(clock.due(1, 3010));
    QVERIFY(woken > 0);
    QVERIFY(secondsUntil(clock.due(1, 3300)) < 1.001);
    QVERIFY(secondsUntil(clock.due(1, 3300)) > 0.9);
}

void TestSyncClock::run_beginsWithoutOneThatNeverIs()
{
    SyncClock clock;
    const auto a = clock.join({});
    clock.join({});
    clock.prepare(1, 0, 1.0);
    clock.ready(a, 1, 10);
    QVERIFY(!clock.due(1, 10));
    std::this_thread::sleep_for(SyncClock::Patience + 50ms);
    clock.ready(a, 1, 10);
    QVERIFY(clock.due(1, 10));
}

void TestSyncClock::due_followsTheRate_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<Time300>("frame");
    QTest::addColumn<double>("seconds");
    QTest::newRow("half") << 0.5 << Time300(10'300) << 2.0;
    QTest::newRow("double") << 2.0 << Time300(10'600) << 1.0;
    QTest::newRow("backward") << -4.0 << Time300(8800) << 1.0;
    QTest::newRow("fast") << 1024.0 << Time300(10'000 + 300 * 1024) << 1.0;
    QTest::newRow("behind") << 1.0 << Time300(9700) << -1.0;
}

void TestSyncClock::due_followsTheRate()
{
    QFETCH(double, rate);
    QFETCH(Time300, frame);
    QFETCH(double, seconds);
    SyncClock clock;
    const auto member = clock.join({});
    clock.prepare(7, 10'000, rate);
    clock.ready(member, 7, 10'000);
    QVERIFY(std::abs(secondsUntil(clock.due(7, frame)) - seconds) < 0.05);
}

void TestSyncClock::due_isNothing_forAnotherRun()
{
    SyncClock clock;
    const auto member = clock.join({});
    clock.prepare(1, 0, 1.0);
    clock.ready(member, 1, 0);
    QVERIFY(!clock.due(2, 0));
    clock.prepare(2, 0, 0.0);
    clock.ready(member, 2, 0);
    QVERIFY(!clock.due(2, 0));
    QCOMPARE(clock.now(), 0);
}

void TestSyncClock::hold_stopsTheClock_forAWhile()
{
    SyncClock clock;
    const auto a = clock.join({});
    const auto b = clock.join({});
    clock.prepare(1, 0, 1.0);
    QVERIFY(!clock.hold(a));
    clock.ready(a, 1, 0);
    clock.ready(b, 1, 0);
    QVERIFY(clock.hold(a));
    QVERIFY(!clock.due(1, 300));
    const Time300 held = clock.now();
    std::this_thread::sleep_for(50ms);
    QCOMPARE(clock.now(), held);
    clock.release(a);
    QVERIFY(clock.due(1, 300));
    QVERIFY(clock.hold(b));
    std::this_thread::sleep_for(SyncClock::Patience + 50ms);
    QVERIFY(!clock.hold(b));
    QVERIFY(clock.due(1, 300));
    // Alone there is nobody who waits too long.
    clock.leave(a);
    QVERIFY(clock.hold(b));
}

void TestSyncClock::jump_waitsForAll()
{
    SyncClock clock;
    const auto a = clock.join({});
    const auto b = clock.join({});
    const auto c = clock.join({});
    clock.prepare(1, 0, 2.0);
    for (const auto member : {a, b, c})
        clock.ready(member, 1, 0);
    QVERIFY(!clock.offerJump(a, 90'000));
    clock.rest(c);
    QVERIFY(clock.now() < 300);
    QVERIFY(clock.offerJump(b, 60'000));
    QVERIFY(clock.now() >= 59'900 && clock.now() < 60'300);
    // The other one still stands before its own.
    QVERIFY(clock.offerJump(b, 120'000) && clock.now() >= 89'900 && clock.now() < 90'600);
}

void TestSyncClock::start_isWhereSomethingIs()
{
    SyncClock clock;
    const auto a = clock.join({});
    const auto b = clock.join({});
    clock.prepare(1, 100'000, -1.0);
    clock.ready(a, 1, 40'000);
    clock.ready(b, 1, 50'000);
    QVERIFY(clock.now() <= 50'000 && clock.now() > 49'700);
}

void TestSyncClock::wake_isCalledOutsideTheLock()
{
    SyncClock clock;
    Time300 seen = -1;
    const auto a = clock.join([&] { seen = clock.now(); });
    clock.prepare(1, 500, 1.0);
    clock.ready(a, 1, 500);
    QVERIFY(seen >= 500);
}

void TestSyncClock::member_mayLeaveInAnyState()
{
    SyncClock clock;
    const auto a = clock.join({});
    const auto b = clock.join({});
    clock.prepare(1, 0, 1.0);
    clock.ready(a, 1, 0);
    clock.leave(b);
    QVERIFY(clock.due(1, 0));
    clock.leave(a);
    clock.ready(a, 1, 0);
    clock.rest(a);
    clock.release(a);
    QVERIFY(!clock.hold(a));
    QVERIFY(!clock.offerJump(a, 5));
    QCOMPARE(clock.members(), 0);
}

QTEST_APPLESS_MAIN(TestSyncClock)
#include "tst_syncclock.moc"
