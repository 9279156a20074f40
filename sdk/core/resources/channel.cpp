// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/channel.h>

#include "core/resources/channel_p.h"
#include "core/resources/track_p.h"

#include <contract/core/server.h>
#include <contract/core/track.h>

namespace orrin {

bool ChannelPrivate::apply(Channel *q, const ChannelDescription &next)
{
    const bool changed = !(next == description);
    description = next;
    std::map<int, Track *> kept;
    for (const TrackDescription &track : next.tracks) {
        if (kept.contains(track.id))
            continue;
        if (const auto found = tracks.find(track.id); found != tracks.end()) {
            found->second->d_func()->description = track;
            kept.insert(*found);
            tracks.erase(found);
        } else {
            auto made = std::make_unique<TrackPrivate>();
            made->description = track;
            kept.emplace(track.id, new Track(std::move(made), q));
        }
    }
    for (const auto &[id, track] : tracks)
        track->deleteLater();
    tracks = std::move(kept);
    return changed;
}

bool ChannelPrivate::isSameChannel(const ChannelDescription &other) const
{
    return description.kind == other.kind && description.sortId == other.sortId;
}

Channel::Channel(std::unique_ptr<ChannelPrivate> d, QObject *parent) : QObject(parent), d(std::move(d)) {}

Channel::~Channel() = default;

int Channel::id() const
{
    return d->description.id;
}

int Channel::sortId() const
{
    return d->description.sortId;
}

QString Channel::name() const
{
    return d->description.name;
}

ChannelUID Channel::uid() const
{
    return ChannelUID(d->serverUid, d->description.id);
}

bool Channel::isValid() const
{
    return d->valid;
}

bool Channel::isEnabled() const
{
    return d->description.enabled;
}

bool Channel::isAudio() const
{
    return d->description.kind == ChannelDescription::Kind::Audio;
}

bool Channel::isDataChannel() const
{
    return d->description.kind == ChannelDescription::Kind::Data;
}

bool Channel::isTalkback() const
{
    return d->description.kind == ChannelDescription::Kind::Talkback;
}

Server *Channel::server() const
{
    return d->server;
}

std::vector<QPointer<Track>> Channel::tracks() const
{
    std::vector<QPointer<Track>> tracks;
    tracks.reserve(d->tracks.size());
    for (const auto &[id, track] : d->tracks)
        tracks.emplace_back(track);
    return tracks;
}

Track *Channel::track(int id) const
{
    const auto found = d->tracks.find(id);
    return found == d->tracks.end() ? nullptr : found->second;
}

} // namespace orrin
