// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/connectionmanager.h>

#include "core/connectionmanager_p.h"

#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QThread>

namespace orrin {

ConnectionManager::ConnectionManager(QObject *parent)
    : QObject(parent), d(std::make_unique<ConnectionManagerPrivate>(this))
{
}

ConnectionManager::~ConnectionManager() = default;

int ConnectionManager::connectToServer(const QString &user, const QString &password, const CorvaneUrl &url,
                                       bool asGroup)
{
    Q_ASSERT(thread() == QThread::currentThread());
    return d->connectToServer(url, SharedCredentials::create(user, password), asGroup);
}

void ConnectionManager::disconnectFromAll()
{
    Q_ASSERT(thread() == QThread::currentThread());
    d->disconnectFromAll();
}

std::vector<ServerGroup *> ConnectionManager::serverGroups() const
{
    return d->registry().groups();
}

std::vector<Server *> ConnectionManager::servers() const
{
    return d->registry().servers();
}

ServerGroup *ConnectionManager::serverGroup(int id) const
{
    return d->registry().group(id);
}

Server *ConnectionManager::server(int group, int server) const
{
    const ServerGroup *found = serverGroup(group);
    return found ? found->serverById(server) : nullptr;
}

unsigned long long ConnectionManager::serverUidFromGid(ServerGID gid) const
{
    const Server *found = server(gid.groupId, gid.serverId);
    return found ? found->uniqueId() : 0;
}

} // namespace orrin
