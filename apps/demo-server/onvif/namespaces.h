// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

/*! The XML namespaces of SOAP 1.2, WS-Security, ONVIF and the site extension. */
namespace orrin::demo::ns {

inline constexpr QLatin1StringView Envelope("http://www.w3.org/2003/05/soap-envelope");
inline constexpr QLatin1StringView Envelope11("http://schemas.xmlsoap.org/soap/envelope/");
inline constexpr QLatin1StringView
    Security("http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-secext-1.0.xsd");
inline constexpr QLatin1StringView
    Utility("http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-utility-1.0.xsd");
inline constexpr QLatin1StringView PasswordDigest(
    "http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-username-token-profile-1.0#PasswordDigest");
inline constexpr QLatin1StringView Device("http://www.onvif.org/ver10/device/wsdl");
inline constexpr QLatin1StringView Media("http://www.onvif.org/ver10/media/wsdl");
inline constexpr QLatin1StringView Media2("http://www.onvif.org/ver20/media/wsdl");
inline constexpr QLatin1StringView Recording("http://www.onvif.org/ver10/recording/wsdl");
inline constexpr QLatin1StringView Search("http://www.onvif.org/ver10/search/wsdl");
inline constexpr QLatin1StringView Replay("http://www.onvif.org/ver10/replay/wsdl");
inline constexpr QLatin1StringView Events("http://www.onvif.org/ver10/events/wsdl");
inline constexpr QLatin1StringView Ptz("http://www.onvif.org/ver20/ptz/wsdl");
inline constexpr QLatin1StringView Imaging("http://www.onvif.org/ver20/imaging/wsdl");
inline constexpr QLatin1StringView Notification("http://docs.oasis-open.org/wsn/b-2");
inline constexpr QLatin1StringView TopicExpressions("http://docs.oasis-open.org/wsn/t-1");
inline constexpr QLatin1StringView Topics("http://www.onvif.org/ver10/topics");
inline constexpr QLatin1StringView Addressing("http://www.w3.org/2005/08/addressing");
inline constexpr QLatin1StringView Schema("http://www.onvif.org/ver10/schema");
inline constexpr QLatin1StringView Error("http://www.onvif.org/ver10/error");
inline constexpr QLatin1StringView Site("urn:orrin:site:1");

} // namespace orrin::demo::ns
