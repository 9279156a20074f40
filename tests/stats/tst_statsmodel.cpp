// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/resources/server_p.h"
#include "core/stats/statsmodel_p.h"
#include "core/stats/streammeter.h"
#include "fakestatssession.h"
#include "testsite.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/core/statsmodel.h>

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <QTimeZone>

#include <cmath>
#include <limits>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Start = 1767315600000; // a full hour
constexpr qint64 Minute = 60000;
constexpr qint64 Hour = 60 * Minute;
constexpr qint64 Day = 24 * Hour;
constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Smallest = std::numeric_limits<double>::min();

QDateTime at(qint64 timeMs)
{
    return QDateTime::fromMSecsSinceEpoch(timeMs, QTimeZone::UTC);
}

StatsPage pageOf(const QString &heading, const QList<std::pair<qint64, double>> &samples)
{
    StatsPage page;
    page.series = {{heading, {}, {}}};
    for (const auto &[time, value] : samples) {
        page.times.append(time);
        page.series[0].low.append(value);
    }
    return page;
}

QList<double> column(const StatsModel &model, const QString &heading)
{
    QList<double> values;
    for (int row = 0; row < model.rowCount(); ++row)
        values.append(model.index(row, model.columnForHeading(heading)).data().toDouble());
    return values;
}

QList<qint64> times(const StatsModel &model)
{
    QList<qint64> values;
    for (int row = 0; row < model.rowCount(); ++row)
        values.append(model.index(row, 1).data().toLongLong());
    return values;
}

} // namespace

class tst_StatsModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void model_isIdle_withoutServerAndSpan()
    {
        StatsModel model;
        QCOMPARE(model.getStatus(), StatsModel::Idle);
        QVERIFY(!model.getFrom().isValid());
        QVERIFY(!model.getTo().isValid());
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.columnCount(), 2);
        QCOMPARE(model.columnForHeading(u"CPU%"_s), 2);
        QCOMPARE(model.getMinMaxForHeading(u"CPU%"_s, {}, {}), std::pair(Largest, Smallest));
        QCOMPARE(model.headings()->rowCount(), 0);
        model.refresh();
        model.setServer(4, 7);
        QCOMPARE(model.getStatus(), StatsModel::Idle);
    }

    void statuses_haveTexts()
    {
        QSet<QString> texts;
        for (int status = StatsModel::Idle; status <= StatsModel::Failed; ++status)
            texts.insert(StatsModel::getStatusDescription(StatsModel::Status(status)));
        QCOMPARE(texts.size(), 7);
        QVERIFY(!texts.contains(QString()));
        QCOMPARE(StatsModel::getStatusDescription(StatsModel::Status(99)), u"Unknown"_s);
        QCOMPARE(int(StatsModel::Ready), 2);
    }

    void spans_thatAreNone_areIgnored()
    {
        StatsModel model;
        QSignalSpy from(&model, &StatsModel::fromChanged);
        model.setSpan({}, at(Start));
        model.setSpan(at(Start), {});
        model.setSpan(at(Start), at(Start));
        model.setSpan(at(Start), at(Start - 1));
        model.setRunningSpan(0);
        model.setRunningSpan(-5);
        QCOMPARE(from.count(), 0);
        QVERIFY(!model.getFrom().isValid());
        // As long as a time goes.
        model.setSpan(QDateTime::fromMSecsSinceEpoch(std::numeric_limits<qint64>::min() / 2), at(std::numeric_limits<qint64>::max() / 2));
        QCOMPARE(from.count(), 1);
        model.d_func()->applyPage(pageOf(u"a"_s, {{Start, 1}, {Start + Hour, 2}}));
        QVERIFY(model.rowCount() > 0);
        model.setRunningSpan(std::numeric_limits<qint64>::max());
        QVERIFY(model.isRunning());
    }

    void samples_areRows()
    {
        StatsModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy status(&model, &StatsModel::statusChanged);
        model.setSpan(at(Start), at(Start + Hour));
        QCOMPARE(model.getFrom(), at(Start));
        QCOMPARE(model.getTo(), at(Start + Hour));
        model.d_func()->setHeadings({u"CPU%"_s, u"Disk_1"_s, u"C3"_s, u"CPU%"_s}, 10000);
        model.setSpan(at(Start), at(Start + Hour));
        QCOMPARE(model.columnCount(), 5);
        StatsPage page;
        page.times = {Start, Start + 10000, Start + 20000};
        page.series = {{u"CPU%"_s, {1.5, 2.5, 3.5}, {}}, {u"Disk_1"_s, {'G', 'X', StatsPage::Nothing}, {}}, {u"C3"_s, {1, 22, 1}, {}}};
        model.d_func()->applyPage(page);
        QCOMPARE(status.count(), 1);
        QCOMPARE(model.getStatus(), StatsModel::Ready);
        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(model.index(1, 0).data(), QVariant(at(Start + 10000)));
        QCOMPARE(model.index(1, 1).data(), QVariant(Start + 10000));
        QCOMPARE(model.index(1, 2).data(), QVariant(2.5));
        QCOMPARE(model.index(1, 3).data(), QVariant(u"X"_s));
        QCOMPARE(model.index(2, 3).data(), QVariant(u"X"_s)); // held
        QCOMPARE(model.index(1, 4).data(), QVariant(22));
        QVERIFY(!model.index(1, 2).data(Qt::EditRole).isValid());
        QVERIFY(!model.index(9, 2).data().isValid());
        QCOMPARE(model.headerData(0, Qt::Horizontal), QVariant(u"Time"_s));
        QCOMPARE(model.headerData(3, Qt::Horizontal), QVariant(u"Disk_1"_s));
        QVERIFY(!model.headerData(5, Qt::Horizontal).isValid());
        QVERIFY(!model.headerData(0, Qt::Vertical).isValid());
        QCOMPARE(model.headings()->rowCount(), 3);
        QCOMPARE(model.headings()->index(2, 0).data().toString(), u"C3"_s);
        QCOMPARE(model.columnForHeading(u"C3"_s), 4);
        QCOMPARE(model.columnForHeading(u"none"_s), 2);
        QCOMPARE(model.getMinMaxForHeading(u"CPU%"_s, {}, {}), std::pair(1.5, 3.5));
        QCOMPARE(model.getMinMaxForHeading(u"CPU%"_s, at(Start + 10000), at(Start + 15000)), std::pair(2.5, 2.5));
        QCOMPARE(model.getMinMaxForHeading(u"CPU%"_s, at(Start + Day), {}), std::pair(Largest, Smallest));
        QCOMPARE(model.getMinMaxForHeading(u"C3"_s, QDateTime(), QDateTime()), std::pair(1.0, 22.0));
    }

    void samplesNobodyHas_showNothing()
    {
        StatsModel model;
        model.d_func()->setHeadings({u"CPU%"_s, u"Disk_1"_s, u"C3"_s, u"Status"_s}, 10000);
        model.setSpan(at(Start), at(Start + Hour));
        StatsPage page;
        page.times = {Start};
        model.d_func()->applyPage(page);
        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(model.index(0, 2).data(), QVariant(0.0));
        QCOMPARE(model.index(0, 3).data(), QVariant(u"?"_s));
        QCOMPARE(model.index(0, 4).data(), QVariant(-1));
        QCOMPARE(model.index(0, 5).data(), QVariant(-1));
        QCOMPARE(model.getMinMaxForHeading(u"CPU%"_s, {}, {}), std::pair(Largest, Smallest));
    }

    void oddValues_doNoHarm()
    {
        StatsModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.d_func()->setHeadings({u"CPU%"_s, u"Disk_1"_s, u"Status"_s}, 10000);
        model.setSpan(at(Start), at(Start + Hour));
        const double infinite = std::numeric_limits<double>::infinity();
        StatsPage page;
        page.series = {{u"CPU%"_s, {}, {}}, {u"Disk_1"_s, {}, {}}, {u"Status"_s, {1, 2}, {}}};
        const QList<double> odd = {std::nan(""), infinite, -infinite, 1e308, -1e308, 0xd801, 1e30, -7, 65536, 0};
        for (qsizetype i = 0; i < odd.size(); ++i) {
            page.times.append(Start + i * 10000);
            page.series[0].low.append(odd[i]);
            page.series[1].low.append(odd[i]);
        }
        model.d_func()->applyPage(page);
        QCOMPARE(model.rowCount(), odd.size());
        for (const double value : column(model, u"CPU%"_s))
            QVERIFY(std::isfinite(value));
        for (int row = 0; row < model.rowCount(); ++row)
            QCOMPARE(model.index(row, 3).data().toString().size(), 1);
        QCOMPARE(model.getMinMaxForHeading(u"CPU%"_s, {}, {}), std::pair(-1e308, 1e308));
        QCOMPARE(model.index(1, 4).data(), QVariant(2));
    }

    void samples_mayComeLateTwiceAndOutOfOrder()
    {
        StatsModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        model.setSpan(at(Start), at(Start + Hour));
        model.d_func()->applyPage(pageOf(u"a"_s, {{Start + 50000, 5}, {Start + 10000, 1}, {Start + 30000, 3}}));
        reset.clear();
        QCOMPARE(times(model), QList<qint64>({Start + 10000, Start + 30000, Start + 50000}));
        QCOMPARE(column(model, u"a"_s), QList<double>({1, 3, 5}));
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.d_func()->applyPage(pageOf(u"a"_s, {{Start + 20000, 2}, {Start + 30000, 33}, {Start + 40000, 4}, {Start + 60000, 6}, {Start + 70000, 7}}));
        QCOMPARE(column(model, u"a"_s), QList<double>({1, 2, 33, 4, 5, 6, 7}));
        QCOMPARE(inserted.count(), 3);
        QCOMPARE(changed.count(), 1);
        // Outside the span nothing is kept.
        model.d_func()->applyPage(pageOf(u"a"_s, {{Start - 20000, 2}, {Start + Hour + 1, 2}, {std::numeric_limits<qint64>::max(), 1}}));
        QCOMPARE(model.rowCount(), 7);
        QCOMPARE(reset.count(), 0);
    }

    void loneSample_isALine()
    {
        StatsModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setSpan(at(Start), at(Start + Hour));
        model.d_func()->applyPage(pageOf(u"a"_s, {{Start + 20000, 7}}));
        QCOMPARE(times(model), QList<qint64>({Start + 20000, Start + 25000}));
        QCOMPARE(column(model, u"a"_s), QList<double>({7, 7}));
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.d_func()->applyPage(pageOf(u"a"_s, {{Start + 20000, 8}}));
        QCOMPARE(column(model, u"a"_s), QList<double>({8, 8}));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed[0][1].toModelIndex().row(), 1);
        // The others take the place of the second row, before it or after it.
        model.d_func()->applyPage(pageOf(u"a"_s, {{Start + 10000, 6}, {Start + 30000, 9}}));
        QCOMPARE(times(model), QList<qint64>({Start + 10000, Start + 20000, Start + 30000}));
        QCOMPARE(column(model, u"a"_s), QList<double>({6, 8, 9}));
        model.setRunningSpan(Minute);
        const qint64 end = model.getTo().toMSecsSinceEpoch();
        model.d_func()->applyPage(pageOf(u"a"_s, {{end - 5000, 1}}));
        QCOMPARE(model.rowCount(), 2);
        model.d_func()->advance(end + 10 * Minute);
        QCOMPARE(model.rowCount(), 0);
    }

    void newHeadings_areAddedAtTheEnd()
    {
        StatsModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setSpan(at(Start), at(Start + Hour));
        model.d_func()->applyPage(pageOf(u"a"_s, {{Start, 1}}));
        QSignalSpy columns(&model, &QAbstractItemModel::columnsInserted);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        model.d_func()->applyPage(pageOf(u"b"_s, {{Start, 2}}));
        QCOMPARE(columns.count(), 1);
        QCOMPARE(reset.count(), 0);
        QCOMPARE(model.columnForHeading(u"b"_s), 3);
        QCOMPARE(column(model, u"b"_s), QList<double>({2, 2}));
        QCOMPARE(model.headings()->rowCount(), 2);
    }

    void step_isSuchThatTheSlotsSuffice_data()
    {
        QTest::addColumn<qint64>("span");
        QTest::addColumn<qint64>("interval");
        QTest::addColumn<qint64>("step");
        QTest::newRow("an hour") << Hour << qint64(10000) << qint64(10000);
        QTest::newRow("an hour, fine") << Hour << qint64(1000) << qint64(2000);
        QTest::newRow("a day") << Day << qint64(10000) << Minute;
        QTest::newRow("a week") << 7 * Day << qint64(10000) << 5 * Minute;
        QTest::newRow("a month") << 31 * Day << qint64(10000) << 30 * Minute;
        QTest::newRow("a year") << 365 * Day << qint64(10000) << 6 * Hour;
        QTest::newRow("a century") << 36500 * Day << qint64(10000) << 18 * Day;
        QTest::newRow("rare samples") << Hour << Day << Day;
        QTest::newRow("rarer samples") << Hour << 3 * Day << 3 * Day;
    }

    void step_isSuchThatTheSlotsSuffice()
    {
        QFETCH(const qint64, span);
        QFETCH(const qint64, interval);
        const qint64 step = StatsModelPrivate::stepFor(span, interval, 2048);
        QTEST(step, "step");
        QVERIFY(span / step <= 2048);
    }

    void longSpan_isThinned_andItsPeaksSurvive()
    {
        StatsModel model;
        model.d_func()->setHeadings({u"ntp_ms"_s}, 10000);
        const qint64 samples = 1000000;
        model.setSpan(at(Start), at(Start + samples * 10000));
        for (qint64 begin = 0; begin < samples; begin += 50000) {
            QList<std::pair<qint64, double>> page;
            for (qint64 i = begin; i < begin + 50000; ++i)
                page.append({Start + i * 10000, i == 123456 ? 900.0 : i == 777777 ? -900.0 : std::sin(double(i) / 1000)});
            model.d_func()->applyPage(pageOf(u"ntp_ms"_s, page));
        }
        QVERIFY2(model.rowCount() <= 2 * (StatsModel::DefaultResolution + 2), qPrintable(QString::number(model.rowCount())));
        QVERIFY(model.rowCount() >= 1000);
        const QList<double> values = column(model, u"ntp_ms"_s);
        QCOMPARE(values.count(900.0), 1);
        QCOMPARE(values.count(-900.0), 1);
        QCOMPARE(model.getMinMaxForHeading(u"ntp_ms"_s, {}, {}), std::pair(-900.0, 900.0));
        const QList<qint64> rowTimes = times(model);
        QVERIFY(std::is_sorted(rowTimes.begin(), rowTimes.end()));
        // The peak stands where it was, give or take a slot.
        const qint64 peak = rowTimes.at(values.indexOf(900.0));
        QVERIFY(std::abs(peak - (Start + 123456 * 10000LL)) <= model.d_func()->grid.stepMs());
    }

    void manyHeadings_getFewerSlots()
    {
        StatsModel model;
        QStringList headings;
        for (int i = 0; i < 6000; ++i)
            headings.append(QString::number(i));
        model.d_func()->setHeadings(headings, 10000);
        QCOMPARE(model.columnCount(), 2 + 2048);
        model.setSpan(at(Start), at(Start + 365 * Day));
        const qint64 slotCount = 365 * Day / model.d_func()->grid.stepMs();
        QVERIFY(slotCount * 2 * 2048 <= StatsModelPrivate::MaximumValues);
    }

    void resolution_isBounded()
    {
        StatsModel model;
        QCOMPARE(model.resolution(), 2048);
        model.setResolution(-1);
        QCOMPARE(model.resolution(), 16);
        model.setResolution(1 << 30);
        QCOMPARE(model.resolution(), 16384);
        model.setResolution(100);
        model.setSpan(at(Start), at(Start + Hour));
        QCOMPARE(model.d_func()->grid.stepMs(), Minute);
    }

    void runningSpan_movesOn_withoutReset()
    {
        StatsModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.d_func()->setHeadings({u"a"_s}, 10000);
        model.setRunningSpan(Minute);
        QVERIFY(model.isRunning());
        const qint64 end = model.getTo().toMSecsSinceEpoch();
        QVERIFY(std::abs(end - QDateTime::currentMSecsSinceEpoch()) < 10000);
        QCOMPARE(model.getFrom().msecsTo(model.getTo()), Minute);
        for (qint64 back = 50000; back >= 0; back -= 10000)
            model.d_func()->applyPage(pageOf(u"a"_s, {{end - back, double(back)}}));
        const int rows = model.rowCount();
        QVERIFY(rows >= 6);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QSignalSpy from(&model, &StatsModel::fromChanged);
        QSignalSpy to(&model, &StatsModel::toChanged);
        model.d_func()->advance(end + 30000);
        QCOMPARE(from.count(), 1);
        QCOMPARE(to.count(), 1);
        QCOMPARE(model.getTo(), at(end + 30000));
        QCOMPARE(model.getFrom(), at(end - 30000));
        QCOMPARE(removed.count(), 1);
        model.d_func()->applyPage(pageOf(u"a"_s, {{end + 30000, 1}}));
        QCOMPARE(inserted.count(), 1);
        QVERIFY(model.index(0, 1).data().toLongLong() > end - 30000 - 10000);
        QCOMPARE(reset.count(), 0);
        // Everything is older after a jump forward.
        model.d_func()->advance(end + Day);
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(reset.count(), 0);
        QVERIFY(model.getStatus() != StatsModel::Ready);
        // And in the future after one back.
        model.d_func()->advance(end);
        QCOMPARE(reset.count(), 1);
        QCOMPARE(model.getTo(), at(end));
        // A fixed span stays.
        model.setSpan(at(Start), at(Start + Hour));
        QVERIFY(!model.isRunning());
        model.d_func()->advance(end + Day);
        QCOMPARE(model.getTo(), at(Start + Hour));
    }

    void server_tellsItsStatistics()
    {
        TestSite site;
        Server *server = site.login(describeServer(5, 1));
        QVERIFY(server);
        FakeStatsSession session;
        server->d_func()->session = &session;
        StatsModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setServer(server->group()->id(), server->id());
        model.setSpan(at(Start), at(Start + Day));
        QCOMPARE(model.getStatus(), StatsModel::Loading);
        session.answerContents(StatsContents{{u"CPU%"_s, u"Status"_s}, 10000, 0});
        QCOMPARE(model.getStatus(), StatsModel::Loading);
        QCOMPARE(model.headings()->rowCount(), 2);
        QCOMPARE(session.requests.size(), 1u);
        const StatsQuery query = *session.requests.front().query;
        QCOMPARE(query.fromMs, Start);
        QCOMPARE(query.toMs, Start + Day);
        QCOMPARE(query.stepMs, Minute);
        StatsPage page = pageOf(u"CPU%"_s, {{Start, 10}, {Start + Minute, 20}});
        page.series[0].high = {90, 95};
        page.next = Start + 2 * Minute;
        session.answerPage(page);
        QCOMPARE(model.getStatus(), StatsModel::Ready);
        QCOMPARE(column(model, u"CPU%"_s), QList<double>({10, 90, 20, 95}));
        QCOMPARE(times(model), QList<qint64>({Start, Start + 30000, Start + 60000, Start + 90000}));
        QCOMPARE(session.requests.front().query->fromMs, Start + 2 * Minute);
        session.answerPage(pageOf(u"CPU%"_s, {{Start + 2 * Minute, 30}}));
        QVERIFY(session.requests.empty());
        QCOMPARE(model.rowCount(), 6);
        // Another span begins anew.
        model.setSpan(at(Start - Day), at(Start));
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.getStatus(), StatsModel::Loading);
        session.answerPage(StatsPage());
        QCOMPARE(model.getStatus(), StatsModel::Empty);
        // And so does another server.
        model.setServer(-1, -1);
        QCOMPARE(model.getStatus(), StatsModel::Idle);
        QCOMPARE(model.headings()->rowCount(), 0);
        server->d_func()->session.clear();
    }

    void failures_areShown_data()
    {
        QTest::addColumn<StatsError>("error");
        QTest::addColumn<StatsModel::Status>("status");
        QTest::newRow("none kept") << StatsError::Unsupported << StatsModel::Empty;
        QTest::newRow("not permitted") << StatsError::NotPermitted << StatsModel::NotPermitted;
        QTest::newRow("disconnected") << StatsError::Disconnected << StatsModel::Disconnected;
        QTest::newRow("no answer") << StatsError::Failed << StatsModel::Failed;
    }

    void failures_areShown()
    {
        QFETCH(const StatsError, error);
        TestSite site;
        Server *server = site.login(describeServer(5, 1));
        FakeStatsSession session;
        server->d_func()->session = &session;
        StatsModel model;
        model.setSpan(at(Start), at(Start + Hour));
        model.setServer(server->group()->id(), server->id());
        session.answerContents(error);
        QTEST(model.getStatus(), "status");
        QCOMPARE(model.rowCount(), 0);
        server->d_func()->session.clear();
    }

    void serverThatIsGone_isDisconnected()
    {
        TestSite site;
        Server *server = site.login(describeServer(5, 1));
        StatsModel model;
        const int group = server->group()->id();
        model.setSpan(at(Start), at(Start + Hour));
        model.setServer(group, 99);
        QCOMPARE(model.getStatus(), StatsModel::Disconnected);
        model.setServer(group, 1);
        QTRY_COMPARE(model.getStatus(), StatsModel::Empty); // a scripted recorder keeps none
        site.logOut();
        QTRY_COMPARE(model.getStatus(), StatsModel::Disconnected);
        QVERIFY(site.login(describeServer(5, 1)));
        QTRY_COMPARE(model.getStatus(), StatsModel::Empty);
    }

    void clientsOwnFigures_areShownForAnyServer()
    {
        TestSite site;
        Server *server = site.login(describeServer(77, 1));
        const auto stream = StreamMeter::instance().countStream({77, 3});
        stream->pictures = 150;
        const qint64 now = QDateTime::currentMSecsSinceEpoch();
        StreamMeter::instance().sample(now - 10000, 10000);
        StatsModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setServer(server->group()->id(), 1);
        model.setRunningSpan(Hour);
        QCOMPARE(model.getStatus(), StatsModel::Ready);
        QCOMPARE(model.headings()->rowCount(), 5);
        QCOMPARE(column(model, u"View_C3_fps"_s), QList<double>({15, 15}));
        stream->pictures += 50;
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        StreamMeter::instance().sample(QDateTime::currentMSecsSinceEpoch(), 10000);
        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(reset.count(), 0);
        QCOMPARE(column(model, u"View_C3_fps"_s), QList<double>({15, 5}));
    }
};

QTEST_GUILESS_MAIN(tst_StatsModel)
#include "tst_statsmodel.moc"
