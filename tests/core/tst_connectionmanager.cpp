// SPDX-License-Identifier: GPL-3.0-or-later
#include "scriptedconnector.h"
#include "scriptedsite.h"

#include "core/session/sessionlookup.h"

#include <contract/core/camera.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/corvaneconfig.h>
#include <contract/core/currentuser.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/core/serverprofile.h>
#include <contract/core/track.h>

#include <QSignalSpy>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 NorthUid = 0xA000000000000001;
constexpr quint64 SouthUid = 0xA000000000000002;
const QString NorthHost = u"north.invalid:8601"_s;
const QString SouthHost = u"south.invalid:8602"_s;

ScriptedSite north()
{
    ScriptedSite site(NorthUid, 1);
    site.group(u"site-1"_s, u"Works"_s).name(u"North"_s).camera(1).camera(2, u"Gate"_s);
    site.peer(SouthUid, 2, u"south.invalid"_s, 8602);
    return site;
}

ScriptedSite south()
{
    ScriptedSite site(SouthUid, 2);
    site.group(u"site-1"_s, u"Works"_s).name(u"South"_s).camera(1);
    site.peer(NorthUid, 1, u"north.invalid"_s, 8601);
    return site;
}

ChannelDescription channelOf(int id, int sortId, const QString &name,
                             ChannelDescription::Kind kind = ChannelDescription::Kind::Camera)
{
    ChannelDescription channel;
    channel.id = id;
    channel.sortId = sortId;
    channel.name = name;
    channel.kind = kind;
    return channel;
}

} // namespace

class TestConnectionManager : public QObject
{
    Q_OBJECT

private:
    int connectTo(const QString &host, bool asGroup = false, const QString &user = u"admin"_s)
    {
        return m_manager->connectToServer(user, u"secret"_s, CorvaneUrl(host, 8601), asGroup);
    }

    /*! Logs in to one server and returns it. */
    Server *logIn(const QString &host, const SiteDescription &site)
    {
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        connectTo(host);
        m_connector->lastSession()->logIn(site);
        return complete.size() == 1 ? m_manager->servers().back() : nullptr;
    }

    ConnectionManager *m_manager = nullptr;
    ScriptedConnector *m_connector = nullptr;

private Q_SLOTS:
    void init()
    {
        OrrinSDK::initInstance(u"orrin-tests"_s, u"tst_connectionmanager"_s, nullptr, u"test.log"_s);
        m_manager = OrrinSDK::instance()->connectionManager();
        m_connector = ScriptedConnector::install();
    }

    void cleanup() { OrrinSDK::shutdown(); }

    void connectToServer_returnsRisingNumbers()
    {
        QCOMPARE(connectTo(NorthHost), 1);
        QCOMPARE(connectTo(SouthHost), 2);
        QCOMPARE(m_connector->session(SouthHost)->request(), 2u);
    }

    void connectToServer_handsOnCredentialsAndAddress()
    {
        connectTo(NorthHost, true);
        const ScriptedSession *session = m_connector->lastSession();
        QVERIFY(session->isOpening());
        QCOMPARE(session->url().host(), u"north.invalid"_s);
        QCOMPARE(session->url().port(), 8601);
        QCOMPARE(session->credentials()->user, u"admin"_s);
        QVERIFY(session->asGroup());
    }

    void connectToServer_reportsByTheEventLoop_whenAddressIsInvalid()
    {
        QSignalSpy errors(m_manager, &ConnectionManager::loginError);
        connectTo(u"a b"_s);
        QCOMPARE(errors.size(), 0);
        QTRY_COMPARE(errors.size(), 1);
        QCOMPARE(errors.first().first().value<LoginError>().errorId(), int(LoginError::ServerNotAvailable));
        QCOMPARE(m_connector->createdCount(), 0);
    }

    void login_makesGroupServerAndChannels()
    {
        QSignalSpy connected(m_manager, &ConnectionManager::serverConnected);
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        connectTo(NorthHost);
        m_connector->lastSession()->describe(north().timeZone("Europe/Berlin"));
        QCOMPARE(connected.size(), 0);
        QVERIFY(m_manager->servers().empty());
        m_connector->lastSession()->succeed();
        QCOMPARE(connected.size(), 1);
        QCOMPARE(complete.size(), 1);

        ServerGroup *group = m_manager->serverGroup(1);
        QVERIFY(group);
        QCOMPARE(group->name(), u"Works"_s);
        QCOMPARE(group->hosts(), QList<QString>{NorthHost});
        Server *server = m_manager->server(1, 1);
        QVERIFY(server);
        QCOMPARE(connected.first().first().value<Server *>(), server);
        QCOMPARE(group->serverById(1), server);
        QCOMPARE(server->uniqueId(), NorthUid);
        QCOMPARE(server->name(), u"North"_s);
        QCOMPARE(server->host(), u"north.invalid"_s);
        QCOMPARE(server->IP(), u"192.0.2.1"_s);
        QCOMPARE(server->timeZone(), QTimeZone("Europe/Berlin"));
        QVERIFY(server->isOnline());
        QCOMPARE(server->serverProfile()->buildVersion(), 4ull);
        QCOMPARE(m_manager->serverUidFromGid(ServerGID(1, 1)), NorthUid);
        QCOMPARE(m_manager->serverUidFromGid(ServerGID(1, 9)), 0ull);
        QCOMPARE(server->cameras().size(), std::size_t(2));
        QCOMPARE(server->channelById(2)->name(), u"Gate"_s);
        QCOMPARE(server->channelById(2)->uid(), ChannelUID(NorthUid, 2));
        QCOMPARE(server->channelById(2)->track(1)->type(), TrackType::Track1);
        QVERIFY(!server->channelById(3));
        QCOMPARE(channelForUid(ChannelUID(NorthUid, 2)), server->channelById(2));
        QCOMPARE(sessionForServer(NorthUid), m_connector->lastSession());
    }

    void login_tellsUserAndRights()
    {
        Server *server = logIn(NorthHost, north().user(u"olga"_s, UserLevel::Operator, {16}, 7).deny(2));
        QVERIFY(server);
        CurrentUser *user = CurrentUser::currentUser(1, 1);
        QVERIFY(user);
        QCOMPARE(user->name(), u"olga"_s);
        QCOMPARE(user->level(), UserLevel::Operator);
        QVERIFY(user->isPermitted(SSPermission(16)));
        QVERIFY(!user->isPermitted(SSPermission(17)));
        QCOMPARE(std::get<UserId>(user->id()).id, 7);
        const auto config = server->config().toStrongRef();
        const auto &helper = config->userConfigHelper();
        QVERIFY(helper->isNotPermittedCameraForUser(user->id(), ChannelUID(NorthUid, 2)).second);
        QVERIFY(!helper->isNotPermittedCameraForUser(user->id(), ChannelUID(NorthUid, 1)).second);
        QCOMPARE(helper->isNotPermittedCameraForUser(UserId{8}, ChannelUID(NorthUid, 2)).first,
                 UserConfigError::UnknownUser);
    }

    void channels_areSorted()
    {
        ScriptedSite site(NorthUid);
        const ChannelDescription first = channelOf(1, 30, u"b"_s);
        const ChannelDescription second = channelOf(2, 10, u"c"_s);
        const ChannelDescription third = channelOf(3, 20, u"a"_s);
        Server *server = logIn(NorthHost, site.channel(third).channel(first).channel(second));
        const auto ids = [server](Server::SortBy order) {
            QList<int> ids;
            for (const auto &channel : server->channels(order))
                ids.append(channel->id());
            return ids;
        };
        QCOMPARE(ids(Server::SortById), (QList<int>{1, 2, 3}));
        QCOMPARE(ids(Server::SortBySortId), (QList<int>{2, 3, 1}));
        QCOMPARE(ids(Server::SortByName), (QList<int>{3, 1, 2}));
    }

    void loginError_isReported_whenTheOnlyServerFails()
    {
        QSignalSpy errors(m_manager, &ConnectionManager::loginError);
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        connectTo(NorthHost);
        m_connector->lastSession()->fail(LoginError::AccountLocked, 90);
        QCOMPARE(errors.size(), 1);
        const auto error = errors.first().first().value<LoginError>();
        QCOMPARE(error.errorId(), 12);
        QCOMPARE(error.lockoutSeconds, 90);
        QCOMPARE(error.request, 1u);
        QCOMPARE(complete.size(), 0);
        QTRY_VERIFY(m_connector->sessions().isEmpty());
    }

    void group_opensPeersAndCompletesOnce()
    {
        QSignalSpy connected(m_manager, &ConnectionManager::serverConnected);
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        connectTo(NorthHost, true);
        m_connector->session(NorthHost)->logIn(north());
        ScriptedSession *peer = m_connector->session(SouthHost);
        QVERIFY(peer);
        QCOMPARE(peer->credentials()->user, u"admin"_s);
        QCOMPARE(peer->request(), 1u);
        QCOMPARE(complete.size(), 0);
        peer->logIn(south());
        QCOMPARE(connected.size(), 2);
        QCOMPARE(complete.size(), 1);
        QCOMPARE(m_manager->serverGroups().size(), std::size_t(1));
        QCOMPARE(m_manager->serverGroup(1)->hosts(), (QList<QString>{NorthHost, SouthHost}));
        QCOMPARE(m_connector->createdCount(), 2);
    }

    void group_keepsServers_whenAPeerFails()
    {
        QSignalSpy errors(m_manager, &ConnectionManager::loginError);
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        connectTo(NorthHost, true);
        m_connector->session(NorthHost)->logIn(north());
        m_connector->session(SouthHost)->fail(LoginError::ConnectionFailed);
        QCOMPARE(errors.size(), 1);
        QCOMPARE(errors.first().first().value<LoginError>().server, u"south.invalid"_s);
        QCOMPARE(complete.size(), 1);
        QVERIFY(m_manager->server(1, 1)->isOnline());
        QCOMPARE(m_manager->servers().size(), std::size_t(1));
    }

    void group_staysAlone_whenNotAskedFor()
    {
        QVERIFY(logIn(NorthHost, north()));
        QVERIFY(!m_connector->session(SouthHost));
    }

    void group_joinsAPeer_whenItAppearsLater()
    {
        connectTo(NorthHost, true);
        ScriptedSite alone(NorthUid, 1);
        alone.group(u"site-1"_s);
        m_connector->lastSession()->logIn(alone);
        QVERIFY(!m_connector->session(SouthHost));
        m_connector->lastSession()->describe(north());
        QVERIFY(m_connector->session(SouthHost));
    }

    void peer_isRemoved_whenItLeavesTheGroup()
    {
        connectTo(NorthHost, true);
        m_connector->session(NorthHost)->logIn(north());
        m_connector->session(SouthHost)->logIn(south());
        const QPointer<Server> leaving = m_manager->server(1, 2);
        QPointer<ScriptedSession> session = m_connector->session(SouthHost);
        ScriptedSite alone(NorthUid, 1);
        m_connector->session(NorthHost)->describe(alone.group(u"site-1"_s, u"Works"_s).camera(1));
        QVERIFY(!m_manager->server(1, 2));
        QVERIFY(session->isClosed());
        QTRY_VERIFY(!leaving);
        QTRY_VERIFY(!session);
        QVERIFY(m_manager->server(1, 1)->isOnline());
    }

    void peer_isRemoved_whenItSaidFirstThatItLeft()
    {
        connectTo(NorthHost, true);
        m_connector->session(NorthHost)->logIn(north());
        m_connector->session(SouthHost)->logIn(south());
        m_connector->session(SouthHost)->describe(ScriptedSite(SouthUid, 2).name(u"South"_s).camera(1));
        ScriptedSite alone(NorthUid, 1);
        m_connector->session(NorthHost)->describe(alone.group(u"site-1"_s, u"Works"_s).camera(1));
        QCOMPARE(m_manager->servers(), std::vector<Server *>{m_manager->server(1, 1)});
        // It is asked again when it is back.
        QTRY_VERIFY(!m_connector->session(SouthHost));
        m_connector->session(NorthHost)->describe(north());
        QVERIFY(m_connector->session(SouthHost));
    }

    void peer_staysInItsOwnGroup_whenItWasLoggedInToForItself()
    {
        connectTo(NorthHost, true);
        m_connector->session(NorthHost)->logIn(north());
        ScriptedSession *standing = m_connector->session(SouthHost);
        standing->logIn(south());
        connectTo(SouthHost);
        m_connector->lastSession()->logIn(south());
        standing->describe(ScriptedSite(SouthUid, 2).name(u"South"_s).camera(1));
        ScriptedSite alone(NorthUid, 1);
        m_connector->session(NorthHost)->describe(alone.group(u"site-1"_s, u"Works"_s).camera(1));
        QCOMPARE(m_manager->servers().size(), std::size_t(2));
        QCOMPARE(m_manager->serverGroups().size(), std::size_t(2));
    }

    void serversOfOneGroup_shareTheGroupObject_whenLoggedInOneByOne()
    {
        logIn(NorthHost, north());
        ServerGroup *group = m_manager->serverGroup(1);
        logIn(SouthHost, south());
        QCOMPARE(m_manager->serverGroups(), std::vector<ServerGroup *>{group});
        QCOMPARE(group->servers().size(), std::size_t(2));
    }

    void sitesWithoutGroup_getGroupsOfTheirOwn()
    {
        logIn(NorthHost, ScriptedSite(NorthUid));
        logIn(SouthHost, ScriptedSite(SouthUid));
        QCOMPARE(m_manager->serverGroups().size(), std::size_t(2));
        QCOMPARE(m_manager->server(1, 1)->uniqueId(), NorthUid);
        QCOMPARE(m_manager->server(2, 1)->uniqueId(), SouthUid);
    }

    void serverIds_stayUnique_whenTwoServersClaimOne()
    {
        logIn(NorthHost, ScriptedSite(NorthUid, 1).group(u"g"_s));
        logIn(SouthHost, ScriptedSite(SouthUid, 1).group(u"g"_s));
        QCOMPARE(m_manager->server(1, 1)->uniqueId(), NorthUid);
        QCOMPARE(m_manager->server(1, 2)->uniqueId(), SouthUid);
    }

    void secondLogin_keepsObjectsAndReportsAgain()
    {
        Server *server = logIn(NorthHost, north());
        Channel *channel = server->channelById(1);
        ScriptedSession *first = m_connector->lastSession();
        QSignalSpy connected(m_manager, &ConnectionManager::serverConnected);
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        connectTo(NorthHost);
        ScriptedSession *second = m_connector->lastSession();
        QVERIFY(second != first);
        second->logIn(north());
        QCOMPARE(connected.size(), 1);
        QCOMPARE(connected.first().first().value<Server *>(), server);
        QCOMPARE(complete.size(), 1);
        QCOMPARE(m_manager->servers(), std::vector<Server *>{server});
        QCOMPARE(server->channelById(1), channel);
        QVERIFY(second->isClosed());
        QCOMPARE(sessionForServer(NorthUid), first);
    }

    void secondLogin_takesOver_whenTheUserIsAnother()
    {
        Server *server = logIn(NorthHost, north());
        ScriptedSession *first = m_connector->lastSession();
        connectTo(NorthHost, false, u"olga"_s);
        ScriptedSession *second = m_connector->lastSession();
        second->logIn(north().user(u"olga"_s, UserLevel::User));
        QVERIFY(first->isClosed());
        QCOMPARE(sessionForServer(NorthUid), second);
        QCOMPARE(m_manager->server(1, 1), server);
        QCOMPARE(server->currentUser()->name(), u"olga"_s);
    }

    void lostSession_keepsObjectsAndComesBack()
    {
        Server *server = logIn(NorthHost, north());
        ScriptedSession *session = m_connector->lastSession();
        Channel *channel = server->channelById(1);
        QSignalSpy offline(server, &Server::offline);
        QSignalSpy error(server, &Server::error);
        QSignalSpy reconnected(server, &Server::reconnected);
        QSignalSpy serverOffline(m_manager, &ConnectionManager::serverOffline);
        QSignalSpy serverReconnected(m_manager, &ConnectionManager::serverReconnected);
        session->lose(ConnectionError::TimedOut);
        QCOMPARE(offline.size(), 1);
        QCOMPARE(offline.first().first().toULongLong(), NorthUid);
        QCOMPARE(serverOffline.size(), 1);
        QCOMPARE(error.first().at(1).value<ConnectionError>().errorId(), int(ConnectionError::TimedOut));
        QVERIFY(!server->isOnline());
        QCOMPARE(server->channelById(1), channel);
        session->restore(north());
        QCOMPARE(reconnected.size(), 1);
        QCOMPARE(serverReconnected.size(), 1);
        QVERIFY(server->isOnline());
        QCOMPARE(m_manager->server(1, 1), server);
        QCOMPARE(server->channelById(1), channel);
    }

    void restoredSession_bringsAnotherServer_whenTheDeviceWasReplaced()
    {
        const QPointer<Server> server = logIn(NorthHost, ScriptedSite(NorthUid));
        QSignalSpy connected(m_manager, &ConnectionManager::serverConnected);
        m_connector->lastSession()->lose();
        m_connector->lastSession()->restore(ScriptedSite(SouthUid));
        QCOMPARE(connected.size(), 1);
        QCOMPARE(m_manager->servers().size(), std::size_t(1));
        QCOMPARE(m_manager->servers().front()->uniqueId(), SouthUid);
        QTRY_VERIFY(!server);
    }

    void refresh_keepsRemovesAndAddsChannels()
    {
        Server *server = logIn(NorthHost, ScriptedSite(NorthUid).camera(1).camera(2));
        const QPointer<Channel> kept = server->channelById(1);
        const QPointer<Channel> removed = server->channelById(2);
        QSignalSpy updated(server, &Server::facilitiesUpdated);
        m_connector->lastSession()->describe(ScriptedSite(NorthUid).camera(1, u"New name"_s).camera(3));
        QCOMPARE(updated.size(), 1);
        QCOMPARE(server->channelById(1), kept.data());
        QCOMPARE(kept->name(), u"New name"_s);
        QVERIFY(!server->channelById(2));
        QVERIFY(!removed->isValid());
        QVERIFY(server->channelById(3));
        QTRY_VERIFY(!removed);
        m_connector->lastSession()->describe(ScriptedSite(NorthUid).camera(1, u"New name"_s).camera(3));
        QCOMPARE(updated.size(), 1);
    }

    void refresh_replacesChannel_whenItsSortIdChanges()
    {
        Server *server = logIn(NorthHost, ScriptedSite(NorthUid).camera(1));
        const QPointer<Channel> before = server->channelById(1);
        const ChannelDescription moved = channelOf(1, 99, u"Camera 1"_s);
        m_connector->lastSession()->describe(ScriptedSite(NorthUid).channel(moved));
        QVERIFY(server->channelById(1) != before.data());
        QCOMPARE(server->channelById(1)->sortId(), 99);
        QTRY_VERIFY(!before);
    }

    void channel_knowsItsKind()
    {
        const ChannelDescription microphone =
            channelOf(2, 2, u"Microphone"_s, ChannelDescription::Kind::Audio);
        const ChannelDescription line = channelOf(3, 3, u"Line"_s, ChannelDescription::Kind::Talkback);
        Server *server = logIn(NorthHost, ScriptedSite(NorthUid).camera(1).channel(microphone).channel(line));
        QVERIFY(qobject_cast<Camera *>(server->channelById(1)));
        QVERIFY(!qobject_cast<Camera *>(server->channelById(2)));
        QVERIFY(server->channelById(2)->isAudio());
        QVERIFY(server->channelById(3)->isTalkback());
        QCOMPARE(server->cameras().size(), std::size_t(1));
    }

    void timedOutUser_isReportedAndTheSessionEnds()
    {
        Server *server = logIn(NorthHost, north().user(u"olga"_s, UserLevel::User, {}, 7));
        QSignalSpy timedOut(m_manager, &ConnectionManager::userConnectionTimedOut);
        QSignalSpy serverTimedOut(server, &Server::userConnectionTimedOut);
        m_connector->lastSession()->timeOut();
        QCOMPARE(timedOut.size(), 1);
        QCOMPARE(timedOut.first().at(0).toUInt(), unsigned(NorthUid & 0xffffffffu));
        QCOMPARE(timedOut.first().at(1).toUInt(), 7u);
        QCOMPARE(serverTimedOut.size(), 1);
        QVERIFY(!server->isOnline());
        QVERIFY(!sessionForServer(NorthUid));
        QCOMPARE(logIn(NorthHost, north()), server);
        QVERIFY(server->isOnline());
    }

    void notices_areForwardedWithTheUid()
    {
        Server *server = logIn(NorthHost, north());
        QSignalSpy restart(server, &Server::restartRequested);
        QSignalSpy status(server, &Server::statusChange);
        Q_EMIT m_connector->lastSession()->restartRequested();
        Q_EMIT m_connector->lastSession()->statusChanged(StatusObject(StatusObject::Warning, u"disk"_s));
        QCOMPARE(restart.first().first().toULongLong(), NorthUid);
        QCOMPARE(status.first().at(1).value<StatusObject>().text(), u"disk"_s);
    }

    void disconnectFromAll_removesEverythingAndReportsByTheEventLoop()
    {
        const QPointer<Server> server = logIn(NorthHost, north());
        logIn(SouthHost, south());
        connectTo(u"third.invalid"_s);
        const QPointer<ScriptedSession> opening = m_connector->lastSession();
        QSignalSpy disconnected(m_manager, &ConnectionManager::allServersDisconnected);
        m_manager->disconnectFromAll();
        QCOMPARE(disconnected.size(), 0);
        QVERIFY(m_manager->servers().empty());
        QVERIFY(m_manager->serverGroups().empty());
        QVERIFY(opening->isClosed());
        QTRY_COMPARE(disconnected.size(), 1);
        QCOMPARE(disconnected.first().first().toUInt(), 2u);
        QTRY_VERIFY(!server);
        QTRY_VERIFY(!opening);
        m_manager->disconnectFromAll();
        QTRY_COMPARE(disconnected.size(), 2);
        QCOMPARE(disconnected.last().first().toUInt(), 0u);
    }

    void group_hasItsOldId_whenItReturns()
    {
        logIn(NorthHost, north());
        logIn(u"third.invalid:1"_s, ScriptedSite(77));
        m_manager->disconnectFromAll();
        logIn(u"third.invalid:1"_s, ScriptedSite(77));
        QCOMPARE(m_manager->serverGroups().front()->id(), 2);
    }

    void receiver_mayDisconnect_insideServerConnected()
    {
        connect(m_manager, &ConnectionManager::serverConnected, m_manager,
                [this] { m_manager->disconnectFromAll(); });
        QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
        connectTo(NorthHost, true);
        m_connector->lastSession()->logIn(north());
        QVERIFY(m_manager->servers().empty());
        QCOMPARE(complete.size(), 0);
        QVERIFY(!m_connector->session(SouthHost));
    }
};

QTEST_GUILESS_MAIN(TestConnectionManager)
#include "tst_connectionmanager.moc"
