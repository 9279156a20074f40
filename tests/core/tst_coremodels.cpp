// SPDX-License-Identifier: GPL-3.0-or-later
#include "scriptedconnector.h"
#include "scriptedsite.h"

#include "core/events/eventmodel_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/eventcausemodel.h>
#include <contract/core/eventmanager.h>
#include <contract/core/eventmodel.h>
#include <contract/core/eventspreferences.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/core/serverlistmodel.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

class TestCoreModels : public QObject
{
    Q_OBJECT

private:
    void logIn(const QString &host, const SiteDescription &site)
    {
        m_manager->connectToServer(u"a"_s, u"b"_s, CorvaneUrl(host, 1), false);
        m_connector->lastSession()->logIn(site);
    }

    void append(const QString &cause, quint64 uid)
    {
        EventRecord record;
        record.cause = cause;
        record.serverUid = uid;
        record.serverName = u"North"_s;
        record.sourceName = u"Gate"_s;
        record.time = QDateTime(QDate(2025, 7, 1), QTime(14, 30, 5), QTimeZone("Europe/Berlin"));
        record.causeColor = Qt::red;
        record.channelId = 4;
        OrrinSDK::instance()->eventManager()->liveEvents()->d_func()->append(record);
    }

    ConnectionManager *m_manager = nullptr;
    ScriptedConnector *m_connector = nullptr;

private Q_SLOTS:
    void init()
    {
        OrrinSDK::initInstance(u"orrin-tests"_s, u"tst_coremodels"_s, nullptr, u"test.log"_s);
        m_manager = OrrinSDK::instance()->connectionManager();
        m_connector = ScriptedConnector::install();
    }

    void cleanup() { OrrinSDK::shutdown(); }

    void events_areNewestFirstWithTheirRoles()
    {
        const auto events = OrrinSDK::instance()->eventManager()->liveEvents();
        QAbstractItemModelTester tester(events.data());
        append(u"Motion"_s, 1);
        append(u"Door"_s, 1);
        QCOMPARE(events->rowCount(), 2);
        const QModelIndex newest = events->index(0);
        const auto role = [&](const char *name) { return newest.data(events->roleNames().key(name)); };
        QCOMPARE(role("causeString"), QVariant(u"Door"_s));
        QCOMPARE(role("serverName"), QVariant(u"North"_s));
        QCOMPARE(role("sourceName"), QVariant(u"Gate"_s));
        QCOMPARE(role("timeString"), QVariant(u"2025-07-01 14:30:05"_s));
        QCOMPARE(role("causeColor").value<QColor>(), QColor(Qt::red));
        QCOMPARE(role("time").toDateTime(), QDateTime(QDate(2025, 7, 1), QTime(12, 30, 5), QTimeZone::utc()));
        QCOMPARE(role("serverUid").toULongLong(), 1ull);
        QCOMPARE(role("channelId").toInt(), 4);
    }

    void events_areBoundedByTheOption()
    {
        const auto group = QSharedPointer<EventsPreferences>::create();
        OrrinSDK::instance()->preferences()->addPreferenceGroup(group);
        group->item(EventsPreferences::MAXIMUM_ROWS, {})->setValue(3);
        const auto events = OrrinSDK::instance()->eventManager()->liveEvents();
        QAbstractItemModelTester tester(events.data());
        for (int i = 0; i < 5; ++i)
            append(QString::number(i), 1);
        QCOMPARE(events->rowCount(), 3);
        QCOMPARE(events->index(2).data().toString(), u"2"_s);
        group->item(EventsPreferences::MAXIMUM_ROWS, {})->setValue(u"nonsense"_s);
        QCOMPARE(events->d_func()->maximumRows(), 500);
    }

    void causes_arriveByTheEventLoop_eachOnce()
    {
        logIn(u"north"_s, ScriptedSite(7, 2));
        EventCauseModel causes(m_manager, 2, true);
        EventCauseModel byUid(m_manager, 7ull, false);
        QAbstractItemModelTester tester(&causes);
        append(u"Motion"_s, 7);
        append(u"Motion"_s, 7);
        append(u"Elsewhere"_s, 8);
        causes.requestCauses();
        byUid.requestCauses();
        QCOMPARE(causes.rowCount(), 0);
        QTRY_COMPARE(causes.rowCount(), 2);
        QCOMPARE(causes.index(0).data().toString(), QString());
        QCOMPARE(causes.index(1).data().toString(), u"Motion"_s);
        QCOMPARE(byUid.rowCount(), 1);
        append(u"Door"_s, 7);
        QSignalSpy inserted(&causes, &QAbstractItemModel::rowsInserted);
        causes.requestCauses();
        QTRY_COMPARE(causes.rowCount(), 3);
        QCOMPARE(inserted.size(), 1);
        QVERIFY(causes.roleNames().contains(Qt::DisplayRole));
    }

    void causes_areNone_ofAnUnknownServer()
    {
        EventCauseModel causes(m_manager, 5, true);
        EventCauseModel without(nullptr, 5, true);
        causes.requestCauses();
        without.requestCauses();
        QCoreApplication::processEvents();
        QCOMPARE(causes.rowCount() + without.rowCount(), 0);
    }

    void serverList_growsAndResets()
    {
        ScriptedSite second(12, 2);
        second.group(u"g"_s).name(u"South"_s);
        logIn(u"south"_s, second);
        ServerGroup *group = m_manager->serverGroup(1);
        ServerListModel list(group);
        QAbstractItemModelTester tester(&list);
        QCOMPARE(list.rowCount(), 1);
        QSignalSpy inserted(&list, &QAbstractItemModel::rowsInserted);
        QSignalSpy reset(&list, &QAbstractItemModel::modelReset);
        logIn(u"north"_s, ScriptedSite(11, 1).group(u"g"_s).name(u"North"_s));
        logIn(u"other"_s, ScriptedSite(13, 1).name(u"Other"_s));
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(list.rowCount(), 2);
        QCOMPARE(list.index(0).data().toString(), u"North"_s);
        QCOMPARE(list.index(1).data(list.roleNames().key("uid")).toULongLong(), 12ull);
        m_connector->session(u"south:1"_s)->describe(second.name(u"South 2"_s));
        QCOMPARE(list.index(1).data().toString(), u"South 2"_s);
        m_manager->disconnectFromAll();
        QTRY_COMPARE(list.rowCount(), 0);
        QVERIFY(reset.size() >= 1);
        QCOMPARE(ServerListModel(nullptr).rowCount(), 0);
    }
};

QTEST_GUILESS_MAIN(TestCoreModels)
#include "tst_coremodels.moc"
