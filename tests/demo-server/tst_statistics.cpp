// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"
#include "httpprobe.h"
#include "site/statistics.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QTest>

using namespace orrin::demo;
using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Now = 1767315600000; // a multiple of an hour
constexpr qint64 Hour = 3600000;
constexpr qint64 Day = 24 * Hour;

const Figure *figureOf(const Statistics &statistics, const QString &heading)
{
    for (const Figure &figure : statistics.figures()) {
        if (figure.heading == heading)
            return &figure;
    }
    return nullptr;
}

QJsonArray valuesOf(const QJsonObject &page, const QString &heading, const QString &member = u"low"_s)
{
    const QJsonArray series = page["series"_L1].toArray();
    for (const QJsonValue &each : series) {
        if (each["heading"_L1].toString() == heading)
            return each[member].toArray();
    }
    return {};
}

} // namespace

class TestStatistics : public QObject
{
    Q_OBJECT

private:
    const Site m_site = Site::builtIn();
    std::unique_ptr<DemoServerProcess> m_server; // for the rows of a table

    Statistics statisticsFor(int recorder, int user) const { return Statistics(m_site.recorders.at(recorder), m_site.users.at(user)); }

private Q_SLOTS:
    void cleanupTestCase() { m_server.reset(); }

    void figures_coverAllKinds()
    {
        const Statistics statistics = statisticsFor(0, 0);
        for (const char *heading : {"Status", "UsedMB", "FreeMB", "CPU%", "cpu3%", "ntp_ms", "stratum", "eth0_tx", "eth1_rx", "eth0_err", "eth0_drop",
                                    "Disk_1", "Use%_4", "Temp_2", "WriteRate_3", "C1", "C1rx", "C1rj", "C1ij", "C1t1b", "C1t1d", "C1t1r", "CPU/C",
                                    "12V/V", "PSU1/W", "FAN1"})
            QVERIFY2(figureOf(statistics, QString::fromLatin1(heading)), heading);
        // A camera that the user may not see has no figures for him; one that is switched off has a state.
        QVERIFY(figureOf(statisticsFor(1, 0), u"C5"_s));
        QVERIFY(!figureOf(statisticsFor(1, 2), u"C5"_s));
        QCOMPARE(figureOf(statisticsFor(1, 0), u"C6"_s)->at(Now), 0.0);
        QVERIFY(!figureOf(statisticsFor(1, 0), u"C6rx"_s));
    }

    void values_areFunctionsOfTime()
    {
        const Statistics first = statisticsFor(0, 0);
        const Statistics again = statisticsFor(0, 0);
        QSet<double> seen;
        for (int i = 0; i < 200; ++i) {
            const qint64 time = Now - i * 7 * Hour;
            for (const Figure &figure : first.figures()) {
                const double value = figure.at(time);
                QVERIFY2(std::isfinite(value), qPrintable(figure.heading));
                QCOMPARE(figureOf(again, figure.heading)->at(time), value);
            }
            seen.insert(figureOf(first, u"CPU%"_s)->at(time));
        }
        QVERIFY(seen.size() > 150);
    }

    void states_change()
    {
        const Statistics statistics = statisticsFor(0, 0);
        const auto statesOf = [&](const QString &heading, qint64 step, int count) {
            QSet<double> states;
            for (int i = 0; i < count; ++i)
                states.insert(figureOf(statistics, heading)->at(Now - i * step));
            return states;
        };
        const QSet<double> system = statesOf(u"Status"_s, 60000, 60 * 24 * 30);
        QVERIFY(system.contains(3));
        QVERIFY(system.size() >= 4);
        QVERIFY(QSet<double>({1, 2, 3, 6, 7, 8, 9}).contains(system));
        const QSet<double> camera = statesOf(u"C1"_s, 60000, 60 * 24 * 30);
        QVERIFY(camera.contains(1));
        QVERIFY(camera.size() >= 4);
        const QSet<double> disk = statesOf(u"Disk_2"_s, Hour, 24 * 366);
        QVERIFY(disk.contains(u'G'));
        QVERIFY(disk.size() >= 3);
    }

    void page_holdsTheSamplesAskedFor()
    {
        const Statistics statistics = statisticsFor(0, 0);
        const QJsonObject page = statistics.page(Now - 60000, Now, 10000, Now);
        const QJsonArray times = page["times"_L1].toArray();
        QCOMPARE(times.size(), 7);
        QCOMPARE(times.first().toInteger(), Now - 60000);
        QCOMPARE(times.last().toInteger(), Now);
        QCOMPARE(valuesOf(page, u"CPU%"_s).size(), 7);
        QVERIFY(valuesOf(page, u"CPU%"_s, u"high"_s).isEmpty());
        QCOMPARE(valuesOf(page, u"Disk_1"_s)[0].toString().size(), 1);
        QVERIFY(!page.contains("next"_L1));
        // Nothing of the future, nothing of what is not kept.
        QVERIFY(statistics.page(Now + 1, Now + Hour, 10000, Now)["times"_L1].toArray().isEmpty());
        const QJsonObject old = statistics.page(0, Now - Statistics::KeptMs + 60000, 10000, Now);
        QVERIFY(old["times"_L1].toArray().first().toInteger() >= Now - Statistics::KeptMs);
    }

    void pages_leadThroughALongSpan()
    {
        const Statistics statistics = statisticsFor(0, 0);
        qint64 from = Now - Day;
        qint64 last = 0;
        int slotCount = 0;
        int pages = 0;
        while (pages < 100) {
            const QJsonObject page = statistics.page(from, Now, 60000, Now);
            const QJsonArray times = page["times"_L1].toArray();
            for (const QJsonValue &time : times) {
                QVERIFY(time.toInteger() > last);
                QCOMPARE(time.toInteger() % 60000, 0);
                last = time.toInteger();
            }
            slotCount += times.size();
            QCOMPARE(valuesOf(page, u"CPU%"_s, u"high"_s).size(), times.size());
            ++pages;
            if (!page.contains("next"_L1))
                break;
            QVERIFY(page["next"_L1].toInteger() > from);
            from = page["next"_L1].toInteger();
        }
        QVERIFY(pages > 1);
        QCOMPARE(slotCount, 1441);
        QCOMPARE(last, Now);
    }

    void peaks_areToldInLongSlots()
    {
        const Statistics statistics = statisticsFor(0, 0);
        const QJsonObject year = statistics.page(Now - 300 * Day, Now, 6 * Hour, Now);
        const QJsonArray low = valuesOf(year, u"CPU%"_s);
        const QJsonArray high = valuesOf(year, u"CPU%"_s, u"high"_s);
        int peaks = 0;
        for (qsizetype i = 0; i < low.size(); ++i) {
            QVERIFY(low[i].toDouble() <= high[i].toDouble());
            peaks += high[i].toDouble() > 80 ? 1 : 0;
        }
        QVERIFY2(peaks > low.size() / 3, qPrintable(QString::number(peaks)));
    }

    void requests_areAnswered()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        HttpProbe probe(u"operator"_s, u"orrin-operator"_s);
        const QJsonObject contents = probe.get(server.url(u"/orrin/v1/statistics/headings"_s)).json();
        QVERIFY(contents["headings"_L1].toArray().contains(u"Status"_s));
        QCOMPARE(contents["intervalSeconds"_L1].toInt(), 10);
        const qint64 now = QDateTime::currentMSecsSinceEpoch();
        QVERIFY(contents["oldest"_L1].toInteger() < now - 364 * Day);
        const auto ask = [&](const QString &query) { return probe.get(server.url(u"/orrin/v1/statistics"_s + query)); };
        const QJsonObject page = ask(u"?from=%1&to=%2&step=10"_s.arg(now - 60000).arg(now)).json();
        QCOMPARE(page["times"_L1].toArray().size(), 6);
        QElapsedTimer timer;
        timer.start();
        const QJsonObject year = ask(u"?from=%1&to=%2&step=21600"_s.arg(now - 365 * Day).arg(now)).json();
        QVERIFY(year["times"_L1].toArray().size() > 50);
        QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
    }

    void requests_areRefused_whenTheyMakeNoSense_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("status");
        QTest::newRow("nothing") << u"statistics"_s << 400;
        QTest::newRow("no numbers") << u"statistics?from=a&to=b"_s << 400;
        QTest::newRow("backwards") << u"statistics?from=2000&to=1000"_s << 400;
        QTest::newRow("no step") << u"statistics?from=1000&to=2000&step=0"_s << 400;
        QTest::newRow("negative step") << u"statistics?from=1000&to=2000&step=-7"_s << 400;
        QTest::newRow("endless") << u"statistics?from=0&to=9223372036854775807"_s << 400;
        QTest::newRow("before time") << u"statistics?from=-9223372036854775808&to=0"_s << 400;
        QTest::newRow("something else") << u"statistics/else"_s << 404;
        QTest::newRow("the whole of time") << u"statistics?from=0&to=253402300799999&step=86400"_s << 200;
    }

    void requests_areRefused_whenTheyMakeNoSense()
    {
        QFETCH(const QString, path);
        if (!m_server)
            m_server = std::make_unique<DemoServerProcess>();
        QVERIFY(m_server->isRunning() || m_server->start());
        const DemoServerProcess &server = *m_server;
        HttpProbe probe(u"admin"_s, u"orrin-admin"_s);
        QTEST(probe.get(server.url(u"/orrin/v1/"_s + path)).status, "status");
        HttpProbe guest(u"guest"_s, u"orrin-guest"_s);
        QCOMPARE(guest.get(server.url(u"/orrin/v1/statistics/headings"_s)).status, 403);
        QCOMPARE(probe.send("POST", server.url(u"/orrin/v1/statistics"_s)).status, 405);
    }
};

QTEST_GUILESS_MAIN(TestStatistics)
#include "tst_statistics.moc"
