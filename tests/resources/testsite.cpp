// SPDX-License-Identifier: GPL-3.0-or-later
#include "testsite.h"

#include "scriptedconnector.h"
#include "scriptedsession.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>

namespace orrin {

namespace {

QString hostOf(quint64 uid)
{
    return QStringLiteral("server%1").arg(uid);
}

QString hostAndPortOf(quint64 uid)
{
    return hostOf(uid) + QStringLiteral(":8601");
}

} // namespace

TestSite::TestSite()
{
    OrrinSDK::initInstance(QStringLiteral("Orrin Tests"), QStringLiteral("resources"), nullptr,
                           QStringLiteral("resources.log"));
    m_connector = test::ScriptedConnector::install();
}

TestSite::~TestSite()
{
    OrrinSDK::shutdown();
    deleteLeft();
}

ConnectionManager &TestSite::manager() const
{
    return *OrrinSDK::instance()->connectionManager();
}

Server *TestSite::login(const SiteDescription &site)
{
    m_sites.insert(site.serverUid, site);
    m_connector->answer(hostAndPortOf(site.serverUid), site);
    QSignalSpy complete(&manager(), &ConnectionManager::initialConnectionComplete);
    manager().connectToServer(QStringLiteral("operator"), QStringLiteral("secret"),
                              CorvaneUrl(hostAndPortOf(site.serverUid), 8601), false);
    if (!QTest::qWaitFor([&] { return complete.size() == 1; }))
        return nullptr;
    for (Server *server : manager().servers()) {
        if (server->uniqueId() == site.serverUid)
            return server;
    }
    return nullptr;
}

bool TestSite::failLogin()
{
    const QString host = QStringLiteral("refusing:8601");
    m_connector->refuse(host, LoginError::BadLogin);
    QSignalSpy failed(&manager(), &ConnectionManager::loginError);
    manager().connectToServer(QStringLiteral("operator"), QStringLiteral("wrong"), CorvaneUrl(host, 8601), false);
    return QTest::qWaitFor([&] { return failed.size() == 1; });
}

void TestSite::describe(const SiteDescription &site)
{
    m_sites.insert(site.serverUid, site);
    session(site.serverUid)->describe(site);
}

void TestSite::lose(quint64 uid)
{
    session(uid)->lose();
}

void TestSite::restore(quint64 uid)
{
    session(uid)->restore(m_sites.value(uid));
}

void TestSite::timeOutUser(quint64 uid)
{
    session(uid)->timeOut();
}

void TestSite::logOut()
{
    manager().disconnectFromAll();
    deleteLeft();
}

test::ScriptedSession *TestSite::session(quint64 uid) const
{
    return m_connector->session(hostAndPortOf(uid));
}

void TestSite::deleteLeft()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

SiteDescription describeServer(quint64 uid, int serverId, const QString &group)
{
    SiteDescription site;
    site.groupUid = group;
    site.groupName = group;
    site.serverUid = uid;
    site.serverId = serverId;
    site.serverName = QStringLiteral("Recorder %1").arg(uid);
    site.serverAddress = QStringLiteral("192.0.2.%1").arg(uid);
    site.version = QStringLiteral("7.3.0.1234");
    site.user.id = UserId{42};
    site.user.name = QStringLiteral("operator");
    site.user.level = UserLevel::Administrator;
    site.user.permissions = {SSPermission::PlayBack, SSPermission::Ptzf};
    return site;
}

ChannelDescription describeCamera(int id, const QString &name)
{
    ChannelDescription camera;
    camera.id = id;
    camera.sortId = id;
    camera.name = name.isNull() ? QStringLiteral("Camera %1").arg(id) : name;
    camera.tracks = {describeTrack(1)};
    return camera;
}

TrackDescription describeTrack(int id, TrackType::Flag type)
{
    TrackDescription track;
    track.id = id;
    track.name = QStringLiteral("Stream %1").arg(id);
    track.type = type;
    return track;
}

PeerDescription describePeer(const SiteDescription &site)
{
    PeerDescription peer;
    peer.uid = site.serverUid;
    peer.id = site.serverId;
    peer.name = site.serverName;
    peer.host = hostOf(site.serverUid);
    peer.port = 8601;
    return peer;
}

} // namespace orrin
