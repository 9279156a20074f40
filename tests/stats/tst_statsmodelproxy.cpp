// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakestatsmodel.h"

#include <support/statsmodelproxy.h>
#include <support/statsmodelproxy_p.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTest>

#include <limits>

using namespace orrin;
using namespace Qt::StringLiterals;
using Limits = std::numeric_limits<double>;

class tst_StatsModelProxy : public QObject
{
    Q_OBJECT

private:
    // A model with one row, whose statistic is \a value.
    static double plotted(const QString &heading, const QVariant &value)
    {
        FakeStatsModel model;
        model.headings = QStringList{heading};
        StatsModelProxy proxy;
        proxy.setSourceModel(&model);
        proxy.updateRangeInfo(heading);
        model.setRows({{model.from, 0, value}});
        const QVariant result = proxy.index(0, 2).data();
        return result.typeId() == QMetaType::Double ? result.toDouble() : -99;
    }

private Q_SLOTS:
    void withoutModel_everythingHasItsDefault()
    {
        StatsModelProxy proxy;
        QVERIFY(!proxy.from().isValid());
        QVERIFY(!proxy.to().isValid());
        QCOMPARE(proxy.lowerBound(), 0.0);
        QCOMPARE(proxy.upperBound(), 100.0);
        QCOMPARE(proxy.statDescription(), QString());
        QCOMPARE(proxy.statUnits(), QString());
        QCOMPARE(int(proxy.status()), 0);
        QCOMPARE(proxy.statsType(), StatsType(0));
        QCOMPARE(proxy.columnForHeading(u"CPU%"_s), 2);
        QCOMPARE(proxy.getMinValue(), 0.0);
        QCOMPARE(proxy.getMaxValue(), 100.0);
        QSignalSpy description(&proxy, &StatsModelProxy::statDescriptionChanged);
        proxy.updateRangeInfo(u"CPU%"_s);
        QCOMPARE(description.count(), 0);
        QCOMPARE(proxy.statDescription(), QString());
        QVERIFY(!proxy.data(QModelIndex()).isValid());
    }

    void otherModel_countsAsNone()
    {
        QStringListModel list({u"a"_s});
        StatsModelProxy proxy;
        QSignalSpy status(&proxy, &StatsModelProxy::statusChanged);
        proxy.setSourceModel(&list);
        QCOMPARE(status.count(), 1);
        QCOMPARE(int(status[0][0].value<StatsModel::Status>()), 0);
        QCOMPARE(proxy.rowCount(), 1);
        QCOMPARE(proxy.index(0, 0).data().toString(), u"a"_s);
        proxy.updateRangeInfo(u"CPU%"_s);
        QCOMPARE(proxy.statUnits(), QString());
        QVERIFY(!proxy.from().isValid());
    }

    void model_isReadThrough()
    {
        FakeStatsModel model;
        model.headings = QStringList{u"Status"_s, u"CPU%"_s};
        model.status = StatsModel::Ready;
        StatsModelProxy proxy;
        QSignalSpy status(&proxy, &StatsModelProxy::statusChanged);
        proxy.setSourceModel(&model);
        QCOMPARE(status.count(), 1);
        QCOMPARE(status[0][0].value<StatsModel::Status>(), StatsModel::Ready);
        QCOMPARE(proxy.from(), model.from);
        QCOMPARE(proxy.to(), model.to);
        QCOMPARE(proxy.status(), StatsModel::Ready);
        QCOMPARE(proxy.columnForHeading(u"CPU%"_s), 3);
        model.setStatus(StatsModel::Failed);
        QCOMPARE(status.count(), 2);
        QCOMPARE(proxy.status(), StatsModel::Failed);
        QCOMPARE(StatsModelProxy::getStatusDescription(StatsModel::Failed), StatsModel::getStatusDescription(StatsModel::Failed));
    }

    void model_isForgotten_whenItGoes()
    {
        StatsModelProxy proxy;
        {
            FakeStatsModel model;
            proxy.setSourceModel(&model);
            QVERIFY(proxy.from().isValid());
        }
        QVERIFY(!proxy.from().isValid());
        proxy.updateRangeInfo(u"CPU%"_s);
        QCOMPARE(int(proxy.status()), 0);
    }

    void earlierModel_staysConnected()
    {
        FakeStatsModel first;
        FakeStatsModel second;
        StatsModelProxy proxy;
        proxy.setSourceModel(&first);
        proxy.setSourceModel(&second);
        QSignalSpy status(&proxy, &StatsModelProxy::statusChanged);
        first.setStatus(StatsModel::Ready);
        QCOMPARE(status.count(), 1);
        QCOMPARE(proxy.status(), StatsModel::Idle);
    }

    void updateRangeInfo_tellsItsSteps_inOrder()
    {
        FakeStatsModel model;
        model.range = {0, 40};
        StatsModelProxy proxy;
        proxy.setSourceModel(&model);
        QStringList order;
        connect(&proxy, &StatsModelProxy::statDescriptionChanged, this, [&](const QString &text) { order.append(u"description "_s + text); });
        connect(&proxy, &StatsModelProxy::statUnitsChanged, this, [&](const QString &text) { order.append(u"units "_s + text); });
        connect(&proxy, &StatsModelProxy::lowerBoundChanged, this, [&](double bound) { order.append(u"lower %1"_s.arg(bound)); });
        connect(&proxy, &StatsModelProxy::upperBoundChanged, this, [&](double bound) { order.append(u"upper %1"_s.arg(bound)); });
        proxy.updateRangeInfo(u"ntp_ms"_s);
        QCOMPARE(order, QStringList({u"description Clock offset to the time server"_s, u"units ms"_s, u"lower -20"_s, u"upper 60"_s}));
        QCOMPARE(model.asked, QStringList{u"ntp_ms"_s});
        QCOMPARE(model.askedFrom, model.from);
        QCOMPARE(model.askedTo, model.to);
        QCOMPARE(proxy.getMinValue(), 0.0);
        QCOMPARE(proxy.getMaxValue(), 40.0);
        QCOMPARE(proxy.lowerBound(), -20.0);
        QCOMPARE(proxy.upperBound(), 60.0);
        // The texts are told again without comparing, bounds that stay are not.
        order.clear();
        proxy.updateRangeInfo(u"ntp_ms"_s);
        QCOMPARE(order.size(), 2);
    }

    void axis_beginsAtZero_whereTheHeadingSaysSo()
    {
        FakeStatsModel model;
        model.range = {30, 40};
        StatsModelProxy proxy;
        proxy.setSourceModel(&model);
        proxy.updateRangeInfo(u"CPU%"_s);
        QCOMPARE(proxy.lowerBound(), 0.0);
        QCOMPARE(proxy.upperBound(), 45.0);
    }

    void span_recomputesTheAxis()
    {
        FakeStatsModel model;
        StatsModelProxy proxy;
        proxy.setSourceModel(&model);
        proxy.updateRangeInfo(u"ntp_ms"_s);
        QSignalSpy from(&proxy, &StatsModelProxy::fromChanged);
        QSignalSpy to(&proxy, &StatsModelProxy::toChanged);
        QSignalSpy upper(&proxy, &StatsModelProxy::upperBoundChanged);
        model.range = {0, 80};
        model.asked.clear();
        model.setSpanOfTest(model.from.addDays(-1), model.to.addDays(-1));
        QCOMPARE(from.count(), 1);
        QCOMPARE(from[0][0].toDateTime(), model.from);
        QCOMPARE(to.count(), 1);
        QCOMPARE(to[0][0].toDateTime(), model.to);
        QCOMPARE(model.asked, QStringList({u"ntp_ms"_s, u"ntp_ms"_s}));
        QCOMPARE(upper.count(), 1);
        QCOMPARE(upper[0][0].toDouble(), 120.0);
    }

    void padding_followsItsRule_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<double>("lower");
        QTest::addColumn<double>("upper");
        QTest::newRow("equal") << 5.0 << 5.0 << 2.5 << 7.5;
        QTest::newRow("equal within the tolerance") << 5.0 << 5.0 + 1e-17 << 2.5 << 7.5;
        QTest::newRow("nothing but zero") << 0.0 << 0.0 << 0.0 << 0.0;
        QTest::newRow("equal, negative") << -4.0 << -4.0 << -2.0 << -6.0;
        QTest::newRow("narrow") << 10.0 << 10.05 << 9.95 << 10.1;
        QTest::newRow("below a half") << 1.0 << 1.3 << 0.75 << 1.55;
        QTest::newRow("below one") << 1.0 << 1.7 << 0.5 << 2.2;
        QTest::newRow("a tenth") << 0.0 << 0.1 << -0.25 << 0.35;
        QTest::newRow("a half") << 0.0 << 0.5 << -0.5 << 1.0;
        QTest::newRow("one") << 0.0 << 1.0 << -0.5 << 1.5;
        QTest::newRow("wide") << 0.0 << 40.0 << -20.0 << 60.0;
        QTest::newRow("up to zero") << -5.0 << 0.0 << -7.5 << 2.5;
        QTest::newRow("no sample") << Limits::max() << Limits::min() << -50.0 << 150.0;
        QTest::newRow("no minimum") << Limits::max() << 300.0 << 150.0 << 350.0;
        QTest::newRow("no minimum, low maximum") << Limits::max() << 40.0 << -20.0 << 60.0;
        QTest::newRow("no maximum") << 7.0 << Limits::min() << -43.0 << 157.0;
    }

    void padding_followsItsRule()
    {
        QFETCH(const double, minimum);
        QFETCH(const double, maximum);
        QFETCH(const double, lower);
        QFETCH(const double, upper);
        const auto [low, high] = StatsModelProxyPrivate::padded(minimum, maximum);
        QVERIFY2(std::abs(low - lower) < 1e-9, qPrintable(QString::number(low)));
        QVERIFY2(std::abs(high - upper) < 1e-9, qPrintable(QString::number(high)));
        FakeStatsModel model;
        model.range = {minimum, maximum};
        StatsModelProxy proxy;
        proxy.setSourceModel(&model);
        proxy.updateRangeInfo(u"no such heading"_s);
        QCOMPARE(proxy.lowerBound(), low);
        QCOMPARE(proxy.upperBound(), high);
    }

    void states_becomeNumbers_data()
    {
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<double>("number");
        const auto row = [](const char *heading, const QVariant &value, double number) {
            QTest::addRow("%s %s %s", heading, value.typeName(), qPrintable(value.toString())) << QString::fromLatin1(heading) << value << number;
        };
        const QList<std::pair<int, double>> system = {{1, 1.5}, {2, 2.5}, {3, 3.5}, {6, 4.5}, {7, 5.5}, {8, 6.5}, {9, 7.5},
                                                      {0, 8.5}, {4, 8.5}, {5, 8.5}, {10, 8.5}, {-1, 8.5}};
        for (const auto &[code, number] : system)
            row("Status", code, number);
        row("Status", u"3"_s, 3.5);
        row("Status", u"three"_s, 8.5);
        row("Status", QVariant(), 8.5);
        const QList<std::pair<char, double>> disk = {{'G', 0.5}, {'L', 1.5}, {'R', 2.5}, {'M', 3.5}, {'X', 5.5}, {'E', 6.5},
                                                     {'D', 7.5}, {'F', 8.5}, {'N', 9.5}, {'g', 10.5}, {'?', 10.5}, {'0', 10.5}};
        for (const auto &[letter, number] : disk)
            row("Disk_1", QString(QLatin1Char(letter)), number);
        row("Disk_1", u"Good"_s, 0.5);
        row("Disk_1", QString(), 10.5);
        row("Disk_1", QVariant(), 10.5);
        const QList<std::pair<int, double>> camera = {
            {0, 0.5},   {1, 1.5},   {4, 2.5},   {20, 3.5},  {22, 5.5},  {27, 6.5},  {28, 7.5},  {29, 8.5},  {30, 9.5},  {31, 10.5},
            {32, 11.5}, {33, 12.5}, {34, 13.5}, {35, 14.5}, {36, 15.5}, {37, 16.5}, {2, 17.5},  {21, 17.5}, {26, 17.5}, {38, 17.5},
            {-1, 17.5}};
        for (const auto &[code, number] : camera)
            row("C3", code, number);
        row("C3", u"x"_s, 0.5); // no number is 0
        row("CPU%", 12.5, 12.5);
        row("CPU%", u"-1e3"_s, -1000);
        row("CPU%", u"much"_s, 0);
        row("CPU%", QVariant(), 0);
    }

    void states_becomeNumbers()
    {
        QFETCH(const QString, heading);
        QFETCH(const QVariant, value);
        QTEST(plotted(heading, value), "number");
    }

    void firstColumns_stayAsTheyAre()
    {
        FakeStatsModel model;
        model.headings = QStringList{u"Disk_1"_s};
        StatsModelProxy proxy;
        proxy.setSourceModel(&model);
        proxy.updateRangeInfo(u"Disk_1"_s);
        model.setRows({{model.from, u"G"_s, u"G"_s}});
        QCOMPARE(proxy.index(0, 0).data(), QVariant(model.from));
        QCOMPARE(proxy.index(0, 1).data(), QVariant(u"G"_s));
        QCOMPARE(proxy.index(0, 2).data(), QVariant(0.5));
        // Whatever the role: what the source does not have is no letter.
        QCOMPARE(proxy.index(0, 2).data(Qt::ToolTipRole), QVariant(10.5));
        QVERIFY(!proxy.index(0, 0).data(Qt::ToolTipRole).isValid());
    }

    void rows_areAllShown()
    {
        FakeStatsModel model;
        model.headings = QStringList{u"CPU%"_s};
        StatsModelProxy proxy;
        QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
        proxy.setSourceModel(&model);
        QList<QVariantList> rows;
        for (int i = 0; i < 100; ++i)
            rows.append({model.from.addSecs(i), i, i});
        model.setRows(rows);
        proxy.setFilterFixedString(u"nothing has this"_s);
        QCOMPARE(proxy.rowCount(), 100);
        QCOMPARE(proxy.index(99, 2).data().toDouble(), 99.0);
    }
};

QTEST_GUILESS_MAIN(tst_StatsModelProxy)
#include "tst_statsmodelproxy.moc"
