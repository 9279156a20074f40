// SPDX-License-Identifier: GPL-3.0-or-later
#include "scriptedsite.h"

namespace orrin::test {

ScriptedSite::ScriptedSite(quint64 uid, int serverId)
{
    m_site.serverUid = uid;
    m_site.serverId = serverId;
    m_site.serverName = QStringLiteral("Server %1").arg(uid);
    m_site.serverAddress = QStringLiteral("192.0.2.1");
    m_site.version = QStringLiteral("1.2.3.4");
    user(QStringLiteral("operator"), UserLevel::Operator, {SSPermission::PlayBack, SSPermission::Ptzf});
}

ScriptedSite &ScriptedSite::group(const QString &uid, const QString &name)
{
    m_site.groupUid = uid;
    m_site.groupName = name;
    return *this;
}

ScriptedSite &ScriptedSite::name(const QString &name)
{
    m_site.serverName = name;
    return *this;
}

ScriptedSite &ScriptedSite::version(const QString &version)
{
    m_site.version = version;
    return *this;
}

ScriptedSite &ScriptedSite::timeZone(const QByteArray &iana)
{
    m_site.timeZone = QTimeZone(iana);
    return *this;
}

ScriptedSite &ScriptedSite::user(const QString &name, UserLevel level, const QSet<int> &permissions, int id)
{
    m_site.user.id = UserId{id};
    m_site.user.name = name;
    m_site.user.level = level;
    m_site.user.permissions = permissions;
    return *this;
}

ScriptedSite &ScriptedSite::camera(int id, const QString &name)
{
    ChannelDescription channel;
    channel.id = id;
    channel.sortId = id * 10;
    channel.name = name.isEmpty() ? QStringLiteral("Camera %1").arg(id) : name;
    channel.tracks = {{1, QStringLiteral("Video"), TrackType::Track1, true}};
    return this->channel(channel);
}

ScriptedSite &ScriptedSite::channel(const ChannelDescription &channel)
{
    m_site.channels.append(channel);
    return *this;
}

ScriptedSite &ScriptedSite::deny(int channelId)
{
    for (ChannelDescription &channel : m_site.channels) {
        if (channel.id == channelId)
            channel.permitted = false;
    }
    return *this;
}

ScriptedSite &ScriptedSite::peer(quint64 uid, int serverId, const QString &host, int port)
{
    m_site.peers.append({uid, serverId, QStringLiteral("Server %1").arg(uid), host, port});
    return *this;
}

} // namespace orrin::test
