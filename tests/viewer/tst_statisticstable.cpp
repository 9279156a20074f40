// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/statisticssource.h"
#include "statistics/statisticstable.h"

#include "core/stats/statsmodel_p.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Start = 1767315600000;

void fill(StatsModel &model)
{
    model.d_func()->setHeadings({u"CPU%"_s, u"Disk_1"_s, u"C3"_s, u"Status"_s, u"=1+1,\"x\""_s}, 10000);
    model.setSpan(QDateTime::fromMSecsSinceEpoch(Start), QDateTime::fromMSecsSinceEpoch(Start + 60000));
    StatsPage page;
    page.times = {Start, Start + 10000, Start + 30000};
    page.series = {{u"CPU%"_s, {12.34, -5, 1000000}, {}},
                   {u"Disk_1"_s, {'G', 'X', '?'}, {}},
                   {u"C3"_s, {1, 22, 99}, {}},
                   {u"Status"_s, {3, 6, 7}, {}},
                   {u"=1+1,\"x\""_s, {1, 2, 3}, {}}};
    model.d_func()->applyPage(page);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_StatisticsTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void values_areWritten_asPeopleReadThem()
    {
        StatsModel model;
        fill(model);
        const StatisticsTable load(&model, u"CPU%"_s);
        QCOMPARE(load.title(), u"Processor load (%)"_s);
        QCOMPARE(load.rowCount(), 3);
        QCOMPARE(load.plainText(0), u"12.3"_s);
        QCOMPARE(load.plainText(2), u"1000000.0"_s);
        QCOMPARE(load.text(0), QLocale().toString(12.34, 'f', 1) + u" %"_s);
        QCOMPARE(StatisticsTable(&model, u"Disk_1"_s).text(1), u"Failed"_s);
        QCOMPARE(StatisticsTable(&model, u"Disk_1"_s).text(2), u"Unknown"_s);
        QCOMPARE(StatisticsTable(&model, u"C3"_s).text(1), u"Video Loss"_s);
        QCOMPARE(StatisticsTable(&model, u"Status"_s).text(1), u"Fault"_s);
        QCOMPARE(StatisticsTable(&model, u"Status"_s).title(), u"Recorder status"_s);
    }

    void nearestRow_isTheOneOfTheTime()
    {
        StatsModel model;
        QCOMPARE(StatisticsTable(&model, u"CPU%"_s).nearestRow(Start), -1);
        fill(model);
        const StatisticsTable table(&model, u"CPU%"_s);
        const QList<std::pair<qint64, int>> expected = {{-1000, 0}, {0, 0}, {4000, 0}, {6000, 1}, {10000, 1}, {19000, 1}, {21000, 2}, {99999999, 2}};
        for (const auto &[time, row] : expected)
            QCOMPARE(table.nearestRow(Start + time), row);
    }

    void csv_holdsWhatIsShown()
    {
        StatsModel model;
        fill(model);
        const QByteArray csv = StatisticsTable::csv(&model, {u"CPU%"_s, u"C3"_s, u"=1+1,\"x\""_s});
        QCOMPARE(csv, QByteArray("Time,Processor load (%),Camera 3: status,\"'=1+1,\"\"x\"\"\"\r\n"
                                 "2026-01-02T01:00:00.000Z,12.3,Recording,1.00\r\n"
                                 "2026-01-02T01:00:10.000Z,-5.0,Video Loss,2.00\r\n"
                                 "2026-01-02T01:00:30.000Z,1000000.0,Unknown,3.00\r\n"));
        StatsModel empty;
        QCOMPARE(StatisticsTable::csv(&empty, {}), QByteArray("Time\r\n"));
    }

    void files_areWrittenWhole_orNotAtAll()
    {
        QTemporaryDir folder;
        StatisticsSource source;
        auto *model = qobject_cast<StatsModel *>(source.samples());
        fill(*model);
        QVERIFY(source.isReady());
        const QString table = folder.filePath(u"a b.csv"_s);
        QCOMPARE(source.saveTable(QUrl::fromLocalFile(table), {u"C3"_s}), QString());
        QVERIFY(contentOf(table).startsWith("Time,Camera 3: status\r\n"));
        QImage image(20, 10, QImage::Format_RGB32);
        image.fill(Qt::red);
        const QString picture = folder.filePath(u"a.png"_s);
        QCOMPARE(source.savePicture(QUrl::fromLocalFile(picture), image), QString());
        QCOMPARE(QImage(picture).pixelColor(3, 3), QColor(Qt::red));
        QVERIFY(!source.savePicture(QUrl::fromLocalFile(picture), QVariant()).isEmpty());
        QCOMPARE(QImage(picture).size(), QSize(20, 10));
        for (const QUrl &bad : {QUrl(u"http://example.org/x.csv"_s), QUrl(), QUrl::fromLocalFile(folder.filePath(u"none/x.csv"_s))}) {
            QVERIFY(!source.saveTable(bad, {u"C3"_s}).isEmpty());
            QVERIFY(!source.savePicture(bad, image).isEmpty());
        }
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({u"a b.csv"_s, u"a.png"_s}));
    }

    void source_readsNearTheTime()
    {
        StatisticsSource source;
        QVERIFY(source.nearest(u"CPU%"_s, Start).isEmpty());
        fill(*qobject_cast<StatsModel *>(source.samples()));
        const QVariantMap found = source.nearest(u"C3"_s, Start + 12000);
        QCOMPARE(found.value(u"text"_s).toString(), u"Video Loss"_s);
        QCOMPARE(found.value(u"time"_s).toDouble(), double(Start + 10000));
        QVERIFY(source.nearest(u"C3"_s, qQNaN()).isEmpty());
        QVERIFY(source.nearest(u"C3"_s, qInf()).isEmpty());
    }

    void spans_areSet()
    {
        StatisticsSource source;
        QVERIFY(!source.setSpan({}, QDateTime::currentDateTimeUtc()));
        const QDateTime now = QDateTime::currentDateTimeUtc();
        QVERIFY(!source.setSpan(now, now));
        QVERIFY(source.setSpan(now.addSecs(-60), now));
        QCOMPARE(source.to(), now);
        QVERIFY(!source.isRunning());
        source.setRunningSpan(60000);
        QVERIFY(source.isRunning());
        QCOMPARE(source.from().msecsTo(source.to()), 60000);
    }
};

QTEST_GUILESS_MAIN(tst_StatisticsTable)
#include "tst_statisticstable.moc"
