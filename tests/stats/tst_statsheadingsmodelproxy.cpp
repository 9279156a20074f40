// SPDX-License-Identifier: GPL-3.0-or-later
#include <support/statsheadingsmodelproxy.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;

class tst_StatsHeadingsModelProxy : public QObject
{
    Q_OBJECT

private:
    static QStringList shown(const QAbstractItemModel &model)
    {
        QStringList list;
        for (int row = 0; row < model.rowCount(); ++row)
            list.append(model.index(row, 0).data().toString());
        return list;
    }

    static QStringList sorted(const QStringList &headings)
    {
        QStringListModel source(headings);
        StatsHeadingsModelProxy proxy;
        proxy.setSourceModel(&source);
        proxy.sort(0);
        return shown(proxy);
    }

private Q_SLOTS:
    void headings_areInTheOrderOfTheirKinds()
    {
        // One line a weight, each in its own alphabetical order.
        const QStringList expected = {
            u"Status"_s,
            u"UsedMB"_s,
            u"FreeMB"_s,
            u"CPU%"_s, u"cpu0%"_s, u"cpu1%"_s, u"ntp_ms"_s, u"stratum"_s,
            u"eth0_drop"_s, u"eth0_err"_s, u"eth0_rx"_s, u"eth0_tx"_s,
            u"Disk_1"_s, u"Temp_1"_s, u"Use%_1"_s, u"WriteRate_1"_s,
            u"C10"_s, u"C3"_s, u"C3ij"_s, u"C3rj"_s, u"C3rx"_s, u"C3rxrjij"_s,
            u"C3t1b"_s, u"C3t1d"_s, u"C3t1r"_s,
            u"12V/V"_s, u"board/C"_s, u"CFAN"_s, u"psu/W"_s, u"PSU1"_s,
            u"Cx"_s, u"status"_s, u"View_C3_fps"_s,
        };
        QStringList sources = expected;
        std::reverse(sources.begin(), sources.end());
        QCOMPARE(sorted(sources), expected);
        QCOMPARE(sorted(expected), expected);
    }

    void kinds_areToldApart_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        const auto row = [](const char *first, const char *second) {
            QTest::addRow("%s before %s", first, second) << QString::fromLatin1(first) << QString::fromLatin1(second);
        };
        row("Status", "UsedMB");
        row("UsedMB", "FreeMB");
        row("FreeMB", "CPU%");
        row("Disk_1", "C3");
        row("C3", "C3t1b");
        row("Status", "C1");
        // A network interface may be called like a processor.
        row("cpuX%", "cpu_tx");
        row("cpu_tx", "Disk_tx_1");
        // A disk's name that ends like an interface is one: the network comes first in the table.
        row("Disk_1_rx", "Disk_1");
        row("C-3", "C3t1b");      // a number all the same
        row("C+3rx", "C3t1b");
        row("C3t1b", "C3tb");     // no track number
        row("C3t1d", "Ct");       // too short
        row("C3brt1r", "zFAN");   // letters of the kinds are left out
        row("zPSU", "a");
        row("a/C", "C3t1x");
        row("a/V", "a/v");
        row("a/W", "fan");
        row("C3", "c3");
        row("ntp_ms", "NTP_ms");
        row("stratum", "Stratum");
        row("eth0_tx", "eth0_TX");
        row("Use%_x", "use%_x");
        row("WriteRate_x", "Writerate_x");
        row("Temp_x", "temp_x");
    }

    void kinds_areToldApart()
    {
        QFETCH(const QString, first);
        QFETCH(const QString, second);
        QCOMPARE(sorted({first, second}), QStringList({first, second}));
        QCOMPARE(sorted({second, first}), QStringList({first, second}));
    }

    void odd_headings_areSortedLast()
    {
        QCOMPARE(sorted({u""_s, u"C"_s, u"Ct1"_s, u"C3t1"_s, u"zFAN"_s}), QStringList({u"zFAN"_s, u""_s, u"C"_s, u"C3t1"_s, u"Ct1"_s}));
    }

    void equalWeights_areComparedWithoutCase()
    {
        QCOMPARE(sorted({u"b"_s, u"C_"_s, u"A"_s}), QStringList({u"A"_s, u"b"_s, u"C_"_s}));
    }

    void matchString_keepsWhatContainsIt()
    {
        QStringListModel source({u"CPU%"_s, u"cpu0%"_s, u"Disk_1"_s, u"eth0_tx"_s});
        StatsHeadingsModelProxy proxy;
        QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
        proxy.setSourceModel(&source);
        QSignalSpy changed(&proxy, &StatsHeadingsModelProxy::matchStringChanged);
        QCOMPARE(proxy.matchString(), QString());
        QCOMPARE(shown(proxy), source.stringList());
        proxy.setMatchString(u"cpu"_s);
        QCOMPARE(shown(proxy), QStringList({u"CPU%"_s, u"cpu0%"_s}));
        proxy.setMatchString(u"_T"_s);
        QCOMPARE(shown(proxy), QStringList({u"eth0_tx"_s}));
        proxy.setMatchString(u".*"_s); // no expression
        QCOMPARE(proxy.rowCount(), 0);
        proxy.setMatchString(u"%"_s);
        QCOMPARE(proxy.rowCount(), 2);
        proxy.setProperty("matchString", QString());
        QCOMPARE(proxy.rowCount(), 4);
        source.setStringList({u"x"_s});
        QCOMPARE(shown(proxy), QStringList({u"x"_s}));
        QCOMPARE(changed.count(), 0);
    }

    void filter_looksAtTheFirstColumn_ofItsParent()
    {
        QStandardItemModel source(1, 2);
        source.setItem(0, 0, new QStandardItem(u"left"_s));
        source.setItem(0, 1, new QStandardItem(u"right"_s));
        StatsHeadingsModelProxy proxy;
        proxy.setSourceModel(&source);
        proxy.setMatchString(u"right"_s);
        QCOMPARE(proxy.rowCount(), 0);
        proxy.setMatchString(u"LEFT"_s);
        QCOMPARE(proxy.rowCount(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_StatsHeadingsModelProxy)
#include "tst_statsheadingsmodelproxy.moc"
