// SPDX-License-Identifier: GPL-3.0-or-later
#include "timeline/timelinescale.h"

#include <QDateTime>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QTimeZone Berlin("Europe/Berlin");

qint64 at(const QString &text, const QTimeZone &zone = QTimeZone::utc())
{
    QDateTime moment = QDateTime::fromString(text, u"yyyy-MM-dd HH:mm:ss"_s);
    moment.setTimeZone(zone);
    return moment.toMSecsSinceEpoch();
}

QStringList labels(const TimelineScale &scale)
{
    QStringList list;
    const QVariantList ticks = scale.ticks();
    for (const QVariant &tick : ticks)
        list.append(tick.toMap().value(u"label"_s).toString());
    return list;
}

} // namespace

class TestTimelineScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void pixelsAndTimes_areEachOthersInverse()
    {
        TimelineScale scale;
        scale.setWidth(600);
        scale.setSpan(60'000);
        scale.setCentre(1'000'030'000);
        QCOMPARE(scale.from(), 1'000'000'000);
        QCOMPARE(scale.to(), 1'000'060'000);
        QCOMPARE(scale.timeAt(300), 1'000'030'000);
        QCOMPARE(scale.timeAt(100), 1'000'010'000);
        QCOMPARE(scale.xOf(1'000'010'000), 100.0);
    }

    void span_staysBetweenAMinuteAndAMonth()
    {
        TimelineScale scale;
        scale.setSpan(5);
        QCOMPARE(scale.span(), TimelineScale::ShortestSpan);
        scale.setSpan(std::numeric_limits<qint64>::max());
        QCOMPARE(scale.span(), TimelineScale::LongestSpan);
        scale.setWidth(1000);
        for (int i = 0; i < 200; ++i)
            scale.zoom(0.5, 100);
        QCOMPARE(scale.span(), TimelineScale::ShortestSpan);
    }

    void zoom_keepsTheMomentUnderThePointer()
    {
        TimelineScale scale;
        scale.setWidth(1000);
        scale.setCentre(at(u"2026-03-03 12:00:00"_s));
        const qint64 before = scale.timeAt(250);
        scale.zoom(4.0, 250);
        QCOMPARE(scale.span(), 4 * 3'600'000);
        QVERIFY(std::abs(scale.timeAt(250) - before) <= 1);
    }

    void zoom_doesNothing_withAFactorThatIsNone()
    {
        TimelineScale scale;
        QSignalSpy changed(&scale, &TimelineScale::scaleChanged);
        scale.zoom(0.0, 0);
        scale.zoom(-1.0, 0);
        scale.zoom(std::numeric_limits<double>::quiet_NaN(), 0);
        scale.zoom(std::numeric_limits<double>::infinity(), 0);
        QCOMPARE(changed.size(), 0);
    }

    void labels_standOnRoundTimesOfTheZone()
    {
        TimelineScale scale;
        scale.setZone(QTimeZone("Asia/Kolkata")); // half an hour off the full ones
        scale.setWidth(700);
        scale.setSpan(3 * 3'600'000);
        scale.setCentre(at(u"2026-03-03 12:00:00"_s, QTimeZone("Asia/Kolkata")));
        QCOMPARE(labels(scale), (QStringList{u"10:00"_s, u"10:30"_s, u"11:00"_s, u"11:30"_s, u"12:00"_s, u"12:30"_s,
                                             u"13:00"_s, u"13:30"_s, u"14:00"_s}));
    }

    void labels_haveRoom_data()
    {
        QTest::addColumn<qint64>("span");
        for (qint64 span = TimelineScale::ShortestSpan; span <= TimelineScale::LongestSpan; span = span * 3 / 2)
            QTest::addRow("%lld s", span / 1000) << span;
    }

    void labels_haveRoom()
    {
        QFETCH(qint64, span);
        TimelineScale scale;
        scale.setZone(Berlin);
        scale.setWidth(1200);
        scale.setSpan(span);
        scale.setCentre(at(u"2026-05-05 05:05:05"_s));
        const QVariantList ticks = scale.ticks();
        QVERIFY(ticks.size() >= 3);
        QVERIFY(ticks.size() <= 1200 / 90 + 4);
        for (qsizetype i = 1; i < ticks.size(); ++i) {
            const double gap = scale.xOf(ticks.at(i).toMap().value(u"time"_s).toLongLong()) -
                               scale.xOf(ticks.at(i - 1).toMap().value(u"time"_s).toLongLong());
            QVERIFY2(gap >= 88, qPrintable(QString::number(gap)));
        }
    }

    void labels_stayOnTheClock_whenItIsPutForward()
    {
        TimelineScale scale;
        scale.setZone(Berlin);
        scale.setWidth(1300);
        scale.setSpan(24 * qint64(3'600'000));
        // 29 March 2026 has 23 hours in Berlin.
        scale.setCentre(at(u"2026-03-29 11:30:00"_s, Berlin));
        const QStringList found = labels(scale);
        for (const QString &hour : {u"04:00"_s, u"06:00"_s, u"08:00"_s, u"22:00"_s})
            QCOMPARE(found.count(hour), hour == u"22:00"_s ? 2 : 1);
        for (const QString &label : found)
            QVERIFY2(!label.contains(u':') || label.first(2).toInt() % 2 == 0, qPrintable(label));
    }

    void labels_showAnHourTwice_whenTheClockIsPutBack()
    {
        TimelineScale scale;
        scale.setZone(Berlin);
        scale.setWidth(700);
        scale.setSpan(5 * qint64(3'600'000));
        scale.setCentre(at(u"2026-10-25 01:00:00"_s)); // 03:00 becomes 02:00
        const QStringList found = labels(scale);
        QCOMPARE(found.count(u"02:00"_s), 2);
    }

    void dayTick_carriesTheDate()
    {
        TimelineScale scale;
        scale.setZone(Berlin);
        scale.setWidth(800);
        scale.setSpan(4 * qint64(3'600'000));
        scale.setCentre(at(u"2026-03-03 00:10:00"_s, Berlin));
        bool seen = false;
        const QVariantList ticks = scale.ticks();
        for (const QVariant &tick : ticks) {
            const bool day = tick.toMap().value(u"day"_s).toBool();
            QCOMPARE(day, tick.toMap().value(u"time"_s).toLongLong() == at(u"2026-03-03 00:00:00"_s, Berlin));
            if (day) {
                seen = true;
                QCOMPARE(tick.toMap().value(u"label"_s).toString(), u"Tue 3 Mar"_s);
            }
        }
        QVERIFY(seen);
    }

    void ticks_stay_whileNoneComesOrGoes()
    {
        TimelineScale scale;
        scale.setWidth(1000);
        scale.setCentre(at(u"2026-03-03 12:03:00"_s));
        QSignalSpy ticks(&scale, &TimelineScale::ticksChanged);
        QSignalSpy moved(&scale, &TimelineScale::scaleChanged);
        for (int i = 1; i <= 10; ++i)
            scale.setCentre(at(u"2026-03-03 12:03:00"_s) + i * 40);
        QCOMPARE(moved.size(), 10);
        QVERIFY(ticks.size() <= 1);
    }

    void text_hasTheDateAndTheServersTime()
    {
        TimelineScale scale;
        scale.setZone(Berlin);
        QCOMPARE(scale.text(at(u"2026-07-01 10:00:00"_s)), u"Wed 1 Jul 2026  12:00:00"_s);
    }

    void foreignZone_isNamed_whereItDiffersFromThisMachines()
    {
        TimelineScale scale;
        scale.setCentre(at(u"2026-07-01 10:00:00"_s));
        scale.setZone(QTimeZone::systemTimeZone());
        QCOMPARE(scale.foreignZone(), QString());
        const int here = QDateTime::fromMSecsSinceEpoch(scale.centre()).offsetFromUtc();
        scale.setZone(QTimeZone(here + 3600));
        QVERIFY(!scale.foreignZone().isEmpty());
    }

    void oddValues_areBounded()
    {
        TimelineScale scale;
        scale.setWidth(std::numeric_limits<double>::infinity());
        QCOMPARE(scale.width(), 1.0);
        scale.setWidth(-5);
        QCOMPARE(scale.width(), 1.0);
        scale.setWidth(1e12);
        QCOMPARE(scale.width(), 100'000.0);
        scale.setCentre(std::numeric_limits<qint64>::min());
        QCOMPARE(scale.centre(), TimelineScale::EarliestTime);
        scale.setCentre(std::numeric_limits<qint64>::max());
        QCOMPARE(scale.centre(), TimelineScale::LatestTime);
        QVERIFY(scale.ticks().size() < 5000);
        scale.setZone(QTimeZone());
        QCOMPARE(scale.zone(), QTimeZone::utc());
        QVERIFY(scale.timeAt(1e300) <= TimelineScale::LatestTime);
    }
};

QTEST_GUILESS_MAIN(TestTimelineScale)
#include "tst_timelinescale.moc"
