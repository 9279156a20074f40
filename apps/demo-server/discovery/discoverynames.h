// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

/*! Names of WS-Discovery, April 2005. */
namespace orrin::demo::discovery {

inline constexpr QLatin1StringView Namespace("http://schemas.xmlsoap.org/ws/2005/04/discovery");
inline constexpr QLatin1StringView Addressing("http://schemas.xmlsoap.org/ws/2004/08/addressing");
inline constexpr QLatin1StringView Network("http://www.onvif.org/ver10/network/wsdl");
inline constexpr QLatin1StringView Everybody("urn:schemas-xmlsoap-org:ws:2005:04:discovery");
inline constexpr QLatin1StringView Anonymous("http://schemas.xmlsoap.org/ws/2004/08/addressing/role/anonymous");

inline constexpr quint16 StandardPort = 3702;
inline constexpr QLatin1StringView Group("239.255.255.250");

} // namespace orrin::demo::discovery
