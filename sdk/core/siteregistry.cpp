// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/siteregistry.h"

#include "core/resources/server_p.h"
#include "core/resources/servergroup_p.h"

#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/util/channeluid.h>

namespace orrin {

namespace {

// A server alone is a group of one, known by the server.
QString groupKey(const SiteDescription &site)
{
    return site.groupUid.isEmpty() ? QStringLiteral("server:") + serverUIDToString(site.serverUid)
                                   : QStringLiteral("group:") + site.groupUid;
}

} // namespace

SiteRegistry::SiteRegistry(QObject *owner) : m_owner(owner) {}

std::vector<ServerGroup *> SiteRegistry::groups() const
{
    std::vector<ServerGroup *> groups;
    groups.reserve(m_groups.size());
    for (const auto &[id, group] : m_groups)
        groups.push_back(group);
    return groups;
}

std::vector<Server *> SiteRegistry::servers() const
{
    std::vector<Server *> servers;
    for (const auto &[id, group] : m_groups) {
        const std::vector<Server *> some = group->servers();
        servers.insert(servers.end(), some.begin(), some.end());
    }
    return servers;
}

ServerGroup *SiteRegistry::group(int id) const
{
    const auto found = m_groups.find(id);
    return found == m_groups.end() ? nullptr : found->second;
}

Server *SiteRegistry::serverByUid(quint64 uid) const
{
    return m_servers.value(uid);
}

Server *SiteRegistry::bind(const SiteDescription &site, const CorvaneUrl &url)
{
    Server *server = serverByUid(site.serverUid);
    if (server && (!server->group() || server->group()->d_func()->key != groupKey(site))) {
        remove(server);
        server = nullptr;
    }
    ServerGroup *group = groupFor(site);
    if (!server) {
        auto made = std::make_unique<ServerPrivate>();
        made->uid = site.serverUid;
        made->id = group->d_func()->freeServerId(site.serverId);
        made->group = group;
        server = new Server(std::move(made), group);
        group->d_func()->servers.emplace(server->id(), server);
        m_servers.insert(site.serverUid, server);
    }
    server->d_func()->host = url.host();
    server->d_func()->port = url.port();
    return server;
}

void SiteRegistry::remove(Server *server)
{
    m_servers.remove(server->uniqueId());
    server->d_func()->retire();
    if (ServerGroup *group = server->group()) {
        group->d_func()->servers.erase(server->id());
        if (group->d_func()->servers.empty()) {
            m_groups.erase(group->id());
            group->deleteLater();
        }
    }
    server->deleteLater();
}

unsigned SiteRegistry::clear()
{
    const std::vector<Server *> all = servers();
    for (Server *server : all)
        remove(server);
    return static_cast<unsigned>(all.size());
}

ServerGroup *SiteRegistry::groupFor(const SiteDescription &site)
{
    const QString key = groupKey(site);
    const auto known = m_groupIds.constFind(key);
    const int id = known == m_groupIds.cend() ? ++m_lastGroupId : *known;
    if (known == m_groupIds.cend())
        m_groupIds.insert(key, id);
    ServerGroup *found = group(id);
    if (!found) {
        auto made = std::make_unique<ServerGroupPrivate>();
        made->id = id;
        made->key = key;
        found = new ServerGroup(std::move(made), m_owner);
        m_groups.emplace(id, found);
    }
    found->d_func()->name = site.groupName;
    return found;
}

} // namespace orrin
