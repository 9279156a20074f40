// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/xmlelement.h"

#include <contract/core/export.h>
#include <contract/core/userlevel.h>

#include <QDateTime>
#include <QString>
#include <QTimeZone>

#include <optional>

/*! Reading the answers of a device's management service. Plain functions over parsed XML. */
namespace orrin::deviceservice {

struct Clock
{
    QDateTime utc;
    QTimeZone zone = QTimeZone::utc();
};

struct Information
{
    QString manufacturer;
    QString model;
    QString firmware;
    QString serialNumber;
    QString hardwareId;
};

/*! Paths of the services; empty where the device has none. Only the path of an address is kept: devices name
    addresses of their own network there, and a session stays with the host, the port and the key that it began
    with. */
struct Services
{
    QString media;
    QString media2;
    QString events;
    QString ptz;
    QString imaging;
    QString search; //!< of recordings
    QString replay;
    QString site;
};

/*! Answer of GetSystemDateAndTime; nothing when it holds no time. */
ORRINSDK_CORE_EXPORT std::optional<Clock> readClock(const XmlElement &answer);
/*! Answer of GetDeviceInformation. */
ORRINSDK_CORE_EXPORT Information readInformation(const XmlElement &answer);
/*! Answer of GetServices. */
ORRINSDK_CORE_EXPORT Services readServices(const XmlElement &answer);
/*! Answer of GetCapabilities, for devices without GetServices. */
ORRINSDK_CORE_EXPORT Services readCapabilities(const XmlElement &answer);
/*! Answer of GetUsers: the level of \a user, or nothing when the list does not name the user. */
ORRINSDK_CORE_EXPORT std::optional<UserLevel> readUserLevel(const XmlElement &answer, const QString &user);

/*! What identifies a device that gives itself no number: the first 64 bits of SHA-256 over its serial number
    and its hardware id, or over \a fallback for a device that tells neither. Never 0. */
ORRINSDK_CORE_EXPORT quint64 uidOf(const Information &information, const QString &fallback);

} // namespace orrin::deviceservice
