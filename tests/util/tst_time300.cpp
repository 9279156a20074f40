// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/time300.h>

#include <QTest>
#include <QTimeZone>

#include <limits>

using namespace orrin;

class TestTime300 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void toDate_isEpoch_whenZero();
    void toDate_roundsToMilliseconds_data();
    void toDate_roundsToMilliseconds();
    void fromDate_usesMoment_whateverTheZone();
    void fromDate_isZero_whenInvalid();
    void roundTrip_keepsEveryCount();
    void extremes_doNotOverflow();
};

void TestTime300::toDate_isEpoch_whenZero()
{
    const QDateTime date = time300ToDateTimeUTC(0);
    QCOMPARE(date.toMSecsSinceEpoch(), 0);
    QCOMPARE(date.timeZone(), QTimeZone::utc());
}

void TestTime300::toDate_roundsToMilliseconds_data()
{
    QTest::addColumn<long long>("count");
    QTest::addColumn<qint64>("ms");
    QTest::newRow("one") << 1LL << qint64(3);
    QTest::newRow("two") << 2LL << qint64(7);
    QTest::newRow("three") << 3LL << qint64(10);
    QTest::newRow("a second") << 300LL << qint64(1000);
    QTest::newRow("before the epoch") << -1LL << qint64(-3);
    QTest::newRow("a second before") << -300LL << qint64(-1000);
}

void TestTime300::toDate_roundsToMilliseconds()
{
    QFETCH(long long, count);
    QFETCH(qint64, ms);
    QCOMPARE(time300ToDateTimeUTC(count).toMSecsSinceEpoch(), ms);
}

void TestTime300::fromDate_usesMoment_whateverTheZone()
{
    const QDateTime utc(QDate(2026, 3, 4), QTime(5, 6, 7, 500), QTimeZone::utc());
    const QDateTime east = utc.toTimeZone(QTimeZone::fromSecondsAheadOfUtc(3 * 3600));
    QCOMPARE(dateTimeToTime300(utc), utc.toMSecsSinceEpoch() / 10 * 3);
    QCOMPARE(dateTimeToTime300(east), dateTimeToTime300(utc));
}

void TestTime300::fromDate_isZero_whenInvalid()
{
    QCOMPARE(dateTimeToTime300(QDateTime()), 0LL);
}

void TestTime300::roundTrip_keepsEveryCount()
{
    constexpr long long Now = 1'790'000'000LL * 300;
    for (const long long base : {0LL, Now, -Now}) {
        for (long long count = base; count < base + 700; ++count)
            QCOMPARE(dateTimeToTime300(time300ToDateTimeUTC(count)), count);
    }
}

void TestTime300::extremes_doNotOverflow()
{
    QVERIFY(time300ToDateTimeUTC(std::numeric_limits<long long>::max()).toMSecsSinceEpoch() > 0);
    QVERIFY(time300ToDateTimeUTC(std::numeric_limits<long long>::min()).toMSecsSinceEpoch() < 0);
}

QTEST_APPLESS_MAIN(TestTime300)
#include "tst_time300.moc"
