// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ptz/ptztarget.h"
#include "core/session/mediaendpoint.h"
#include "core/session/onvif/xmlelement.h"

#include <contract/core/export.h>

#include <QHash>
#include <QList>
#include <QString>
#include <QUrl>

/*! Reading the answers of a device's media services, the newer and the older one. Plain functions over parsed
 * XML. */
namespace orrin::mediaservice {

/*! Profiles above this number are ignored. */
inline constexpr qsizetype ProfileLimit = 4096;

struct Profile
{
    QString token;
    QString sourceToken;         //!< of the video source
    QString sourceConfiguration; //!< token of the configuration of the source
    QString sourceName;
    int width = 0;
    int height = 0;
    bool hasAudio = false;
    bool hasPtz = false;
    QString ptzConfiguration; //!< its token
    QString ptzNode;
};

/*! One video source and the two profiles that show it. */
struct Source
{
    QString token;
    QString name;
    QString configuration;
    QString highProfile;
    QString lowProfile; //!< the same as the high one where there is no other
    bool hasAudio = false;
    bool hasPtz = false;
    PtzTarget ptz; //!< the first profile with a PTZ configuration; without one, the high profile
};

/*! Answer of GetProfiles of either service; profiles without video are left out. */
ORRINSDK_CORE_EXPORT QList<Profile> readProfiles(const XmlElement &answer);

/*! The sources in the order in which the profiles name them first: the profile of the most pixels is the high
    one, that of the fewest the low one. */
ORRINSDK_CORE_EXPORT QList<Source> sourcesOf(const QList<Profile> &profiles);

/*! Answer of GetMasks of the newer service: encoded privacy masks by token of the source's configuration. */
ORRINSDK_CORE_EXPORT QHash<QString, QByteArray> readMasks(const XmlElement &answer);

/*! Answer of GetStreamUri of either service; an invalid URL when there is none that can be used. Devices
    behind a translated address name one that only they can reach: an unspecified, loopback, link-local or
    private address is replaced by \a connectHost, with which the session reached the device. User and password
    are dropped. */
ORRINSDK_CORE_EXPORT QUrl readStreamUri(const XmlElement &answer, const QString &connectHost);

} // namespace orrin::mediaservice
