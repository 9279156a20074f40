// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/siteextensionreader.h"
#include "core/session/onvif/statisticsreader.h"

#include <QJsonArray>
#include <QTest>

#include <cmath>

using namespace orrin;
using namespace Qt::StringLiterals;

class tst_StatisticsReader : public QObject
{
    Q_OBJECT

private:
    static QJsonObject parse(const QByteArray &text)
    {
        const auto object = SiteExtensionReader::parse(text);
        return object.value_or(QJsonObject());
    }
    static StatsPage page(const QByteArray &text) { return StatisticsReader::readPage(parse(text)); }

private Q_SLOTS:
    void contents_areRead()
    {
        const StatsContents contents =
            StatisticsReader::readContents(parse(R"({"headings":["Status","CPU%","Status","",7],"intervalSeconds":30,"oldest":5000,"more":1})"));
        QCOMPARE(contents.headings, QStringList({u"Status"_s, u"CPU%"_s}));
        QCOMPARE(contents.intervalMs, 30000);
        QCOMPARE(contents.oldestMs, 5000);
    }

    void contents_takeDefaults_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<qint64>("interval");
        QTest::newRow("nothing") << QByteArray("{}") << qint64(10000);
        QTest::newRow("wrong kinds") << QByteArray(R"({"headings":7,"intervalSeconds":"x","oldest":[]})") << qint64(10000);
        QTest::newRow("zero") << QByteArray(R"({"intervalSeconds":0})") << qint64(1000);
        QTest::newRow("negative") << QByteArray(R"({"intervalSeconds":-5,"oldest":-5})") << qint64(1000);
        QTest::newRow("huge") << QByteArray(R"({"intervalSeconds":1e300,"oldest":1e300})") << StatisticsReader::LongestIntervalMs;
    }

    void contents_takeDefaults()
    {
        QFETCH(const QByteArray, body);
        const StatsContents contents = StatisticsReader::readContents(parse(body));
        QTEST(contents.intervalMs, "interval");
        QCOMPARE(contents.oldestMs, 0);
        QVERIFY(contents.headings.isEmpty());
    }

    void contents_areBounded()
    {
        QJsonArray headings;
        for (int i = 0; i < 5000; ++i)
            headings.append(QString::number(i) + QString(100, u'x'));
        const StatsContents contents = StatisticsReader::readContents({{u"headings"_s, headings}});
        QCOMPARE(contents.headings.size(), StatisticsReader::HeadingLimit);
        QCOMPARE(contents.headings.first().size(), StatisticsReader::HeadingLength);
    }

    void page_isRead()
    {
        const StatsPage read = page(R"({"times":[1000,2000,3000],"next":4000,"series":[
            {"heading":"CPU%","low":[1,2.5,3],"high":[4,5,6]},{"heading":"Disk_1","low":["G","X","G"]},{"heading":"C1","low":[1,null,22]}]})");
        QCOMPARE(read.times, QList<qint64>({1000, 2000, 3000}));
        QCOMPARE(read.next, std::optional<qint64>(4000));
        QCOMPARE(read.series.size(), 3);
        QCOMPARE(read.series[0].low, QList<double>({1, 2.5, 3}));
        QCOMPARE(read.series[0].high, QList<double>({4, 5, 6}));
        QCOMPARE(read.series[1].low, QList<double>({double('G'), double('X'), double('G')}));
        QVERIFY(read.series[1].high.isEmpty());
        QVERIFY(std::isnan(read.series[2].low[1]));
        QCOMPARE(read.series[2].low[2], 22.0);
    }

    void times_areSorted_withTheirValues()
    {
        const StatsPage read = page(R"({"times":[3000,-1,"x",1000,1e300,2000,2000],"series":[{"heading":"a","low":[3,9,9,1,9,2,4]}]})");
        QCOMPARE(read.times, QList<qint64>({1000, 2000, 2000, 3000}));
        QCOMPARE(read.series[0].low, QList<double>({1, 2, 4, 3}));
        QVERIFY(!read.next);
    }

    void oddPages_areReadWithoutHarm_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("empty") << QByteArray("{}");
        QTest::newRow("wrong kinds") << QByteArray(R"({"times":{},"series":7,"next":"soon"})");
        QTest::newRow("series of the wrong kind") << QByteArray(R"({"times":[1],"series":[7,null,[],{},{"heading":7,"low":[1]}]})");
        QTest::newRow("no times") << QByteArray(R"({"times":[],"series":[{"heading":"","low":[]}]})");
    }

    void oddPages_areReadWithoutHarm()
    {
        QFETCH(const QByteArray, body);
        const StatsPage read = page(body);
        QVERIFY(read.series.isEmpty());
        QVERIFY(!read.next);
    }

    void missingAndEmptyValues_areNothing()
    {
        const StatsPage read = page(R"({"times":[1,2,3,4],"series":[{"heading":"a","low":[1],"high":[]},{"heading":"b","low":["",true,{},[1]]},
            {"heading":"a","low":[7]}]})");
        QCOMPARE(read.series.size(), 2);
        QCOMPARE(read.series[0].low.size(), 4);
        QCOMPARE(read.series[0].low[0], 1.0);
        QVERIFY(std::isnan(read.series[0].low[3]));
        QCOMPARE(read.series[0].high.size(), 4);
        for (const double value : read.series[1].low)
            QVERIFY(std::isnan(value));
    }

    void page_isBounded()
    {
        QJsonArray times;
        for (int i = 0; i < 20000; ++i)
            times.append(i * 1000);
        QJsonArray series;
        for (int i = 0; i < 3000; ++i)
            series.append(QJsonObject{{u"heading"_s, QString::number(i)}, {u"low"_s, QJsonArray{1}}});
        const StatsPage read = StatisticsReader::readPage({{u"times"_s, times}, {u"series"_s, series}});
        QCOMPARE(read.times.size(), StatisticsReader::TimeLimit);
        QCOMPARE(read.series.size() * read.times.size(), StatisticsReader::ValueLimit);
    }
};

QTEST_GUILESS_MAIN(tst_StatisticsReader)
#include "tst_statisticsreader.moc"
