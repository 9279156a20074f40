// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/siteassembler.h"

namespace orrin {

namespace {

UserDescription userOf(const SiteParts &parts)
{
    UserDescription user;
    if (parts.extension && parts.extension->user) {
        user = *parts.extension->user;
    } else {
        user.level = parts.level.value_or(UserLevel::User);
        user.permissions = SiteExtensionReader::permissionsOf(user.level);
    }
    if (user.name.isEmpty())
        user.name = parts.user;
    return user;
}

QList<TrackDescription> tracksOf(const mediaservice::Source &source)
{
    QList<TrackDescription> tracks = {{1, QStringLiteral("Video"), TrackType::Track1, true}};
    if (source.hasAudio)
        tracks.append({2, QStringLiteral("Audio"), TrackType::Audio, true});
    return tracks;
}

ChannelDescription channelOf(const mediaservice::Source &source, int id)
{
    ChannelDescription channel;
    channel.id = id;
    channel.sortId = id;
    channel.name = source.name.isEmpty() ? QStringLiteral("Camera %1").arg(id) : source.name;
    channel.ptzf = source.hasPtz ? 1 : 0;
    channel.tracks = tracksOf(source);
    return channel;
}

void addChannel(AssembledSite &site, const SiteParts &parts, ChannelDescription channel,
                const mediaservice::Source *source)
{
    if (source) {
        channel.privacyMask = parts.masks.value(source->configuration);
        if (!source->configuration.isEmpty())
            site.channelsBySource.insert(source->configuration, channel.id);
        site.channelsBySource.insert(source->token, channel.id);
        site.streams.insert(channel.id, {source->highProfile, source->lowProfile, channel.privacyMask, source->ptz});
    }
    site.description.channels.append(channel);
}

void addChannels(AssembledSite &site, const SiteParts &parts)
{
    if (!parts.extension || !parts.extension->cameras) {
        int id = 0;
        for (const mediaservice::Source &source : parts.sources) {
            ++id;
            addChannel(site, parts, channelOf(source, id), &source);
        }
        return;
    }
    QHash<QString, const mediaservice::Source *> sources;
    for (const mediaservice::Source &source : parts.sources)
        sources.insert(source.token, &source);
    for (const SiteExtension::Camera &camera : *parts.extension->cameras) {
        const mediaservice::Source *source = sources.value(camera.source);
        ChannelDescription channel = camera.channel;
        if (!camera.source.isEmpty())
            site.channelsBySource.insert(camera.source, channel.id);
        if (channel.tracks.isEmpty() && source)
            channel.tracks = tracksOf(*source);
        addChannel(site, parts, channel, source);
    }
}

} // namespace

AssembledSite assembleSite(const SiteParts &parts)
{
    AssembledSite site;
    SiteDescription &description = site.description;
    description.serverUid = deviceservice::uidOf(parts.information, parts.target);
    description.serverName = parts.information.model.isEmpty() ? parts.target : parts.information.model;
    description.version = parts.information.firmware;
    description.timeZone = parts.clockZone;
    description.clockOffsetMs = parts.clockOffsetMs;
    description.serverAddress = parts.address;
    description.user = userOf(parts);
    if (parts.extension) {
        const SiteExtension &extension = *parts.extension;
        description.groupUid = extension.groupUid;
        description.groupName = extension.groupName;
        description.peers = extension.peers;
        description.serverId = extension.serverId;
        if (extension.serverUid != 0)
            description.serverUid = extension.serverUid;
        if (!extension.serverName.isEmpty())
            description.serverName = extension.serverName;
        if (!extension.version.isEmpty())
            description.version = extension.version;
        if (extension.timeZone.isValid())
            description.timeZone = extension.timeZone;
    }
    addChannels(site, parts);
    return site;
}

} // namespace orrin
