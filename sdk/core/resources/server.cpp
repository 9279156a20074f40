// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/server.h>

#include "core/resources/channel_p.h"
#include "core/resources/currentuser_p.h"
#include "core/resources/server_p.h"
#include "core/session/session.h"

#include <contract/core/camera.h>
#include <contract/core/currentuser.h>
#include <contract/core/servergroup.h>

#include <algorithm>
#include <utility>

namespace orrin {

bool ServerPrivate::apply(Server *q, const SiteDescription &site)
{
    bool changed = false;
    const auto take = [&changed](auto &field, const auto &value) {
        if (!(field == value)) {
            field = value;
            changed = true;
        }
    };
    take(name, site.serverName);
    take(timeZone, site.timeZone);
    if (!site.serverAddress.isEmpty())
        take(address, site.serverAddress);
    clockOffsetMs = site.clockOffsetMs;
    if (!site.version.isEmpty() && (!profile || profile->version() != site.version)) {
        profile = std::make_unique<ServerProfile>(site.version);
        changed = true;
    }
    changed |= applyChannels(q, site);
    changed |= applyUser(site);
    return changed;
}

bool ServerPrivate::applyChannels(Server *q, const SiteDescription &site)
{
    bool changed = false;
    QHash<int, Channel *> kept;
    for (const ChannelDescription &description : site.channels) {
        if (kept.contains(description.id))
            continue;
        Channel *channel = channelsById.value(description.id);
        if (channel && channel->d_func()->isSameChannel(description)) {
            channelsById.remove(description.id);
            changed |= channel->d_func()->apply(channel, description);
        } else {
            auto made = std::make_unique<ChannelPrivate>();
            made->server = q;
            made->serverUid = uid;
            channel = description.kind == ChannelDescription::Kind::Camera ? new Camera(std::move(made), q)
                                                                           : new Channel(std::move(made), q);
            channel->d_func()->apply(channel, description);
            changed = true;
        }
        kept.insert(description.id, channel);
    }
    changed |= !channelsById.isEmpty();
    for (Channel *gone : std::as_const(channelsById)) {
        gone->d_func()->valid = false;
        gone->deleteLater();
    }
    channelsById = std::move(kept);
    if (changed)
        sortChannels();
    return changed;
}

bool ServerPrivate::applyUser(const SiteDescription &site)
{
    bool changed = false;
    if (!user) {
        auto made = std::make_unique<CurrentUserPrivate>();
        made->description = site.user;
        user = QSharedPointer<CurrentUser>(new CurrentUser(std::move(made)), &QObject::deleteLater);
        changed = true;
    } else if (!(user->d_func()->description == site.user)) {
        user->d_func()->description = site.user;
        changed = true;
    }
    QSet<ChannelUID> notPermitted;
    for (const ChannelDescription &channel : site.channels) {
        if (!channel.permitted)
            notPermitted.insert(ChannelUID(uid, channel.id));
    }
    if (!config)
        config = QSharedPointer<CorvaneConfig>::create();
    config->userConfigHelper() = std::make_unique<UserConfigHelper>(site.user.id, notPermitted);
    return changed;
}

void ServerPrivate::sortChannels()
{
    std::vector<QPointer<Channel>> &byId = sorted[Server::SortById];
    byId.assign(channelsById.cbegin(), channelsById.cend());
    std::sort(byId.begin(), byId.end(), [](const auto &a, const auto &b) { return a->id() < b->id(); });
    sorted[Server::SortBySortId] = byId;
    std::stable_sort(sorted[Server::SortBySortId].begin(), sorted[Server::SortBySortId].end(),
                     [](const auto &a, const auto &b) { return a->sortId() < b->sortId(); });
    sorted[Server::SortByName] = byId;
    std::stable_sort(
        sorted[Server::SortByName].begin(), sorted[Server::SortByName].end(),
        [](const auto &a, const auto &b) { return QString::localeAwareCompare(a->name(), b->name()) < 0; });
}

void ServerPrivate::retire()
{
    online = false;
    session = nullptr;
    user.reset();
    config.reset();
    for (Channel *channel : std::as_const(channelsById))
        channel->d_func()->valid = false;
}

Server::Server(std::unique_ptr<ServerPrivate> d, QObject *parent) : QObject(parent), d(std::move(d)) {}

Server::~Server() = default;

unsigned long long Server::uniqueId() const
{
    return d->uid;
}

Channel *Server::channelById(int id) const
{
    return d->channelsById.value(id);
}

ServerProfile *Server::serverProfile() const
{
    return d->profile.get();
}

int Server::id() const
{
    return d->id;
}

QString Server::name() const
{
    return d->name;
}

QString Server::IP() const
{
    return d->address;
}

QString Server::host() const
{
    return d->host;
}

int Server::port() const
{
    return d->port;
}

ServerGroup *Server::group() const
{
    return d->group;
}

bool Server::isOnline() const
{
    return d->online;
}

QTimeZone Server::timeZone() const
{
    return d->timeZone;
}

std::vector<QPointer<Channel>> Server::channels(SortBy order) const
{
    const auto index = static_cast<std::size_t>(order);
    return index < d->sorted.size() ? d->sorted[index] : d->sorted[SortById];
}

std::vector<QPointer<Camera>> Server::cameras() const
{
    std::vector<QPointer<Camera>> cameras;
    for (const QPointer<Channel> &channel : d->sorted[SortById]) {
        if (auto *camera = qobject_cast<Camera *>(channel.data()))
            cameras.emplace_back(camera);
    }
    return cameras;
}

Connection *Server::connection() const
{
    return d->online && d->session ? d->session->connection() : nullptr;
}

QSharedPointer<CurrentUser> Server::currentUser() const
{
    return d->user;
}

QWeakPointer<CorvaneConfig> Server::config() const
{
    return d->config;
}

} // namespace orrin
