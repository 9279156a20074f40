// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"

#include "core/connectionmanager_p.h"
#include "core/events/eventmodel_p.h"
#include "core/session/onvif/onvifconnector.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/eventcausemodel.h>
#include <contract/core/eventmanager.h>
#include <contract/core/eventspreferences.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>
#include <contract/core/server.h>

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

/*! The whole way of an event: from the console of the demo server to the live list. */
class TestLiveEvents : public QObject
{
    Q_OBJECT

private:
    bool logIn(const QString &user = u"admin"_s, int recorder = 1)
    {
        QSignalSpy causes(&m_model->d_func()->causes, &EventCauses::told);
        m_manager->connectToServer(user, u"orrin-"_s + user,
                                   CorvaneUrl(u"127.0.0.1:%1"_s.arg(m_server.port(recorder)), 8601), false);
        return QTest::qWaitFor([&] { return causes.size() > 0; }, 12000) && subscribed(recorder);
    }

    /*! Waits until events arrive: reports logins until one is in the list. */
    bool subscribed(int recorder = 1)
    {
        const int before = find(u"Login"_s).size();
        return QTest::qWaitFor(
            [&] {
                return m_server.command(u"event login %1"_s.arg(recorder)) == "ok"_L1 &&
                       QTest::qWaitFor([&] { return find(u"Login"_s).size() > before; }, 300);
            },
            15000);
    }

    QList<QModelIndex> find(const QString &cause) const
    {
        QList<QModelIndex> found;
        for (int row = 0; row < m_model->rowCount(); ++row) {
            const QModelIndex index = m_model->index(row);
            if (index.data(EventModel::CauseStringRole).toString() == cause)
                found.append(index);
        }
        return found;
    }

    DemoServerProcess m_server;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
    ConnectionManager *m_manager = nullptr;
    QSharedPointer<EventModel> m_model;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->path());
        QVERIFY2(m_server.start({u"--command"_s, u"event rate 0"_s}), qPrintable(m_server.errorText()));
        OrrinSDK::initInstance(u"orrin-tests"_s, u"events"_s, nullptr, u"test.log"_s);
        m_manager = OrrinSDK::instance()->connectionManager();
        m_model = OrrinSDK::instance()->eventManager()->liveEvents();
        m_tester = std::make_unique<QAbstractItemModelTester>(
            m_model.data(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        OnvifTimings timings;
        timings.reconnectFirst = std::chrono::milliseconds(100);
        timings.reconnectLongest = std::chrono::milliseconds(500);
        timings.subscriptionLifetime = std::chrono::seconds(5);
        m_manager->d_func()->setConnector(std::make_unique<OnvifConnector>(timings));
    }

    void cleanup()
    {
        m_tester.reset();
        m_model.reset();
        QSignalSpy disconnected(m_manager, &ConnectionManager::allServersDisconnected);
        m_manager->disconnectFromAll();
        QTRY_COMPARE(disconnected.size(), 1);
        OrrinSDK::shutdown();
        m_server.stop();
    }

    void event_appears_withItsCameraAndTime()
    {
        QVERIFY(logIn());
        const QDateTime before = QDateTime::currentDateTimeUtc().addMSecs(-5);
        QCOMPARE(m_server.command(u"event motion 1 2"_s), u"ok"_s);
        QTRY_COMPARE(find(u"Motion"_s).size(), 1);
        const QModelIndex row = find(u"Motion"_s).first();
        QCOMPARE(row.row(), 0);
        QCOMPARE(row.data(EventModel::ServerNameRole).toString(), u"North"_s);
        QCOMPARE(row.data(EventModel::SourceNameRole).toString(), u"North Road"_s);
        QCOMPARE(row.data(EventModel::ChannelIdRole).toInt(), 2);
        QVERIFY(row.data(EventModel::CauseColorRole).value<QColor>().isValid());
        const QDateTime time = row.data(EventModel::TimeRole).toDateTime();
        QVERIFY(time >= before && time <= QDateTime::currentDateTimeUtc());
        QCOMPARE(row.data(EventModel::TimeStringRole).toString(),
                 time.toTimeZone(QTimeZone("Europe/Berlin")).toString(u"yyyy-MM-dd HH:mm:ss"_s));
        QTRY_COMPARE(find(u"Motion ended"_s).size(), 1);
        QCOMPARE(find(u"Motion ended"_s).first().data(EventModel::StateStringRole).toString(), u"ended"_s);
    }

    void event_hasWords_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("cause");
        QTest::addColumn<QString>("source");
        QTest::newRow("loss") << u"event video-loss North 1"_s << u"Video loss"_s << u"Main Entrance"_s;
        QTest::newRow("door") << u"event door 1"_s << u"Door open"_s << u"Door 1"_s;
        QTest::newRow("disk") << u"event disk 1"_s << u"Storage failure"_s << u"Disk 1"_s;
        QTest::newRow("login") << u"event login 1"_s << u"Login"_s << u"admin"_s;
    }

    void event_hasWords()
    {
        QFETCH(QString, command);
        QFETCH(QString, cause);
        QVERIFY(logIn());
        const int before = find(cause).size();
        QCOMPARE(m_server.command(command), u"ok"_s);
        QTRY_COMPARE(find(cause).size(), before + 1);
        QTEST(find(cause).first().data(EventModel::SourceNameRole).toString(), "source");
    }

    void causes_areThoseThatTheDeviceTells()
    {
        QVERIFY(logIn());
        EventCauseModel causes(m_manager, 1, false);
        QAbstractItemModelTester tester(&causes);
        causes.requestCauses();
        QTRY_COMPARE(causes.rowCount(), 5);
        QStringList texts;
        for (int row = 0; row < causes.rowCount(); ++row)
            texts.append(causes.index(row).data().toString());
        QCOMPARE(texts, (QStringList{u"Motion"_s, u"Video loss"_s, u"Door open"_s, u"Storage failure"_s,
                                     u"Login"_s}));
    }

    void causes_arrive_whenTheyWereAskedForBeforeTheLogin()
    {
        EventCauseModel causes(m_manager, 1, true);
        QAbstractItemModelTester tester(&causes);
        causes.requestCauses();
        QVERIFY(logIn());
        QTRY_COMPARE(causes.rowCount(), 6);
        QCOMPARE(causes.index(0).data().toString(), QString());
    }

    void subscription_isRenewed_beforeItEnds()
    {
        QVERIFY(logIn());
        // The subscription lasts five seconds.
        QElapsedTimer elapsed;
        elapsed.start();
        QTRY_VERIFY_WITH_TIMEOUT(elapsed.hasExpired(7000), 10000);
        QCOMPARE(m_server.command(u"event motion 1 3"_s), u"ok"_s);
        QTRY_COMPARE_WITH_TIMEOUT(find(u"Motion"_s).size(), 1, 1500);
        QCOMPARE(m_server.command(u"event subscriptions 1"_s), u"ok standing=1 made=1"_s);
    }

    void subscription_comesBack_afterTheRecorderWasAway()
    {
        QVERIFY(logIn());
        QSignalSpy offline(m_manager, &ConnectionManager::serverOffline);
        QSignalSpy reconnected(m_manager, &ConnectionManager::serverReconnected);
        QVERIFY(m_server.command(u"listener stop 1"_s).startsWith(u"ok"));
        QTRY_COMPARE_WITH_TIMEOUT(offline.size(), 1, 10000);
        QVERIFY(m_server.command(u"listener start 1"_s).startsWith(u"ok"));
        QTRY_COMPARE_WITH_TIMEOUT(reconnected.size(), 1, 10000);
        QVERIFY(subscribed());
    }

    void subscription_comesBack_whenTheRecorderForgotIt()
    {
        QVERIFY(logIn());
        QSignalSpy offline(m_manager, &ConnectionManager::serverOffline);
        QCOMPARE(m_server.command(u"event forget 1"_s), u"ok standing=1 made=1"_s);
        QTRY_COMPARE(m_server.command(u"event subscriptions 1"_s), u"ok standing=1 made=2"_s);
        QVERIFY(subscribed());
        QVERIFY(offline.isEmpty());
    }

    void subscription_ends_withTheSession()
    {
        QVERIFY(logIn());
        QCOMPARE(m_server.command(u"event subscriptions"_s), u"ok standing=1 made=1"_s);
        m_manager->disconnectFromAll();
        QTRY_COMPARE(m_server.command(u"event subscriptions"_s), u"ok standing=0 made=1"_s);
    }

    void events_areForThoseWhoMaySeeTheCamera()
    {
        QVERIFY(logIn(u"guest"_s, 2));
        QVERIFY(m_server.command(u"event motion 2 5"_s).startsWith(u"ok"));
        QVERIFY(m_server.command(u"event motion 2 1"_s).startsWith(u"ok"));
        QTRY_COMPARE(find(u"Motion"_s).size(), 1);
        QCOMPARE(find(u"Motion"_s).first().data(EventModel::SourceNameRole).toString(), u"Reception"_s);
    }

    void list_staysBounded_withManyEvents()
    {
        const auto group = QSharedPointer<EventsPreferences>::create();
        OrrinSDK::instance()->preferences()->addPreferenceGroup(group);
        group->item(EventsPreferences::MAXIMUM_ROWS, {})->setValue(300);
        QVERIFY(logIn());
        int largest = 0;
        qint64 rows = 0;
        QSignalSpy inserted(m_model.data(), &QAbstractItemModel::rowsInserted);
        QSignalSpy reset(m_model.data(), &QAbstractItemModel::modelReset);
        connect(m_model.data(), &QAbstractItemModel::rowsInserted, this,
                [&](const QModelIndex &, int first, int last) {
                    rows += last - first + 1;
                    largest = std::max(largest, m_model->rowCount());
                });
        QVERIFY(m_server.command(u"event rate 200 1"_s).startsWith(u"ok"));
        QElapsedTimer elapsed;
        elapsed.start();
        QTRY_VERIFY_WITH_TIMEOUT(elapsed.hasExpired(5000), 8000);
        QVERIFY(m_server.command(u"event rate 0 1"_s).startsWith(u"ok"));
        QCOMPARE(largest, 300);
        QVERIFY(reset.isEmpty());
        // Nothing is lost, and events come in batches.
        QVERIFY2(rows >= 850 && rows <= 1200, QByteArray::number(rows).constData());
        QVERIFY2(inserted.size() <= 40, QByteArray::number(inserted.size()).constData());
    }
};

QTEST_GUILESS_MAIN(TestLiveEvents)
#include "tst_liveevents.moc"
