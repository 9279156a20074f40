// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/headingfacts.h"
#include "core/stats/streammeter.h"

#include <QSignalSpy>
#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;

class tst_StreamMeter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rates_areTakenOverTheTime()
    {
        StreamMeter meter;
        QSignalSpy sampled(&meter, &StreamMeter::sampled);
        const auto share = meter.countStream({1, 7});
        share->pictures = 150;
        share->bytes = 250000;
        share->packetsLost = 5;
        share->reconnects = 2;
        share->delayMs = 80;
        meter.sample(100000, 10000);
        QCOMPARE(sampled.count(), 1);
        share->pictures += 75;
        meter.sample(105000, 5000);
        meter.sample(115000, 10000);
        QCOMPARE(meter.channels(1), QList<int>{7});
        QVERIFY(meter.channels(2).isEmpty());
        const StatsPage page = meter.samples(1, 0, 1000000, 500);
        QCOMPARE(page.times, QList<qint64>({100500, 105500, 115500}));
        QCOMPARE(page.series.size(), 5);
        const QStringList headings = measuredHeadings(7);
        const QList<QList<double>> expected = {{15, 15, 0}, {200, 0, 0}, {80, 80, 0}, {0.5, 0, 0}, {2, 0, 0}};
        for (qsizetype i = 0; i < 5; ++i) {
            QCOMPARE(page.series[i].heading, headings[i]);
            QCOMPARE(page.series[i].low, expected[i]);
        }
        QCOMPARE(meter.samples(1, 100001, 105000, 0).times, QList<qint64>{105000});
    }

    void nothingIsRecorded_withoutAStream()
    {
        StreamMeter meter;
        QSignalSpy sampled(&meter, &StreamMeter::sampled);
        auto share = meter.countStream({1, 7});
        const auto second = meter.countStream({1, 7});
        share.reset();
        meter.sample(1000, 1000);
        QCOMPARE(sampled.count(), 1);
        const_cast<std::shared_ptr<StreamCounters> &>(second).reset();
        meter.sample(2000, 1000);
        QCOMPARE(sampled.count(), 1);
        QCOMPARE(meter.samples(1, 0, 10000, 0).times.size(), 1);
    }

    void cameras_shareTheirTimes()
    {
        StreamMeter meter;
        const auto first = meter.countStream({1, 2});
        meter.sample(1000, 1000);
        const auto second = meter.countStream({1, 1});
        const auto other = meter.countStream({9, 1});
        meter.sample(2000, 1000);
        const StatsPage page = meter.samples(1, 0, 10000, 0);
        QCOMPARE(page.times.size(), 2);
        QCOMPARE(page.series.size(), 10);
        QCOMPARE(page.series[0].heading, u"View_C1_fps"_s);
        QVERIFY(std::isnan(page.series[0].low[0]));
        QCOMPARE(page.series[0].low[1], 0.0);
        QCOMPARE(page.series[5].low[0], 0.0);
    }

    void clockThatIsSetBack_beginsItsTimeAnew()
    {
        StreamMeter meter;
        const auto share = meter.countStream({1, 7});
        for (const qint64 now : {1000, 2000, 3000, 4000})
            meter.sample(now, 1000);
        meter.sample(2500, 1000);
        meter.sample(2500, 0);
        QCOMPARE(meter.samples(1, 0, 10000, 0).times, QList<qint64>({1000, 2000, 2500}));
    }

    void memory_isBounded()
    {
        StreamMeter meter;
        const auto share = meter.countStream({1, 1});
        for (qint64 i = 0; i < StreamMeter::MaximumSamples + 100; ++i)
            meter.sample(i * 10000, 10000);
        QCOMPARE(meter.samples(1, 0, std::numeric_limits<qint64>::max(), 0).times.size(), StreamMeter::MaximumSamples);
        const qint64 end = StreamMeter::MaximumSamples * 10000LL;
        for (int id = 2; id < 1000; ++id) {
            const auto brief = meter.countStream({1, id});
            meter.sample(end + id * 2000, 10000);
        }
        meter.sample(end + 2002000, 10000);
        QVERIFY(meter.channels(1).size() <= StreamMeter::MaximumCameras);
        QVERIFY(meter.channels(1).contains(1));
        QVERIFY(meter.channels(1).contains(999));
        QVERIFY(!meter.channels(1).contains(2));
        // A day later nobody remembers those that were quiet.
        meter.sample(end * 3, 10000);
        QCOMPARE(meter.channels(1), QList<int>{1});
    }
};

QTEST_GUILESS_MAIN(tst_StreamMeter)
#include "tst_streammeter.moc"
