// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "site/site.h"

#include <QList>

#include <cstdint>
#include <optional>

namespace orrin::demo {

/*! A stretch of time that was recorded, in Unix milliseconds; the end is not part of it. */
struct Span
{
    std::int64_t beginMs = 0;
    std::int64_t endMs = 0;

    friend bool operator==(const Span &, const Span &) = default;
};

/*!
    When a track was recorded: a pure function of the time, so that its gaps are the same each time it is
   asked. The recording grows until now, which the callers name.

    | Pattern | Recorded |
    |---|---|
    | Continuous | for 30 days before the start, but for Thursdays from 02:00 to 05:30 UTC |
    | HourlyGap | for 30 days before the start, but for the minutes 20 to 22 of each hour |
    | OnAlarm | for 30 days before the start, 40 seconds of every 5 minutes, at an odd place |
    | JustBegun | from the start on |
    | Empty | never; begin and end are the start |

    All spans but the growing one begin and end on even seconds, where groups of pictures begin. A plain
   value, safe in any thread.
*/
class RecordingSchedule
{
public:
    static constexpr std::int64_t GopMs = 2000;

    /*! \a seed makes the odd places of two tracks differ; \a startedMs is the recorder's start. */
    RecordingSchedule(RecordingPattern pattern, int seed, std::int64_t startedMs);

    std::int64_t beginMs() const { return m_beginMs; }
    std::int64_t endMs(std::int64_t nowMs) const;

    /*! The span that holds \a timeMs, or the first one after it. */
    std::optional<Span> spanFrom(std::int64_t timeMs, std::int64_t nowMs) const;

    /*! The span that holds \a timeMs, or the last one before it. */
    std::optional<Span> spanUntil(std::int64_t timeMs, std::int64_t nowMs) const;

    /*! The spans that touch the window, cut to it, at most \a limit of them. */
    QList<Span> spans(std::int64_t fromMs, std::int64_t untilMs, std::int64_t nowMs, qsizetype limit) const;

private:
    Span block(std::int64_t index) const;
    std::optional<Span> cut(const Span &span, std::int64_t nowMs) const;

    RecordingPattern m_pattern;
    int m_seed;
    std::int64_t m_beginMs;
    std::int64_t m_periodMs;
};

} // namespace orrin::demo
