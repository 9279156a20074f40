// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testsite.h"

#include "core/connectionmanager_p.h"

#include <contract/core/channel.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTimer>

namespace orrin {

namespace {

/*! A session that opens at once and whose streams are not to be had. */
class OpenSession : public Session
{
public:
    explicit OpenSession(const SiteDescription &site) : m_site(site) {}

    void open() override
    {
        QTimer::singleShot(0, this, [this] {
            Q_EMIT described(m_site);
            Q_EMIT opened();
        });
    }
    void close() override {}
    void requestMediaEndpoint(int, StreamQuality, QObject *context, MediaEndpointCallback callback) override
    {
        QTimer::singleShot(0, context, [callback] { callback(PlaybackError(PlaybackError::NotFound)); });
    }
    Connection *connection() override { return nullptr; }

private:
    SiteDescription m_site;
};

class OpenConnector : public Connector
{
public:
    explicit OpenConnector(const SiteDescription &site) : m_site(site) {}

    std::unique_ptr<Session> createSession(const CorvaneUrl &, const SharedCredentials &, bool,
                                           unsigned) override
    {
        return std::make_unique<OpenSession>(m_site);
    }

private:
    SiteDescription m_site;
};

SiteDescription describe(const QSet<int> &permissions)
{
    SiteDescription site;
    site.serverUid = 0x1234;
    site.serverId = 1;
    site.serverName = QStringLiteral("Recorder");
    site.user.name = QStringLiteral("anna");
    site.user.permissions = permissions;
    for (const int id : {1, 2}) {
        ChannelDescription channel;
        channel.id = id;
        channel.sortId = id;
        channel.name = QStringLiteral("Camera %1").arg(id);
        site.channels.append(channel);
    }
    return site;
}

} // namespace

TestSite::TestSite(const QSet<int> &permissions)
{
    QStandardPaths::setTestModeEnabled(true);
    OrrinSDK::initInstance(QStringLiteral("Orrinworks"), QStringLiteral("test"), nullptr,
                           QStringLiteral("test.log"));
    ConnectionManager *manager = OrrinSDK::instance()->connectionManager();
    manager->d_func()->setConnector(std::make_unique<OpenConnector>(describe(permissions)));
    QSignalSpy connected(manager, &ConnectionManager::serverConnected);
    manager->connectToServer(QStringLiteral("anna"), QStringLiteral("secret"),
                             CorvaneUrl(QStringLiteral("recorder.example"), 8601), false);
    if (connected.wait())
        m_server = manager->servers().front();
}

TestSite::~TestSite()
{
    OrrinSDK::shutdown();
}

Channel *TestSite::channel(int id) const
{
    return m_server->channelById(id);
}

int TestSite::groupId() const
{
    return m_server->group()->id();
}

} // namespace orrin
