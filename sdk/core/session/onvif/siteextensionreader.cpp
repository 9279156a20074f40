// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/siteextensionreader.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace orrin {

namespace {

QString textOf(const QJsonValue &value)
{
    return value.toString().left(SiteExtensionReader::TextLimit);
}

quint64 numberOf(const QJsonValue &value)
{
    return value.toString().toULongLong();
}

UserLevel levelOf(const QJsonValue &value)
{
    const QString name = value.toString();
    if (name == QLatin1StringView("administrator"))
        return UserLevel::Administrator;
    if (name == QLatin1StringView("installer"))
        return UserLevel::Installer;
    return name == QLatin1StringView("operator") ? UserLevel::Operator : UserLevel::User;
}

std::optional<TrackType::Flag> trackTypeOf(const QString &name)
{
    static const QHash<QString, TrackType::Flag> Types = {
        {QStringLiteral("track1"), TrackType::Track1}, {QStringLiteral("track2"), TrackType::Track2},
        {QStringLiteral("track3"), TrackType::Track3}, {QStringLiteral("metadata"), TrackType::Metadata},
        {QStringLiteral("events"), TrackType::Events}, {QStringLiteral("vmd"), TrackType::Vmd},
        {QStringLiteral("audio"), TrackType::Audio},   {QStringLiteral("talkback"), TrackType::Talkback},
    };
    const auto found = Types.constFind(name);
    return found == Types.cend() ? std::nullopt : std::optional(*found);
}

QList<TrackDescription> tracksOf(const QJsonArray &array)
{
    QList<TrackDescription> tracks;
    for (const QJsonValue &value : array) {
        const QJsonObject object = value.toObject();
        const std::optional<TrackType::Flag> type =
            trackTypeOf(object.value(u"type").toString(QStringLiteral("track1")));
        TrackDescription track;
        track.id = object.value(u"id").toInt(0);
        if (track.id < 1 || !type || tracks.size() >= SiteExtensionReader::TrackLimit)
            continue;
        track.name = textOf(object.value(u"name"));
        track.type = *type;
        track.enabled = object.value(u"enabled").toBool(true);
        tracks.append(track);
    }
    return tracks;
}

QList<SiteExtension::Camera> camerasOf(const QJsonArray &array)
{
    QList<SiteExtension::Camera> cameras;
    QSet<int> ids;
    for (const QJsonValue &value : array) {
        const QJsonObject object = value.toObject();
        SiteExtension::Camera camera;
        ChannelDescription &channel = camera.channel;
        channel.id = object.value(u"id").toInt(0);
        if (channel.id < 1 || ids.contains(channel.id) || cameras.size() >= SiteExtensionReader::CameraLimit)
            continue;
        ids.insert(channel.id);
        camera.source = textOf(object.value(u"source"));
        channel.sortId = object.value(u"sortId").toInt(channel.id);
        channel.name = textOf(object.value(u"name"));
        channel.enabled = object.value(u"enabled").toBool(true);
        channel.permitted = object.value(u"permitted").toBool(true);
        channel.ptzf = object.value(u"ptzf").toInt(0);
        channel.tracks = tracksOf(object.value(u"tracks").toArray());
        cameras.append(camera);
    }
    return cameras;
}

QList<PeerDescription> peersOf(const QJsonArray &array)
{
    QList<PeerDescription> peers;
    for (const QJsonValue &value : array) {
        const QJsonObject object = value.toObject();
        PeerDescription peer;
        peer.uid = numberOf(object.value(u"uid"));
        peer.port = object.value(u"port").toInt(0);
        if (peer.uid == 0 || peer.port < 1 || peer.port > 65535 ||
            peers.size() >= SiteExtensionReader::PeerLimit)
            continue;
        peer.id = object.value(u"id").toInt(0);
        peer.name = textOf(object.value(u"name"));
        peer.host = textOf(object.value(u"host"));
        peers.append(peer);
    }
    return peers;
}

UserDescription userOf(const QJsonObject &object, int serverId)
{
    UserDescription user;
    if (object.contains(u"localId"))
        user.id = UserLId{serverId, object.value(u"localId").toInt(0)};
    else
        user.id = UserId{object.value(u"id").toInt(0)};
    user.name = textOf(object.value(u"name"));
    user.level = levelOf(object.value(u"level"));
    if (object.value(u"permissions").isArray()) {
        const QJsonArray permissions = object.value(u"permissions").toArray();
        for (const QJsonValue &permission : permissions) {
            if (const int number = permission.toInt(-1); number >= 0 && user.permissions.size() < 1024)
                user.permissions.insert(number);
        }
    } else {
        user.permissions = SiteExtensionReader::permissionsOf(user.level);
    }
    return user;
}

} // namespace

std::optional<QJsonObject> SiteExtensionReader::parse(const QByteArray &body)
{
    const QJsonDocument document = QJsonDocument::fromJson(body);
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

SiteExtension SiteExtensionReader::readSite(const QJsonObject &object)
{
    SiteExtension site;
    const QJsonObject group = object.value(u"group").toObject();
    site.groupUid = textOf(group.value(u"uid"));
    site.groupName = textOf(group.value(u"name"));
    const QJsonObject server = object.value(u"server").toObject();
    site.serverUid = numberOf(server.value(u"uid"));
    site.serverId = server.value(u"id").toInt(1);
    site.serverName = textOf(server.value(u"name"));
    site.version = textOf(server.value(u"version"));
    if (const QByteArray zone = textOf(server.value(u"timeZone")).toLatin1();
        QTimeZone::isTimeZoneIdAvailable(zone))
        site.timeZone = QTimeZone(zone);
    site.peers = peersOf(object.value(u"peers").toArray());
    if (object.value(u"user").isObject())
        site.user = userOf(object.value(u"user").toObject(), site.serverId);
    if (object.value(u"cameras").isArray())
        site.cameras = camerasOf(object.value(u"cameras").toArray());
    return site;
}

SiteChanges SiteExtensionReader::readChanges(const QJsonObject &object)
{
    constexpr qsizetype NoticeLimit = 64;
    SiteChanges changes;
    // Numbers of JSON are doubles: what they cannot hold is no revision.
    const double revision = object.value(u"revision").toDouble(0);
    changes.revision = revision > 0 && revision < 9e15 ? static_cast<qint64>(revision) : 0;
    changes.changed = !object.value(u"changed").toArray().isEmpty();
    const QJsonArray notices = object.value(u"notices").toArray();
    for (const QJsonValue &notice : notices) {
        if (changes.notices.size() < NoticeLimit)
            changes.notices.append(textOf(notice));
    }
    return changes;
}

QSet<int> SiteExtensionReader::permissionsOf(UserLevel level)
{
    switch (level) {
    case UserLevel::Administrator:
    case UserLevel::Installer:
        return {SSPermission::PlayBack, SSPermission::Ptzf, SSPermission::SeeBehindMasks};
    case UserLevel::Operator:
        return {SSPermission::PlayBack, SSPermission::Ptzf};
    case UserLevel::User:
    case UserLevel::Guest:
        break;
    }
    return {};
}

} // namespace orrin
