// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>

namespace orrin::demo {

/*!
    What a camera hears, as a function of time: a beep of 60 ms with a hard edge at each full second, an octave
   higher every ten seconds, over a hum so quiet that it does not count as sound. The beep's pitch tells cameras apart. Sample n is heard n/rate
   seconds after 1970-01-01 UTC, so that a recording needs no storage and a test can line sound and picture
   up. Pure functions.
*/
namespace audiosignal {

inline constexpr int BeepMs = 60;

/*! Fills \a samples beginning with sample number \a first. */
void fill(std::span<std::int16_t> samples, std::int64_t first, int rate, int camera);

} // namespace audiosignal
} // namespace orrin::demo
