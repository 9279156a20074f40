// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/*!
    Frames lie on a fixed grid: frame n of a camera that runs at r frames a second was captured n/r seconds
   after 1970-01-01 UTC, cut to whole milliseconds. A frame's number and its time therefore determine each
   other, and any moment of the past has its frame without one being stored. Times are in milliseconds, not
   negative.
*/
namespace orrin::demo::framegrid {

/*! Capture time of frame \a number. */
constexpr std::int64_t timeOf(std::int64_t number, int rate)
{
    return number * 1000 / rate;
}

/*! Number of the last frame captured at or before \a timeMs. */
constexpr std::int64_t frameAt(std::int64_t timeMs, int rate)
{
    return (timeMs * rate + rate - 1) / 1000;
}

static_assert(frameAt(timeOf(25000000001, 15), 15) == 25000000001);
static_assert(frameAt(66, 15) == 1 && frameAt(65, 15) == 0 && frameAt(133, 15) == 2 && frameAt(132, 15) == 1);

} // namespace orrin::demo::framegrid
