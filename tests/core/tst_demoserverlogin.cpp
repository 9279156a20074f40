// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"
#include "fakehttpserver.h"

#include "core/connectionmanager_p.h"
#include "core/session/onvif/onvifconnector.h"
#include "core/session/sessionlookup.h"
#include "util/log/logmanager_p.h"

#include <contract/core/channel.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/currentuser.h>
#include <contract/core/loginerror.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/publickeychecker.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/util/logmanager.h>

#include <QDirIterator>
#include <QElapsedTimer>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

/*! The whole way: root object, connection manager and real sessions against the demo server. */
class TestDemoServerLogin : public QObject
{
    Q_OBJECT

private:
    QString target(int recorder = 1) const { return u"127.0.0.1:%1"_s.arg(m_server.port(recorder)); }

    int connectTo(bool asGroup = false, const QString &user = u"admin"_s,
                  const QString &password = u"orrin-admin"_s)
    {
        return m_manager->connectToServer(user, password, CorvaneUrl(target(), 8601), asGroup);
    }

    /*! Logs in and waits; the code of the error, 0 for success, -1 for no outcome. */
    int logIn(bool asGroup = false, const QString &user = u"admin"_s,
              const QString &password = u"orrin-admin"_s)
    {
        return logInTo(target(), asGroup, user, password);
    }

    int logInTo(const QString &server, bool asGroup = false, const QString &user = u"admin"_s,
                const QString &password = u"orrin-admin"_s)
    {
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        QSignalSpy error(m_manager, &ConnectionManager::loginError);
        m_manager->connectToServer(user, password, CorvaneUrl(server, 8601), asGroup);
        if (!QTest::qWaitFor([&] { return complete.size() + error.size() > 0; }, 12000))
            return -1;
        m_error = error.isEmpty() ? LoginError() : error.first().first().value<LoginError>();
        return m_error.errorId();
    }

    DemoServerProcess m_server;
    std::unique_ptr<QTemporaryDir> m_folder;
    ConnectionManager *m_manager = nullptr;
    LoginError m_error;

private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->path());
        OrrinSDK::initInstance(u"orrin-tests"_s, u"demo"_s, nullptr, u"test.log"_s);
        olog::LogManager::instance()->setLogLevel(olog::maxLogLevel());
        olog::setFileDevicePath(m_folder->path());
        m_manager = OrrinSDK::instance()->connectionManager();
        OnvifTimings timings;
        timings.reconnectFirst = std::chrono::milliseconds(100);
        timings.reconnectLongest = std::chrono::milliseconds(500);
        m_manager->d_func()->setConnector(std::make_unique<OnvifConnector>(timings));
    }

    void cleanup()
    {
        QVERIFY(m_server.command(u"refuse none"_s).startsWith(u"ok"));
        QSignalSpy disconnected(m_manager, &ConnectionManager::allServersDisconnected);
        m_manager->disconnectFromAll();
        QTRY_COMPARE(disconnected.size(), 1);
        // Sessions at the server end with the login.
        QTRY_VERIFY(m_server.command(u"clients"_s).contains(u"sessions=0"));
        olog::setFileDevicePath(QString());
        OrrinSDK::shutdown();
    }

    void group_isOpenedWhole()
    {
        QSignalSpy connected(m_manager, &ConnectionManager::serverConnected);
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        connectTo(true);
        QTRY_COMPARE_WITH_TIMEOUT(complete.size(), 1, 12000);
        QCOMPARE(connected.size(), 2);
        QCOMPARE(m_manager->serverGroups().size(), std::size_t(1));
        QCOMPARE(m_manager->serverGroup(1)->name(), u"Demo Site"_s);
        const Server *north = m_manager->server(1, 1);
        QCOMPARE(north->name(), u"North"_s);
        QCOMPARE(north->timeZone(), QTimeZone("Europe/Berlin"));
        QCOMPARE(m_manager->server(1, 2)->name(), u"South"_s);
        QVERIFY(north->channels(Server::SortBySortId).size() >= 6);
        QCOMPARE(CurrentUser::currentUser(1, 1)->level(), UserLevel::Administrator);
        QVERIFY(m_server.command(u"clients"_s).contains(u"sessions=2"));
    }

    void endpoint_leadsToTheRecorder()
    {
        QCOMPARE(logIn(), 0);
        const quint64 uid = m_manager->serverUidFromGid(ServerGID(1, 1));
        std::optional<MediaEndpointResult> result;
        sessionForServer(uid)->requestMediaEndpoint(
            1, StreamQuality::High, this, [&](const MediaEndpointResult &answer) { result = answer; });
        QTRY_VERIFY(result);
        const auto endpoint = std::get<MediaEndpoint>(*result);
        QCOMPARE(endpoint.url.scheme(), u"rtsps"_s);
        QCOMPARE(endpoint.url.port(), m_server.rtspPort());
        QCOMPARE(endpoint.trustedKey, PublicKeyChecker::derKey(target()));
    }

    void login_isRefused_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("seconds");
        QTest::newRow("too many") << u"too-many"_s << 1 << 0;
        QTest::newRow("hours") << u"outside-hours"_s << 3 << 0;
        QTest::newRow("locked") << u"locked 300"_s << 12 << 300;
        QTest::newRow("address") << u"address"_s << 13 << 0;
    }

    void login_isRefused()
    {
        QFETCH(QString, command);
        QFETCH(int, seconds);
        QVERIFY(m_server.command(u"refuse "_s + command).startsWith(u"ok"));
        QTEST(logIn(), "code");
        QCOMPARE(m_error.server, u"127.0.0.1"_s);
        QCOMPARE(m_error.port, m_server.port());
        QVERIFY(m_error.lockoutSeconds <= seconds && m_error.lockoutSeconds >= seconds - 10);
        QVERIFY(m_manager->servers().empty());
    }

    void login_fails_withAWrongPassword()
    {
        QCOMPARE(logIn(false, u"admin"_s, u"not-it"_s), int(LoginError::BadLogin));
    }

    void rights_followTheUser()
    {
        QCOMPARE(logIn(false, u"guest"_s, u"orrin-guest"_s), 0);
        const CurrentUser *user = CurrentUser::currentUser(1, 1);
        QCOMPARE(user->name(), u"guest"_s);
        QVERIFY(!user->isPermitted(SSPermission(SSPermission::PlayBack)));
        QVERIFY(!user->isPermitted(SSPermission(SSPermission::Ptzf)));
    }

    void login_fails_whenTheRecorderAnswersGarbage()
    {
        QVERIFY(m_server.command(u"http garbage on 1"_s).startsWith(u"ok"));
        const int code = logIn();
        QVERIFY(m_server.command(u"http garbage off 1"_s).startsWith(u"ok"));
        QCOMPARE(code, int(LoginError::FailedToSetupConnection));
    }

    void login_fails_whenTheHostIsUnknown()
    {
        QCOMPARE(logInTo(u"no-such-recorder.invalid:8601"_s), int(LoginError::ServerNotAvailable));
        QCOMPARE(m_error.server, u"no-such-recorder.invalid"_s);
    }

    void login_fails_whenThePortIsClosed()
    {
        // The second recorder's port is one that nobody else has taken meanwhile.
        const QString closed = target(2);
        QVERIFY(m_server.command(u"listener stop 2"_s).startsWith(u"ok"));
        const int code = logInTo(closed);
        QVERIFY(m_server.command(u"listener start 2"_s).startsWith(u"ok"));
        QCOMPARE(code, int(LoginError::ConnectionFailed));
    }

    void login_fails_whenTheServerIsAPlainWebServer()
    {
        FakeHttpServer web;
        web.setHandler([](const FakeRequest &) {
            return FakeAnswer{404, "<html><body><h1>Not Found</h1></body></html>", {"Content-Type: text/html"}};
        });
        QVERIFY(web.start(u"first"_s));
        const int code = logInTo(u"127.0.0.1:%1"_s.arg(web.port()));
        QVERIFY(!web.requests().isEmpty());
        QCOMPARE(code, int(LoginError::FailedToSetupConnection));
    }

    void login_endsWithinTenSeconds_whenTheRecorderIsSilent()
    {
        QVERIFY(m_server.command(u"http silent on 1"_s).startsWith(u"ok"));
        QElapsedTimer waited;
        waited.start();
        const int code = logIn();
        const qint64 milliseconds = waited.elapsed();
        QVERIFY(m_server.command(u"http silent off 1"_s).startsWith(u"ok"));
        QCOMPARE(code, int(LoginError::FailedToSetupConnection));
        QVERIFY2(milliseconds <= 11000, qPrintable(QString::number(milliseconds)));
    }

    void site_followsChanges()
    {
        QCOMPARE(logIn(), 0);
        const QPointer<Channel> channel = m_manager->server(1, 1)->channelById(1);
        const QString before = channel->name();
        QSignalSpy updated(m_manager->server(1, 1), &Server::facilitiesUpdated);
        QVERIFY(m_server.command(u"camera rename 1 1 Renamed Gate"_s).startsWith(u"ok"));
        QTRY_COMPARE(channel->name(), u"Renamed Gate"_s);
        QCOMPARE(m_manager->server(1, 1)->channelById(1), channel.data());
        QVERIFY(updated.size() >= 1);
        QVERIFY(m_server.command(u"camera rename 1 1 "_s + before).startsWith(u"ok"));
        QTRY_COMPARE(channel->name(), before);
    }

    void notice_isForwarded()
    {
        QCOMPARE(logIn(), 0);
        QSignalSpy restart(m_manager->server(1, 1), &Server::restartRequested);
        QVERIFY(m_server.command(u"notice restart 1"_s).startsWith(u"ok"));
        QTRY_COMPARE(restart.size(), 1);
    }

    void stoppedRecorder_goesOfflineAndComesBack()
    {
        QCOMPARE(logIn(), 0);
        const QPointer<Server> server = m_manager->server(1, 1);
        QSignalSpy offline(m_manager, &ConnectionManager::serverOffline);
        QSignalSpy reconnected(m_manager, &ConnectionManager::serverReconnected);
        QVERIFY(m_server.command(u"listener stop 1"_s).startsWith(u"ok"));
        QTRY_COMPARE_WITH_TIMEOUT(offline.size(), 1, 10000);
        QVERIFY(m_server.command(u"listener start 1"_s).startsWith(u"ok"));
        QTRY_COMPARE_WITH_TIMEOUT(reconnected.size(), 1, 10000);
        QCOMPARE(m_manager->server(1, 1), server.data());
    }

    void changedKey_stopsTheLogin_untilItIsTrusted()
    {
        QCOMPARE(logIn(), 0);
        m_manager->disconnectFromAll();
        // The end of the session would not be told to a server that shows another key.
        QTRY_VERIFY(m_server.command(u"clients"_s).contains(u"sessions=0"));
        QVERIFY(m_server.command(u"key renew 1"_s).startsWith(u"ok"));
        QCOMPARE(logIn(), int(LoginError::PublicKeyChanged));
        QCOMPARE(m_error.loginData.targetAndPort(), target());
        PublicKeyChecker::setDerKey(m_error.loginData.targetAndPort(),
                                    m_error.loginData.negotiationData().derKey());
        QCOMPARE(logIn(), 0);
    }

    void password_isWrittenNowhere()
    {
        QCOMPARE(logIn(), 0);
        QCOMPARE(logIn(false, u"admin"_s, u"not-the-password"_s), int(LoginError::BadLogin));
        olog::flushFileDevice();
        QByteArray written;
        QDirIterator files(m_folder->path(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            written += file.readAll();
        }
        QVERIFY(written.contains("login failed with code 2"));
        QVERIFY(!written.contains("orrin-admin"));
        QVERIFY(!written.contains("not-the-password"));
        QVERIFY(!m_error.detail.contains(u"not-the-password"));
    }
};

QTEST_GUILESS_MAIN(TestDemoServerLogin)
#include "tst_demoserverlogin.moc"
