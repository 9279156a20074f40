// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/statsmodel_p.h"
#include "core/stats/streammeter.h"
#include "demoserverprocess.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/core/spabstractinputcontrol.h>
#include <contract/core/statsmodel.h>
#include <contract/util/corvaneurl.h>
#include <video/qmlvideoprovider.h>

#include <QApplication>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;

/*! Statistics of real recorders: told by the demo server, and measured of its streams. */
class tst_DemoServerStatistics : public QObject
{
    Q_OBJECT

private:
    static constexpr qint64 Hour = 3600000;

    static Server *login(const test::DemoServerProcess &demo, const QString &user)
    {
        ConnectionManager *manager = OrrinSDK::instance()->connectionManager();
        QSignalSpy complete(manager, &ConnectionManager::initialConnectionComplete);
        manager->connectToServer(user, u"orrin-"_s + user, CorvaneUrl(u"127.0.0.1:%1"_s.arg(demo.port()), 443), false);
        const bool isThere = complete.count() > 0 || complete.wait(15000);
        return isThere && !manager->servers().empty() ? manager->servers().front() : nullptr;
    }

    static double valueOf(const StatsModel &model, int row, const QString &heading)
    {
        return model.index(row, model.columnForHeading(heading)).data().toDouble();
    }

private Q_SLOTS:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void init() { OrrinSDK::initInstance(u"Orrinworks"_s, u"orrin-test"_s, nullptr, u"orrin-test.log"_s); }

    void cleanup() { OrrinSDK::shutdown(); }

    void hour_isRead_andMovesOn()
    {
        test::DemoServerProcess demo;
        QVERIFY2(demo.start(), qPrintable(demo.errorText()));
        const Server *server = login(demo, u"operator"_s);
        QVERIFY(server);
        StatsModel model;
        QSignalSpy status(&model, &StatsModel::statusChanged);
        model.setServer(server->group()->id(), server->id());
        model.setRunningSpan(Hour);
        QCOMPARE(model.getStatus(), StatsModel::Loading);
        QTRY_COMPARE_WITH_TIMEOUT(model.getStatus(), StatsModel::Ready, 10000);
        QTRY_COMPARE_GE_WITH_TIMEOUT(model.rowCount(), 355, 10000);
        QVERIFY(model.rowCount() <= 362);
        QVERIFY(model.columnForHeading(u"CPU%"_s) > 2);
        for (int row = 0; row < model.rowCount(); ++row) {
            const double load = valueOf(model, row, u"CPU%"_s);
            QVERIFY(load > 0 && load <= 100);
        }
        QCOMPARE(model.index(0, model.columnForHeading(u"Disk_1"_s)).data().toString().size(), 1);
        // The newest sample is fresh, and a fresher one follows without a reset.
        const qint64 newest = model.index(model.rowCount() - 1, 1).data().toLongLong();
        QVERIFY(std::abs(newest - QDateTime::currentMSecsSinceEpoch()) < 15000);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QTRY_VERIFY_WITH_TIMEOUT(!inserted.isEmpty(), 25000);
        QVERIFY(model.index(model.rowCount() - 1, 1).data().toLongLong() > newest);
        QCOMPARE(reset.count(), 0);
        QCOMPARE(status.count(), 2);
    }

    void year_isReadInPages()
    {
        test::DemoServerProcess demo;
        QVERIFY2(demo.start(), qPrintable(demo.errorText()));
        const Server *server = login(demo, u"admin"_s);
        QVERIFY(server);
        StatsModel model;
        model.setServer(server->group()->id(), server->id());
        const QDateTime now = QDateTime::currentDateTimeUtc();
        model.setSpan(now.addDays(-365), now);
        QTRY_COMPARE_WITH_TIMEOUT(model.getStatus(), StatsModel::Ready, 20000);
        QTRY_COMPARE_GE_WITH_TIMEOUT(model.rowCount(), 2 * 365 * 4 - 8, 60000);
        QVERIFY(model.rowCount() <= 2 * (365 * 4 + 2));
        // Peaks of some minutes are seen in slots of six hours.
        const auto [low, high] = model.getMinMaxForHeading(u"CPU%"_s, {}, {});
        QVERIFY2(high > 80, qPrintable(QString::number(high)));
        QVERIFY(low < 30);
        const auto states = model.getMinMaxForHeading(u"C1"_s, {}, {});
        QCOMPARE(states.first, 1.0);
        QVERIFY(states.second >= 22);
    }

    void guest_mayNotRead()
    {
        test::DemoServerProcess demo;
        QVERIFY2(demo.start(), qPrintable(demo.errorText()));
        const Server *server = login(demo, u"guest"_s);
        QVERIFY(server);
        StatsModel model;
        model.setServer(server->group()->id(), server->id());
        model.setRunningSpan(Hour);
        QTRY_COMPARE_WITH_TIMEOUT(model.getStatus(), StatsModel::NotPermitted, 10000);
    }

    void stream_isMeasured_onAPlainDevice()
    {
        test::DemoServerProcess demo;
        QVERIFY2(demo.start({u"--plain-onvif"_s}), qPrintable(demo.errorText()));
        const Server *server = login(demo, u"admin"_s);
        QVERIFY(server);
        StatsModel model;
        model.setServer(server->group()->id(), server->id());
        model.setRunningSpan(Hour);
        QTRY_COMPARE_WITH_TIMEOUT(model.getStatus(), StatsModel::Empty, 10000);
        auto stream = QmlVideoProvider::instance().createStreamProcessor(unsigned(server->group()->id()), unsigned(server->id()), 1, -1);
        QVERIFY(stream);
        stream->inputControl()->live(0);
        const auto counters = StreamMeter::instance().counters({server->uniqueId(), 1});
        QTRY_VERIFY_WITH_TIMEOUT(counters->pictures >= 5, 20000);
        StreamMeter::instance().sample(QDateTime::currentMSecsSinceEpoch() - 5000, 1000);
        const quint64 before = counters->pictures;
        QTRY_VERIFY_WITH_TIMEOUT(counters->pictures >= before + 15, 20000);
        StreamMeter::instance().sample(QDateTime::currentMSecsSinceEpoch(), 1000);
        QTRY_COMPARE(model.getStatus(), StatsModel::Ready);
        QTRY_COMPARE_GE(model.rowCount(), 2);
        const int last = model.rowCount() - 1;
        QVERIFY(valueOf(model, last, u"View_C1_fps"_s) >= 15);
        QVERIFY(valueOf(model, last, u"View_C1_kbps"_s) > 50);
        const double delay = valueOf(model, last, u"View_C1_delay"_s);
        QVERIFY2(delay > -1000 && delay < 5000, qPrintable(QString::number(delay)));
        QCOMPARE(valueOf(model, last, u"View_C1_lost"_s), 0.0);
        // A connection that breaks off is counted once it is begun anew.
        QCOMPARE(counters->reconnects.load(), 0u);
        demo.stop();
        QTRY_COMPARE_WITH_TIMEOUT(counters->reconnects.load(), 1u, 20000);
        stream.reset();
        QTRY_COMPARE(counters->streams.load(), 0);
    }
};

QTEST_MAIN(tst_DemoServerStatistics)
#include "tst_demoserverstatistics.moc"
