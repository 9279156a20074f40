// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/deviceservice.h"

#include "core/session/onvif/onvifnames.h"
#include "core/session/onvif/posixtimezone.h"

#include <QCryptographicHash>
#include <QUrl>
#include <QtEndian>

namespace orrin::deviceservice {

namespace {

QString pathOf(const QString &address)
{
    const QString path = QUrl(address.trimmed()).path();
    return path.startsWith(u'/') ? path : QString();
}

UserLevel levelFromName(const QString &name)
{
    if (name == QLatin1StringView("Administrator"))
        return UserLevel::Administrator;
    if (name == QLatin1StringView("Operator"))
        return UserLevel::Operator;
    return name == QLatin1StringView("Anonymous") ? UserLevel::Guest : UserLevel::User;
}

} // namespace

std::optional<Clock> readClock(const XmlElement &answer)
{
    const XmlElement &system = answer.child(u"SystemDateAndTime");
    const XmlElement &utc = system.child(u"UTCDateTime");
    const XmlElement &date = utc.child(u"Date");
    const XmlElement &time = utc.child(u"Time");
    const QDate day(date.child(u"Year").value().toInt(), date.child(u"Month").value().toInt(),
                    date.child(u"Day").value().toInt());
    // A leap second has no place in QTime; the one before it is near enough.
    const QTime moment(time.child(u"Hour").value().toInt(), time.child(u"Minute").value().toInt(),
                       qMin(59, time.child(u"Second").value().toInt()));
    if (utc.isNull() || !day.isValid() || !moment.isValid())
        return {};
    Clock clock;
    clock.utc = QDateTime(day, moment, QTimeZone::utc());
    clock.zone = timeZoneFromDevice(system.at({u"TimeZone", u"TZ"}).value());
    return clock;
}

Information readInformation(const XmlElement &answer)
{
    Information information;
    information.manufacturer = answer.child(u"Manufacturer").value();
    information.model = answer.child(u"Model").value();
    information.firmware = answer.child(u"FirmwareVersion").value();
    information.serialNumber = answer.child(u"SerialNumber").value();
    information.hardwareId = answer.child(u"HardwareId").value();
    return information;
}

Services readServices(const XmlElement &answer)
{
    Services services;
    for (const XmlElement *service : answer.all(u"Service")) {
        const QString name = service->child(u"Namespace").value();
        const QString path = pathOf(service->child(u"XAddr").value());
        if (name == onvif::MediaNamespace)
            services.media = path;
        else if (name == onvif::Media2Namespace)
            services.media2 = path;
        else if (name == onvif::EventsNamespace)
            services.events = path;
        else if (name == onvif::PtzNamespace)
            services.ptz = path;
        else if (name == onvif::ImagingNamespace)
            services.imaging = path;
        else if (name == onvif::SearchNamespace)
            services.search = path;
        else if (name == onvif::ReplayNamespace)
            services.replay = path;
        else if (name == onvif::SiteNamespace)
            services.site = path.isEmpty() ? QStringLiteral("/orrin/v1/") : path;
    }
    return services;
}

Services readCapabilities(const XmlElement &answer)
{
    Services services;
    services.media = pathOf(answer.at({u"Capabilities", u"Media", u"XAddr"}).value());
    services.media2 = pathOf(answer.at({u"Capabilities", u"Extension", u"Media2", u"XAddr"}).value());
    services.events = pathOf(answer.at({u"Capabilities", u"Events", u"XAddr"}).value());
    services.ptz = pathOf(answer.at({u"Capabilities", u"PTZ", u"XAddr"}).value());
    services.imaging = pathOf(answer.at({u"Capabilities", u"Imaging", u"XAddr"}).value());
    services.search = pathOf(answer.at({u"Capabilities", u"Extension", u"Search", u"XAddr"}).value());
    services.replay = pathOf(answer.at({u"Capabilities", u"Extension", u"Replay", u"XAddr"}).value());
    return services;
}

std::optional<UserLevel> readUserLevel(const XmlElement &answer, const QString &user)
{
    for (const XmlElement *entry : answer.all(u"User")) {
        if (entry->child(u"Username").value() == user)
            return levelFromName(entry->child(u"UserLevel").value());
    }
    return {};
}

quint64 uidOf(const Information &information, const QString &fallback)
{
    const bool isNamed = !information.serialNumber.isEmpty() || !information.hardwareId.isEmpty();
    const QString text = isNamed ? information.serialNumber + u'\n' + information.hardwareId : fallback;
    const QByteArray digest = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
    const quint64 uid = qFromBigEndian<quint64>(digest.constData());
    return uid == 0 ? 1 : uid;
}

} // namespace orrin::deviceservice
