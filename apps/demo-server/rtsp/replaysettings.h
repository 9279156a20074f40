// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordings/gopcache.h"
#include "recordings/recordingschedule.h"
#include "rtsp/replaycontrol.h"
#include "rtsp/replayposition.h"
#include "site/deviceclock.h"
#include "site/site.h"

#include <memory>

namespace orrin::demo {

/*! What the replay of one recording is made from. */
struct ReplaySettings
{
    Camera camera;
    Profile profile;
    QByteArray timeZone;
    RecordingSchedule schedule;
    DeviceClock clock;
    std::shared_ptr<GopCache> cache;
    std::shared_ptr<const ReplayControl> control;
};

/*! Replay media live in time since 1900-01-01, as the header extension does. */
constexpr std::uint64_t NtpUnixSeconds = 2208988800ULL;

constexpr std::uint64_t ntpNsOf(std::int64_t unixMs)
{
    return (std::uint64_t(unixMs) + NtpUnixSeconds * 1000) * 1'000'000;
}

/*! To the nearest millisecond, for a range goes through floating point on its way; what lies before 1970 is
 * 0. */
constexpr std::int64_t unixMsOf(std::uint64_t ntpNs)
{
    const std::uint64_t ms = (ntpNs + 500'000) / 1'000'000;
    return ms > NtpUnixSeconds * 1000 ? std::int64_t(ms - NtpUnixSeconds * 1000) : 0;
}

} // namespace orrin::demo
