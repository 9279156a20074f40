// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/servergroup.h>

#include "core/resources/servergroup_p.h"

#include <contract/core/server.h>
#include <contract/util/corvaneurl.h>

namespace orrin {

int ServerGroupPrivate::freeServerId(int wanted) const
{
    if (wanted >= 1 && !servers.contains(wanted))
        return wanted;
    int id = 1;
    while (servers.contains(id))
        ++id;
    return id;
}

ServerGroup::ServerGroup(std::unique_ptr<ServerGroupPrivate> d, QObject *parent)
    : QObject(parent), d(std::move(d))
{
}

ServerGroup::~ServerGroup() = default;

int ServerGroup::id() const
{
    return d->id;
}

QString ServerGroup::name() const
{
    return d->name;
}

QList<QString> ServerGroup::hosts() const
{
    QList<QString> hosts;
    for (const auto &[id, server] : d->servers)
        hosts.append(CorvaneUrl(server->host(), server->port()).hostAndPort());
    return hosts;
}

std::vector<Server *> ServerGroup::servers() const
{
    std::vector<Server *> servers;
    servers.reserve(d->servers.size());
    for (const auto &[id, server] : d->servers)
        servers.push_back(server);
    return servers;
}

Server *ServerGroup::serverById(int id) const
{
    const auto found = d->servers.find(id);
    return found == d->servers.end() ? nullptr : found->second;
}

} // namespace orrin
