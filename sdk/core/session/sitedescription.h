// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/sspermission.h>
#include <contract/core/track.h>
#include <contract/core/userid.h>
#include <contract/core/userlevel.h>

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>
#include <QTimeZone>

#include <variant>

namespace orrin {

/*! What a session knows of its server and of the group around it; plain values. */
struct TrackDescription
{
    int id = 1;
    QString name;
    TrackType::Flag type = TrackType::Track1;
    bool enabled = true;
    friend bool operator==(const TrackDescription &, const TrackDescription &) = default;
};

struct ChannelDescription
{
    enum class Kind { Camera, Audio, Data, Talkback };

    int id = 0;
    int sortId = 0;
    QString name;
    Kind kind = Kind::Camera;
    bool enabled = true;
    bool permitted = true; //!< this user may see it
    int ptzf = 0;
    QByteArray privacyMask; //!< encoded, see Mask
    QList<TrackDescription> tracks;
    friend bool operator==(const ChannelDescription &, const ChannelDescription &) = default;
};

struct PeerDescription
{
    quint64 uid = 0;
    int id = 0;
    QString name;
    QString host;
    int port = 0;
    friend bool operator==(const PeerDescription &, const PeerDescription &) = default;
};

struct UserDescription
{
    std::variant<UserId, UserLId> id;
    QString name;
    UserLevel level = UserLevel::User;
    QSet<int> permissions; //!< values of SSPermission
    friend bool operator==(const UserDescription &, const UserDescription &) = default;
};

struct SiteDescription
{
    QString groupUid; //!< empty: the server alone
    QString groupName;
    quint64 serverUid = 0;
    int serverId = 1;
    QString serverName;
    QString serverAddress; //!< numeric, of the peer of the connection
    QString version;
    QTimeZone timeZone = QTimeZone::utc();
    qint64 clockOffsetMs = 0;
    UserDescription user;
    QList<ChannelDescription> channels;
    QList<PeerDescription> peers;
};

} // namespace orrin
