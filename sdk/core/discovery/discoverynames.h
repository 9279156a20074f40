// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

/*! Names of WS-Discovery in its version of April 2005, the one that ONVIF devices speak. */
namespace orrin::discovery {

inline constexpr QLatin1StringView EnvelopeNamespace("http://www.w3.org/2003/05/soap-envelope");
inline constexpr QLatin1StringView AddressingNamespace("http://schemas.xmlsoap.org/ws/2004/08/addressing");
inline constexpr QLatin1StringView DiscoveryNamespace("http://schemas.xmlsoap.org/ws/2005/04/discovery");
inline constexpr QLatin1StringView NetworkNamespace("http://www.onvif.org/ver10/network/wsdl");
inline constexpr QLatin1StringView DeviceNamespace("http://www.onvif.org/ver10/device/wsdl");
inline constexpr QLatin1StringView Everybody("urn:schemas-xmlsoap-org:ws:2005:04:discovery");
inline constexpr QLatin1StringView ProbeAction("http://schemas.xmlsoap.org/ws/2005/04/discovery/Probe");
inline constexpr QLatin1StringView ScopeRoot("onvif://www.onvif.org/");

inline constexpr quint16 Port = 3702;
inline constexpr QLatin1StringView Group("239.255.255.250");

} // namespace orrin::discovery
