// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordings/recordingschedule.h"
#include "site/deviceclock.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace orrin::demo {

/*!
    Which frames a PLAY request asks for, in their order. Forward: from the key frame at or before the begin of
   the range on, over gaps, to its end. Backward: groups of pictures in falling order, each forward within
   itself. With key frames only, a step leaves out what comes earlier than the interval. Frames outside of the
   recorded spans are never given. A plain value; one thread at a time.
*/
class ReplayCursor
{
public:
    struct Request
    {
        std::int64_t beginMs = 0;
        std::int64_t endMs = 0; //!< after the begin, for both directions
        bool backward = false;
        bool keyFramesOnly = false;
        std::int64_t intervalMs = 0; //!< between key frames
    };

    struct Position
    {
        std::int64_t gop = 0;
        int index = 0;
        std::int64_t timeMs = 0;
        bool discontinuity = false; //!< it does not follow what was given before
    };

    /*! \a rate is the number of frames a second. */
    ReplayCursor(const RecordingSchedule &schedule, DeviceClock clock, int rate);

    void start(const Request &request);

    /*! True when the request asks for anything that was recorded. */
    bool hasFrames() const;

    /*! The next frame, or nothing at the end. */
    std::optional<Position> next();

private:
    std::int64_t timeOf(std::int64_t gop, int index) const;
    std::optional<Position> nextForward();
    std::optional<Position> nextBackward();
    std::int64_t keyStep() const;

    RecordingSchedule m_schedule;
    DeviceClock m_clock;
    int m_rate;
    Request m_request;
    std::int64_t m_gop = 0;
    int m_index = 0;
    bool m_discontinuity = true;
    bool m_done = true;
};

} // namespace orrin::demo
