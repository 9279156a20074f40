// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/onvifservice.h"
#include "recordings/recordings.h"

#include <chrono>

/*! How the services for recordings write what they have in common. */
namespace orrin::demo::recordingwriting {

/*! Unix milliseconds as ONVIF writes them. */
QString timeText(qint64 timeMs);

/*! A time of a request; nothing when it cannot be read. */
std::optional<qint64> timeOf(const QString &text);

/*! A duration of a request in hours, minutes and seconds, not negative; nothing when it cannot be read. */
std::optional<std::chrono::seconds> durationOf(const QString &text);

/*! Where a recording comes from, as element \a name of the schema's namespace. */
void writeSource(SoapWriter &writer, QLatin1StringView name, const recordings::Ref &ref);

/*! The recording as the search service tells of it, without the element around. */
void writeInformation(SoapWriter &writer, const RecorderInfo &recorder, const recordings::Ref &ref,
                      qint64 nowMs);

/*! "High" or "low" and the track's name. */
QString contentOf(const recordings::Ref &ref);

SoapFault notPermitted();
SoapFault noRecording();

} // namespace orrin::demo::recordingwriting
