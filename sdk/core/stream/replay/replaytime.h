// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/time300.h>

#include <QByteArray>

namespace orrin::replay {

/*! Recordings lie between these moments: NTP times of frames and the clock of RTSP hold no others for sure. */
inline constexpr Time300 EarliestTime = 0;
inline constexpr Time300 LatestTime = 4'102'444'800LL * 300; // 2100-01-01

constexpr bool isPossible(Time300 time)
{
    return time >= EarliestTime && time < LatestTime;
}

/*! Servers count in milliseconds, of which three to four share one Time300: the first and the last of them. */
constexpr qint64 firstMs(Time300 time)
{
    return (10 * time - 5 + 2) / 3;
}
constexpr qint64 lastMs(Time300 time)
{
    return (10 * time + 5 + 2) / 3 - 1;
}

/*! "20260301T120000.250Z", as the Range header of RTSP has it. */
ORRINSDK_CORE_EXPORT QByteArray clockText(qint64 msSinceEpoch);

} // namespace orrin::replay
