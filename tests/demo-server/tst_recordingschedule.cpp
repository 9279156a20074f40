// SPDX-License-Identifier: GPL-3.0-or-later
#include "recordings/recordingschedule.h"

#include <QDateTime>
#include <QTest>

using namespace orrin::demo;

namespace {

constexpr qint64 Minute = 60'000;
constexpr qint64 Hour = 60 * Minute;
constexpr qint64 Day = 24 * Hour;

qint64 at(int year, int month, int day, int hour, int minute, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second), QTimeZone::UTC)
        .toMSecsSinceEpoch();
}

} // namespace

class TestRecordingSchedule : public QObject
{
    Q_OBJECT

private:
    // A Friday.
    const qint64 m_started = at(2026, 3, 6, 10, 47, 11);
    const qint64 m_now = m_started + 3 * Hour;

private Q_SLOTS:
    void continuous_hasOneLongGapAWeek()
    {
        const RecordingSchedule schedule(RecordingPattern::Continuous, 1, m_started);
        QCOMPARE(schedule.beginMs(), at(2026, 2, 4, 10, 0));
        QCOMPARE(schedule.endMs(m_now), m_now);
        const auto spans = schedule.spans(0, m_now, m_now, 100);
        QCOMPARE(spans.size(), 6);
        QCOMPARE(spans.constFirst().beginMs, schedule.beginMs());
        QCOMPARE(spans.constFirst().endMs, at(2026, 2, 5, 2, 0));
        QCOMPARE(spans.at(1).beginMs, at(2026, 2, 5, 5, 30));
        QCOMPARE(spans.constLast().beginMs, at(2026, 3, 5, 5, 30));
        QCOMPARE(spans.constLast().endMs, m_now);
    }

    void hourlyGap_leavesOutThreeMinutes()
    {
        const RecordingSchedule schedule(RecordingPattern::HourlyGap, 1, m_started);
        const auto spans = schedule.spans(at(2026, 3, 6, 8, 0), at(2026, 3, 6, 10, 0), m_now, 100);
        const QList<Span> expected{{at(2026, 3, 6, 8, 0), at(2026, 3, 6, 8, 20)},
                                   {at(2026, 3, 6, 8, 23), at(2026, 3, 6, 9, 20)},
                                   {at(2026, 3, 6, 9, 23), at(2026, 3, 6, 10, 0)}};
        QCOMPARE(spans, expected);
        QCOMPARE(schedule.spanFrom(at(2026, 3, 6, 8, 21), m_now)->beginMs, at(2026, 3, 6, 8, 23));
        QCOMPARE(schedule.spanUntil(at(2026, 3, 6, 8, 21), m_now)->endMs, at(2026, 3, 6, 8, 20));
        // In a gap, the end is where the last span ended.
        QCOMPARE(schedule.endMs(at(2026, 3, 6, 8, 22)), at(2026, 3, 6, 8, 20));
    }

    void onAlarm_hasOneShortSpanInFiveMinutes()
    {
        const RecordingSchedule schedule(RecordingPattern::OnAlarm, 5, m_started);
        const RecordingSchedule other(RecordingPattern::OnAlarm, 6, m_started);
        const qint64 from = at(2026, 3, 1, 0, 0);
        const auto spans = schedule.spans(from, from + Day, m_now, 1000);
        QCOMPARE(spans.size(), 288);
        for (qsizetype i = 0; i < spans.size(); ++i) {
            const Span &span = spans.at(i);
            QCOMPARE(span.endMs - span.beginMs, 40'000);
            QCOMPARE(span.beginMs % RecordingSchedule::GopMs, 0);
            QCOMPARE((span.beginMs - from) / (5 * Minute), i);
            QCOMPARE((span.endMs - 1 - from) / (5 * Minute), i);
        }
        QCOMPARE(schedule.spans(from, from + Day, m_now, 1000), spans);
        QVERIFY(other.spans(from, from + Day, m_now, 1000) != spans);
        QCOMPARE(schedule.spans(from, from + Day, m_now, 7), spans.first(7));
    }

    void justBegun_growsFromTheStart()
    {
        const RecordingSchedule schedule(RecordingPattern::JustBegun, 1, m_started);
        QVERIFY(schedule.beginMs() <= m_started && schedule.beginMs() > m_started - 2000);
        const QList<Span> expected{{schedule.beginMs(), m_now}};
        QCOMPARE(schedule.spans(0, m_now + Day, m_now, 10), expected);
        const QList<Span> later{{schedule.beginMs(), m_now + 9 * Day}};
        QCOMPARE(schedule.spans(0, m_now + 10 * Day, m_now + 9 * Day, 10), later);
        QVERIFY(!schedule.spanUntil(schedule.beginMs() - 1, m_now));
    }

    void empty_hasNoSpan()
    {
        const RecordingSchedule schedule(RecordingPattern::Empty, 1, m_started);
        QCOMPARE(schedule.endMs(m_now), schedule.beginMs());
        QVERIFY(schedule.spans(0, m_now, m_now, 10).isEmpty());
        QVERIFY(!schedule.spanFrom(0, m_now) && !schedule.spanUntil(m_now, m_now));
    }

    void spans_meetNeitherBeginNorNow()
    {
        for (const auto pattern :
             {RecordingPattern::Continuous, RecordingPattern::HourlyGap, RecordingPattern::OnAlarm}) {
            const RecordingSchedule schedule(pattern, 3, m_started);
            QVERIFY(!schedule.spanFrom(m_now, m_now));
            QVERIFY(!schedule.spanUntil(schedule.beginMs() - 1, m_now));
            const auto all = schedule.spans(0, m_now + Day, m_now, 20'000);
            QVERIFY(all.constFirst().beginMs >= schedule.beginMs());
            QVERIFY(all.constLast().endMs <= m_now);
            for (qsizetype i = 1; i < all.size(); ++i)
                QVERIFY(all.at(i).beginMs > all.at(i - 1).endMs);
        }
    }
};

QTEST_GUILESS_MAIN(TestRecordingSchedule)
#include "tst_recordingschedule.moc"
