// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/deviceservice.h"
#include "core/session/onvif/mediaservice.h"
#include "core/session/onvif/siteextensionreader.h"
#include "core/session/sitedescription.h"

#include <contract/core/export.h>

#include <QHash>

#include <optional>

namespace orrin {

/*! What was read from a device, piece by piece. A value. */
struct SiteParts
{
    deviceservice::Information information;
    QTimeZone clockZone = QTimeZone::utc();
    qint64 clockOffsetMs = 0;
    QString address; //!< the peer's, numeric
    QString target;  //!< "host:port", for devices that tell no serial number
    QString user;
    std::optional<UserLevel> level;         //!< as far as the device told
    std::optional<SiteExtension> extension; //!< nothing on a plain device
    QList<mediaservice::Source> sources;
    QHash<QString, QByteArray> masks; //!< by token of the source's configuration
};

/*! Where a channel's pictures come from. A value. */
struct ChannelStreams
{
    QString highProfile;
    QString lowProfile;
    QByteArray privacyMask;
    PtzTarget ptz;
};

/*! The description of a site and what only the session needs of it. A value. */
struct AssembledSite
{
    SiteDescription description;
    QHash<int, ChannelStreams> streams; //!< by channel id
    QHash<QString, int> channelsBySource;  //!< by the tokens of a source and of its configuration
};

/*! Puts the pieces together. The channels of a plain device are numbered by the order of its sources, from 1;
    its user has the rights that come with the level, and where the device does not tell the level, those of
    the lowest one. */
ORRINSDK_CORE_EXPORT AssembledSite assembleSite(const SiteParts &parts);

} // namespace orrin
