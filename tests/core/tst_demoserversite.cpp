// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"

#include "core/connectionmanager_p.h"
#include "core/session/onvif/onvifconnector.h"

#include <contract/core/channel.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

/*! A site that changes while somebody is logged in. */
class TestDemoServerSite : public QObject
{
    Q_OBJECT

private:
    bool logIn(bool asGroup)
    {
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        m_manager->connectToServer(u"admin"_s, u"orrin-admin"_s,
                                   CorvaneUrl(u"127.0.0.1:%1"_s.arg(m_server.port()), 8601), asGroup);
        return QTest::qWaitFor([&] { return complete.size() > 0; }, 12000);
    }

    DemoServerProcess m_server;
    std::unique_ptr<QTemporaryDir> m_folder;
    ConnectionManager *m_manager = nullptr;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->path());
        QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
        OrrinSDK::initInstance(u"orrin-tests"_s, u"site"_s, nullptr, u"test.log"_s);
        m_manager = OrrinSDK::instance()->connectionManager();
    }

    void cleanup()
    {
        QSignalSpy disconnected(m_manager, &ConnectionManager::allServersDisconnected);
        m_manager->disconnectFromAll();
        QTRY_COMPARE(disconnected.size(), 1);
        OrrinSDK::shutdown();
        m_server.stop();
    }

    void camera_comesAndGoes()
    {
        QVERIFY(logIn(false));
        Server *north = m_manager->server(1, 1);
        const QPointer<Channel> first = north->channelById(1);
        QSignalSpy updated(north, &Server::facilitiesUpdated);
        QCOMPARE(m_server.command(u"camera add North Back Door"_s), u"ok 7"_s);
        QTRY_VERIFY(north->channelById(7));
        const QPointer<Channel> added = north->channelById(7);
        QCOMPARE(added->name(), u"Back Door"_s);
        QVERIFY(updated.size() >= 1);
        QCOMPARE(m_server.command(u"camera remove North 7"_s), u"ok"_s);
        QTRY_VERIFY(!north->channelById(7));
        QVERIFY(!added || !added->isValid());
        QCOMPARE(north->channelById(1), first.data());
    }

    void server_leavesTheGroup_andComesBack()
    {
        QVERIFY(logIn(true));
        QTRY_VERIFY(m_manager->server(1, 2));
        const QPointer<Server> north = m_manager->server(1, 1);
        QCOMPARE(m_server.command(u"server leave South"_s), u"ok"_s);
        QTRY_COMPARE(m_manager->servers().size(), std::size_t(1));
        QCOMPARE(m_manager->server(1, 1), north.data());
        QVERIFY(north->isOnline());
        QCOMPARE(m_server.command(u"server join South"_s), u"ok"_s);
        QTRY_VERIFY_WITH_TIMEOUT(m_manager->server(1, 2), 12000);
        QTRY_VERIFY_WITH_TIMEOUT(m_manager->server(1, 2)->isOnline(), 12000);
        QCOMPARE(m_manager->server(1, 2)->name(), u"South"_s);
    }
};

QTEST_GUILESS_MAIN(TestDemoServerSite)
#include "tst_demoserversite.moc"
