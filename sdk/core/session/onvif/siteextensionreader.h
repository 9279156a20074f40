// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/sitedescription.h"

#include <contract/core/export.h>

#include <QJsonObject>

#include <optional>

namespace orrin {

/*! What a server of the site extension tells of itself and its group. A value. */
struct SiteExtension
{
    struct Camera
    {
        QString source; //!< token of the ONVIF video source
        ChannelDescription channel;
    };

    QString groupUid;
    QString groupName;
    quint64 serverUid = 0; //!< 0: not told
    int serverId = 1;
    QString serverName;
    QString version;
    QTimeZone timeZone; //!< invalid: not told
    QList<PeerDescription> peers;
    std::optional<UserDescription> user;
    std::optional<QList<Camera>> cameras; //!< nothing: by ONVIF sources
};

/*! What a server answers to a request for changes. */
struct SiteChanges
{
    qint64 revision = 0;
    bool changed = false; //!< the description is to be read again
    QList<QString> notices;
};

/*! Reads the bodies of the site extension. Members that are missing or of the wrong kind take their defaults;
    entries without a valid id and those above the limits are dropped. Plain functions; safe on any thread. */
class ORRINSDK_CORE_EXPORT SiteExtensionReader
{
public:
    static constexpr qsizetype PeerLimit = 256;
    static constexpr qsizetype CameraLimit = 4096;
    static constexpr qsizetype TrackLimit = 64;
    static constexpr qsizetype TextLimit = 1024;

    /*! The object in \a body; nothing when it is none. */
    static std::optional<QJsonObject> parse(const QByteArray &body);

    static SiteExtension readSite(const QJsonObject &object);
    static SiteChanges readChanges(const QJsonObject &object);

    /*! The rights that come with a level where nothing else is told. */
    static QSet<int> permissionsOf(UserLevel level);
};

} // namespace orrin
