// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/*! Namespaces of the services that a session speaks to. */
namespace orrin::onvif {

inline const QString DeviceNamespace = QStringLiteral("http://www.onvif.org/ver10/device/wsdl");
inline const QString MediaNamespace = QStringLiteral("http://www.onvif.org/ver10/media/wsdl");
inline const QString Media2Namespace = QStringLiteral("http://www.onvif.org/ver20/media/wsdl");
inline const QString EventsNamespace = QStringLiteral("http://www.onvif.org/ver10/events/wsdl");
inline const QString PtzNamespace = QStringLiteral("http://www.onvif.org/ver20/ptz/wsdl");
inline const QString ImagingNamespace = QStringLiteral("http://www.onvif.org/ver20/imaging/wsdl");
inline const QString SearchNamespace = QStringLiteral("http://www.onvif.org/ver10/search/wsdl");
inline const QString ReplayNamespace = QStringLiteral("http://www.onvif.org/ver10/replay/wsdl");
inline const QString NotificationNamespace = QStringLiteral("http://docs.oasis-open.org/wsn/b-2");
inline const QString SchemaNamespace = QStringLiteral("http://www.onvif.org/ver10/schema");
inline const QString SiteNamespace = QStringLiteral("urn:orrin:site:1");

} // namespace orrin::onvif
