// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/soapwriter.h"
#include "site/site.h"

#include <QLatin1StringView>

#include <chrono>

/*! How a camera that moves is configured, as the media services and the PTZ service tell it. */
namespace orrin::demo::ptzconfiguration {

/*! A motion that is given no time of its own, or a longer one, ends after this. */
inline constexpr std::chrono::milliseconds DefaultTimeout{5000};
inline constexpr std::chrono::milliseconds LongestTimeout{60000};

QString token(const Camera &camera);
QString nodeToken(const Camera &camera);

/*! The standard's generic spaces. */
QString panTiltSpace(QLatin1StringView name);
QString zoomSpace(QLatin1StringView name);

/*! One range of a space, under this name. */
void writeRange(SoapWriter &writer, QLatin1StringView name, double low, double high);

/*! The configuration of \a camera as an element of this name. */
void write(SoapWriter &writer, QLatin1StringView ns, QLatin1StringView name, const Camera &camera);

} // namespace orrin::demo::ptzconfiguration
