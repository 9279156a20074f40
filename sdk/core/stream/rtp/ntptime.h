// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/time300.h>

#include <chrono>
#include <cstdint>

namespace orrin::rtp {

/*! A moment as nanoseconds since 1970-01-01 UTC. */
using CaptureTime = std::chrono::nanoseconds;

/*! The moment of a 64-bit NTP time (32 bits of seconds since 1900, 32 bits of fraction). Seconds that lie before 1970 are taken as those of
    the era that begins in 2036. */
constexpr CaptureTime fromNtp(std::uint64_t ntp)
{
    constexpr std::int64_t UnixEpoch = 2208988800;
    constexpr std::int64_t Era = std::int64_t(1) << 32;
    std::int64_t seconds = std::int64_t(ntp >> 32);
    if (seconds < UnixEpoch)
        seconds += Era;
    const std::uint64_t fraction = ntp & 0xFFFFFFFFU;
    const std::uint64_t nanoseconds = (fraction * 1'000'000'000U + (std::uint64_t(1) << 31)) >> 32;
    return std::chrono::seconds(seconds - UnixEpoch) + std::chrono::nanoseconds(nanoseconds);
}

/*! Rounded to the nearest 1/300 s. */
constexpr Time300 toTime300(CaptureTime time)
{
    constexpr std::int64_t NanosecondsPer3Counts = 10'000'000;
    const std::int64_t rest = time.count() % NanosecondsPer3Counts;
    const std::int64_t half = rest < 0 ? -NanosecondsPer3Counts / 2 : NanosecondsPer3Counts / 2;
    return time.count() / NanosecondsPer3Counts * 3 + (rest * 3 + half) / NanosecondsPer3Counts;
}

} // namespace orrin::rtp
