// SPDX-License-Identifier: GPL-3.0-or-later
#include "scriptedsite.h"

#include "core/connectionmanager_p.h"
#include "core/resources/server_p.h"
#include "core/session/connector.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QTest>

using namespace orrin;

namespace {

class ScriptedSession : public Session
{
public:
    explicit ScriptedSession(const SiteDescription &site) : m_site(site) {}

    void open() override
    {
        QMetaObject::invokeMethod(
            this,
            [this] {
                Q_EMIT described(m_site);
                Q_EMIT opened();
            },
            Qt::QueuedConnection);
    }
    void close() override {}
    void requestMediaEndpoint(int, StreamQuality, QObject *, MediaEndpointCallback) override {}
    Connection *connection() override { return nullptr; }

private:
    SiteDescription m_site;
};

class ScriptedConnector : public Connector
{
public:
    ScriptedConnector(const SiteDescription &site, QPointer<Session> *session) : m_site(site), m_session(session) {}

    std::unique_ptr<Session> createSession(const CorvaneUrl &, const SharedCredentials &, bool, unsigned) override
    {
        auto session = std::make_unique<ScriptedSession>(m_site);
        *m_session = session.get();
        return session;
    }

private:
    SiteDescription m_site;
    QPointer<Session> *m_session;
};

} // namespace

ScriptedSite::ScriptedSite()
{
    OrrinSDK::initInstance(QStringLiteral("Orrinworks"), QStringLiteral("tests"), nullptr, QStringLiteral("tests.log"));
    m_site.groupUid = QStringLiteral("group");
    m_site.serverUid = 100;
    m_site.serverId = serverId();
    m_site.user.name = QStringLiteral("user");
    m_site.user.id = UserId{1};
    ChannelDescription camera;
    camera.id = 1;
    m_site.channels = {camera};
}

ScriptedSite::~ScriptedSite()
{
    OrrinSDK::shutdown();
}

bool ScriptedSite::logIn()
{
    ConnectionManager *manager = OrrinSDK::instance()->connectionManager();
    manager->d_func()->setConnector(std::make_unique<ScriptedConnector>(m_site, &m_session));
    manager->connectToServer(QStringLiteral("user"), QString(), CorvaneUrl(QStringLiteral("127.0.0.1"), 1), false);
    if (!QTest::qWaitFor([manager] { return !manager->servers().empty(); }))
        return false;
    m_serverGroupId = manager->servers().front()->group()->id();
    return true;
}

void ScriptedSite::setPermissions(const QSet<int> &permissions)
{
    m_site.user.permissions = permissions;
    Q_EMIT m_session->described(m_site);
}

void ScriptedSite::dropUser()
{
    OrrinSDK::instance()->connectionManager()->servers().front()->d_func()->user.reset();
}
