// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/replaycursor.h"

#include <QTest>

using namespace orrin::demo;

class TestReplayCursor : public QObject
{
    Q_OBJECT

private:
    static constexpr int Rate = 15;
    const qint64 m_now = DeviceClock().nowMs();
    const RecordingSchedule m_schedule{RecordingPattern::HourlyGap, 1, m_now};
    // An hour that is recorded as a whole but for its gap.
    const qint64 m_hour = (m_now / 3'600'000 - 5) * 3'600'000;

    QList<ReplayCursor::Position> all(const ReplayCursor::Request &request, qsizetype limit = 10'000) const
    {
        ReplayCursor cursor(m_schedule, DeviceClock(), Rate);
        cursor.start(request);
        QList<ReplayCursor::Position> positions;
        while (positions.size() < limit) {
            const auto position = cursor.next();
            if (!position)
                break;
            positions.append(*position);
        }
        return positions;
    }

private Q_SLOTS:
    void forward_beginsWithTheKeyFrameBefore_andEndsWithTheRange()
    {
        const qint64 from = m_hour + 601'500;
        const auto frames = all({from, from + 5000});
        QCOMPARE(frames.constFirst().timeMs, m_hour + 600'000);
        QCOMPARE(frames.constFirst().index, 0);
        QVERIFY(frames.constFirst().discontinuity);
        QVERIFY(frames.constLast().timeMs < from + 5000 && frames.constLast().timeMs >= from + 4930);
        for (qsizetype i = 1; i < frames.size(); ++i) {
            QVERIFY(!frames.at(i).discontinuity);
            QVERIFY(frames.at(i).timeMs > frames.at(i - 1).timeMs);
        }
        QCOMPARE(frames.size(), 98);
    }

    void forward_leapsOverTheGap()
    {
        const qint64 gap = m_hour + 20 * 60'000;
        const auto frames = all({gap - 2000, gap + 3 * 60'000 + 2000});
        QCOMPARE(frames.size(), 60);
        QVERIFY(frames.at(29).timeMs < gap);
        QCOMPARE(frames.at(30).timeMs, gap + 3 * 60'000);
        QVERIFY(frames.at(30).discontinuity && frames.at(30).index == 0);
    }

    void forward_ofAMomentInTheGap_givesWhatFollows()
    {
        const qint64 gap = m_hour + 20 * 60'000;
        const auto frames = all({gap + 1000, gap + 3 * 60'000 + 1000});
        QCOMPARE(frames.size(), 15);
        QCOMPARE(frames.constFirst().timeMs, gap + 3 * 60'000);
        QVERIFY(all({gap + 1000, gap + 2000}).isEmpty());
    }

    void backward_givesGroupsInFallingOrder_eachForward()
    {
        const qint64 end = m_hour + 603'000;
        const auto frames = all({end - 4000, end, true});
        QCOMPARE(frames.constFirst().timeMs, m_hour + 602'000);
        QVERIFY(frames.at(15).timeMs == end);
        QCOMPARE(frames.at(16).timeMs, m_hour + 600'000);
        QVERIFY(frames.at(16).discontinuity && frames.at(16).index == 0);
        QCOMPARE(frames.at(46).timeMs, m_hour + 598'000);
        QCOMPARE(frames.size(), 76);
    }

    void backward_leapsOverTheGap()
    {
        const qint64 gap = m_hour + 20 * 60'000;
        const auto frames = all({gap - 3000, gap + 3 * 60'000 + 1000, true});
        QCOMPARE(frames.constFirst().timeMs, gap + 3 * 60'000);
        QCOMPARE(frames.at(16).timeMs, gap - 2000);
        QCOMPARE(frames.at(45).index, 29);
        QCOMPARE(frames.at(46).timeMs, gap - 4000);
        QCOMPARE(frames.size(), 76);
    }

    void keyFramesOnly_keepTheInterval_inBothDirections()
    {
        const qint64 from = m_hour + 600'000;
        auto frames = all({from, from + 20'000, false, true, 0});
        QCOMPARE(frames.size(), 10);
        QCOMPARE(frames.at(1).timeMs - frames.at(0).timeMs, 2000);
        frames = all({from, from + 20'000, false, true, 5000});
        QCOMPARE(frames.size(), 4);
        QCOMPARE(frames.at(1).timeMs - frames.at(0).timeMs, 6000);
        frames = all({from, from + 20'000, true, true, 4000});
        QCOMPARE(frames.constFirst().timeMs, from + 20'000);
        QCOMPARE(frames.at(1).timeMs, from + 16'000);
        for (const auto &frame : frames)
            QCOMPARE(frame.index, 0);
    }

    void neverMore_thanWasRecorded()
    {
        ReplayCursor cursor(m_schedule, DeviceClock(), Rate);
        cursor.start({m_now + 60'000, m_now + 70'000});
        QVERIFY(!cursor.hasFrames());
        QVERIFY(!cursor.next());
        const qint64 begin = m_schedule.beginMs();
        const auto first = all({begin - 10'000, begin + 1000, true});
        QCOMPARE(first.constFirst().timeMs, begin);
        QCOMPARE(first.size(), 16);
        for (const auto &frame : all({m_now - 10'000, m_now + 10'000}))
            QVERIFY(frame.timeMs <= DeviceClock().nowMs());
    }

    void range_ofOneMoment_givesItsGroup()
    {
        const qint64 moment = m_hour + 601'500;
        const auto frames = all({moment, moment});
        QCOMPARE(frames.constFirst().timeMs, m_hour + 600'000);
        QVERIFY(frames.constLast().timeMs <= moment && frames.constLast().timeMs > moment - 70);
    }
};

QTEST_GUILESS_MAIN(TestReplayCursor)
#include "tst_replaycursor.moc"
