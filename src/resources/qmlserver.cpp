// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlserver.h"

#include "resources/qmlserver_p.h"
#include "resources/resourcelookup_p.h"

#include <contract/core/camera.h>
#include <contract/core/currentuser.h>
#include <contract/core/server.h>
#include <contract/core/serverprofile.h>

#include <array>
#include <variant>

namespace orrin {

QmlServerPrivate::QmlServerPrivate(QmlServer *q)
    : q_ptr(q)
{
}

Server *QmlServerPrivate::server()
{
    const QPointer<Server> found = findServer(serverGroupId, serverId);
    if (found && found != cachedServer) {
        cachedServer = found;
        listenTo(found);
        // A handler may delete this view and the server.
        update();
    }
    return found;
}

const ServerProfile *QmlServerPrivate::profile()
{
    const Server *found = server();
    return found ? found->serverProfile() : nullptr;
}

QPointer<CurrentUser> QmlServerPrivate::user()
{
    const Server *found = server();
    return found ? found->currentUser().data() : nullptr;
}

void QmlServerPrivate::update()
{
    emitAll<QmlServer, 11>(q_ptr,
                           {&QmlServer::nameChanged, &QmlServer::ipChanged, &QmlServer::hostChanged,
                            &QmlServer::cameraCountChanged, &QmlServer::versionChanged, &QmlServer::majorVersionChanged,
                            &QmlServer::minorVersionChanged, &QmlServer::buildVersionChanged, &QmlServer::userIdChanged,
                            &QmlServer::userNameChanged, &QmlServer::userLevelChanged});
}

void QmlServerPrivate::listenTo(Server *server)
{
    const auto listen = [this, server](auto signal) {
        QObject::connect(server, signal, q_ptr.data(), [this] { update(); });
    };
    listen(&QObject::destroyed);
    // Twice: the end of a server is announced twice.
    listen(&QObject::destroyed);
    listen(&Server::offline);
    listen(&Server::reconnected);
    listen(&Server::statusChange);
    listen(&Server::userConnectionTimedOut);
    listen(&Server::restartRequested);
    listen(&Server::rebootMachineRequested);
    listen(&Server::shutdownRequested);
    listen(&Server::error);
    listen(&Server::facilitiesUpdated);
}

QmlServer::QmlServer(QObject *parent)
    : QObject(parent)
    , d_ptr(std::make_unique<QmlServerPrivate>(this))
    , m_log("orrin::QmlServer", this)
{
    m_log.trace(__FILE__, "orrin::QmlServer::QmlServer", "orrin::QmlServer::QmlServer");
}

QmlServer::~QmlServer()
{
    m_log.trace(__FILE__, "orrin::QmlServer::~QmlServer", "orrin::QmlServer::~QmlServer");
}

int QmlServer::serverGroupId() const
{
    return d_func()->serverGroupId;
}

void QmlServer::setServerGroupId(int id)
{
    if (d_func()->serverGroupId == id)
        return;
    d_func()->serverGroupId = id;
    Q_EMIT serverGroupIdChanged();
}

int QmlServer::serverId() const
{
    return d_func()->serverId;
}

void QmlServer::setServerId(int id)
{
    if (d_func()->serverId == id)
        return;
    d_func()->serverId = id;
    Q_EMIT serverIdChanged();
}

int QmlServer::uniqueId() const
{
    const Server *server = d_func()->server();
    return server ? static_cast<int>(server->uniqueId()) : -1;
}

QString QmlServer::name() const
{
    const Server *server = d_func()->server();
    return server ? server->name() : QString();
}

QString QmlServer::ip() const
{
    const Server *server = d_func()->server();
    return server ? server->IP() : QString();
}

QString QmlServer::host() const
{
    const Server *server = d_func()->server();
    return server ? server->host() : QString();
}

int QmlServer::cameraCount() const
{
    const Server *server = d_func()->server();
    return server ? static_cast<int>(server->cameras().size()) : 0;
}

QString QmlServer::version() const
{
    const ServerProfile *profile = d_func()->profile();
    return profile ? profile->version() : QString();
}

uint QmlServer::majorVersion() const
{
    const ServerProfile *profile = d_func()->profile();
    return profile ? static_cast<uint>(profile->majorVersion()) : 0;
}

uint QmlServer::minorVersion() const
{
    const ServerProfile *profile = d_func()->profile();
    return profile ? static_cast<uint>(profile->minorVersion()) : 0;
}

uint QmlServer::buildVersion() const
{
    const ServerProfile *profile = d_func()->profile();
    return profile ? static_cast<uint>(profile->buildVersion()) : 0;
}

int QmlServer::userId() const
{
    const QPointer<CurrentUser> user = d_func()->user();
    if (!user)
        return 0;
    const std::variant<UserId, UserLId> id = user->id();
    if (const auto *ofGroup = std::get_if<UserId>(&id))
        return ofGroup->id;
    if (const auto *ofServer = std::get_if<UserLId>(&id))
        return ofServer->id;
    return 0;
}

QString QmlServer::userName() const
{
    const QPointer<CurrentUser> user = d_func()->user();
    return user ? user->name() : QString();
}

QString QmlServer::userLevel() const
{
    const QPointer<CurrentUser> user = d_func()->user();
    if (!user)
        return {};
    switch (user->level()) {
    case UserLevel::Administrator: return QStringLiteral("admin");
    case UserLevel::Installer: return QStringLiteral("install");
    default: return QStringLiteral("user");
    }
}

} // namespace orrin
