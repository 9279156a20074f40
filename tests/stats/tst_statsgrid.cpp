// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/statsgrid.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace orrin;

class tst_StatsGrid : public QObject
{
    Q_OBJECT

private:
    static void put(StatsGrid &grid, qint64 timeMs, double low, double high, qsizetype column = 0)
    {
        const qint64 begin = grid.beginOf(timeMs);
        const qsizetype place = grid.lowerBound(begin);
        if (!grid.hasSlotAt(place, begin))
            grid.insertSlots(place, {begin});
        grid.add(place, column, timeMs, low, high);
    }

private Q_SLOTS:
    void slots_beginAtMultiplesOfTheStep()
    {
        StatsGrid grid;
        grid.reset({StatsType::FLOAT}, 10000, false);
        QCOMPARE(grid.beginOf(0), 0);
        QCOMPARE(grid.beginOf(9999), 0);
        QCOMPARE(grid.beginOf(10000), 10000);
        QCOMPARE(grid.beginOf(-1), -10000);
        QCOMPARE(grid.beginOf(-10000), -10000);
    }

    void extremes_survive()
    {
        StatsGrid grid;
        grid.reset({StatsType::FLOAT}, 60000, true);
        for (int second = 0; second < 60; ++second)
            put(grid, second * 1000, second == 17 ? 99 : second == 41 ? -5 : 10, second == 17 ? 99 : second == 41 ? -5 : 10);
        QCOMPARE(grid.slotCount(), 1);
        QCOMPARE(grid.shown(0, 0, false), -5.0);
        QCOMPARE(grid.shown(0, 0, true), 99.0);
        // A pair of extremes, and the same page again.
        put(grid, 0, -7, 120);
        put(grid, 0, -7, 120);
        QCOMPARE(grid.shown(0, 0, false), -7.0);
        QCOMPARE(grid.shown(0, 0, true), 120.0);
    }

    void newestSample_counts_withoutExtremes()
    {
        StatsGrid grid;
        grid.reset({StatsType::FLOAT}, 10000, false);
        put(grid, 3000, 1, 1);
        put(grid, 8000, 2, 2);
        QCOMPARE(grid.slotCount(), 1);
        QCOMPARE(grid.shown(0, 0, false), 2.0);
        QCOMPARE(grid.shown(0, 0, true), 2.0);
        QCOMPARE(grid.slot(0).timeMs, 8000);
    }

    void samples_mayComeInAnyOrder()
    {
        StatsGrid grid;
        grid.reset({StatsType::FLOAT}, 1000, false);
        for (const int second : {5, 1, 9, 3, 7, 0})
            put(grid, second * 1000, second, second);
        QCOMPARE(grid.slotCount(), 6);
        for (qsizetype i = 1; i < grid.slotCount(); ++i)
            QVERIFY(grid.slot(i - 1).beginMs < grid.slot(i).beginMs);
        QCOMPARE(grid.shown(0, 0, false), 0.0);
        QCOMPARE(grid.shown(5, 0, false), 9.0);
    }

    void worstDiskLetter_isTheHighest()
    {
        StatsGrid grid;
        grid.reset({StatsType::ENUM_DISK_STATUS}, 10000, true);
        for (const char16_t letter : u"GXGR")
            if (letter)
                put(grid, 0, letter, letter);
        QCOMPARE(grid.shown(0, 0, false), double(u'G'));
        QCOMPARE(grid.shown(0, 0, true), double(u'X'));
        put(grid, 1, u'?', u'?');
        QCOMPARE(grid.shown(0, 0, true), double(u'?'));
        QCOMPARE(statsRank(StatsType::ENUM_DISK_STATUS, 1e30), 9.0);
        QCOMPARE(statsRank(StatsType::ENUM_DISK_STATUS, -1), 9.0);
        QCOMPARE(statsRank(StatsType::FLOAT, -1), -1.0);
    }

    void noNumbers_areNoSamples()
    {
        StatsGrid grid;
        grid.reset({StatsType::FLOAT}, 10000, true);
        const double infinite = std::numeric_limits<double>::infinity();
        put(grid, 0, std::nan(""), std::nan(""));
        put(grid, 0, infinite, infinite);
        put(grid, 0, -infinite, 3);
        QVERIFY(std::isnan(grid.shown(0, 0, false)));
        put(grid, 0, 2, 3);
        QCOMPARE(grid.shown(0, 0, true), 3.0);
    }

    void missingSample_showsTheOneBefore_forAWhile()
    {
        StatsGrid grid;
        grid.reset({StatsType::FLOAT, StatsType::FLOAT}, 1000, true);
        put(grid, 0, 4, 6);
        for (int second = 1; second < 100; ++second)
            put(grid, second * 1000, 1, 1, 1);
        QCOMPARE(grid.shown(1, 0, false), 6.0);
        QCOMPARE(grid.shown(63, 0, true), 6.0);
        QVERIFY(std::isnan(grid.shown(64, 0, true)));
        QVERIFY(std::isnan(grid.shown(0, 1, true)));
    }

    void columnsAndFront_comeAndGo()
    {
        StatsGrid grid;
        grid.reset({StatsType::FLOAT}, 1000, true);
        put(grid, 0, 1, 1);
        put(grid, 1000, 2, 2);
        grid.addColumns({StatsType::FLOAT, StatsType::INTEGER});
        QCOMPARE(grid.columnCount(), 3);
        QVERIFY(std::isnan(grid.shown(1, 2, true)));
        grid.add(1, 2, 1000, 9, 9);
        QCOMPARE(grid.shown(1, 2, true), 9.0);
        grid.removeFront(1);
        QCOMPARE(grid.slotCount(), 1);
        QCOMPARE(grid.slot(0).beginMs, 1000);
        grid.removeFront(7);
        QCOMPARE(grid.slotCount(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_StatsGrid)
#include "tst_statsgrid.moc"
