// SPDX-License-Identifier: GPL-3.0-or-later
#include "recordings/recordingschedule.h"

#include <algorithm>

namespace orrin::demo {

namespace {

constexpr std::int64_t Second = 1000;
constexpr std::int64_t Minute = 60 * Second;
constexpr std::int64_t Hour = 60 * Minute;
constexpr std::int64_t Day = 24 * Hour;
constexpr std::int64_t Week = 7 * Day;
constexpr std::int64_t Kept = 30 * Day;
constexpr std::int64_t AlarmPeriod = 5 * Minute;
constexpr std::int64_t AlarmLength = 40 * Second;

std::int64_t period(RecordingPattern pattern)
{
    switch (pattern) {
    case RecordingPattern::HourlyGap:
        return Hour;
    case RecordingPattern::OnAlarm:
        return AlarmPeriod;
    case RecordingPattern::Continuous:
    case RecordingPattern::JustBegun:
    case RecordingPattern::Empty:
        break;
    }
    return Week;
}

std::int64_t beginOf(RecordingPattern pattern, std::int64_t startedMs)
{
    if (pattern == RecordingPattern::JustBegun || pattern == RecordingPattern::Empty)
        return startedMs - startedMs % RecordingSchedule::GopMs;
    return std::max<std::int64_t>(0, startedMs - startedMs % Hour - Kept);
}

/*! A number that looks random and is the same each time. */
std::uint64_t scrambled(std::uint64_t value)
{
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9ULL;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebULL;
    return value ^ (value >> 31);
}

} // namespace

RecordingSchedule::RecordingSchedule(RecordingPattern pattern, int seed, std::int64_t startedMs)
    : m_pattern(pattern), m_seed(seed), m_beginMs(beginOf(pattern, startedMs)), m_periodMs(period(pattern))
{
}

std::int64_t RecordingSchedule::endMs(std::int64_t nowMs) const
{
    if (m_pattern == RecordingPattern::Empty)
        return m_beginMs;
    const std::optional<Span> last = spanUntil(nowMs, nowMs);
    return last ? last->endMs : m_beginMs;
}

Span RecordingSchedule::block(std::int64_t index) const
{
    const std::int64_t base = index * m_periodMs;
    switch (m_pattern) {
    case RecordingPattern::Continuous:
        // Day 0 of Unix time was a Thursday.
        return {base + 5 * Hour + 30 * Minute, base + Week + 2 * Hour};
    case RecordingPattern::HourlyGap:
        return {base + 23 * Minute, base + Hour + 20 * Minute};
    case RecordingPattern::OnAlarm: {
        const auto places = std::uint64_t((AlarmPeriod - AlarmLength) / GopMs);
        const auto place = std::int64_t(
            scrambled(std::uint64_t(index) * 1000 + std::uint64_t(m_seed)) % places);
        return {base + place * GopMs, base + place * GopMs + AlarmLength};
    }
    case RecordingPattern::JustBegun:
        return {base, base + Week};
    case RecordingPattern::Empty:
        break;
    }
    return {base, base};
}

std::optional<Span> RecordingSchedule::cut(const Span &span, std::int64_t nowMs) const
{
    Span result{std::max(span.beginMs, m_beginMs), std::min(span.endMs, nowMs)};
    // A recording without gaps is one span, however it is counted.
    if (m_pattern == RecordingPattern::JustBegun)
        result = {m_beginMs, nowMs};
    return result.beginMs < result.endMs ? std::optional(result) : std::nullopt;
}

std::optional<Span> RecordingSchedule::spanFrom(std::int64_t timeMs, std::int64_t nowMs) const
{
    if (m_pattern == RecordingPattern::Empty)
        return std::nullopt;
    const std::int64_t from = std::max(timeMs, m_beginMs);
    for (std::int64_t index = from / m_periodMs - 1; index <= from / m_periodMs + 1; ++index) {
        const std::optional<Span> span = cut(block(index), nowMs);
        if (span && span->endMs > from)
            return span;
    }
    return std::nullopt;
}

std::optional<Span> RecordingSchedule::spanUntil(std::int64_t timeMs, std::int64_t nowMs) const
{
    if (m_pattern == RecordingPattern::Empty)
        return std::nullopt;
    const std::int64_t until = std::min(timeMs, nowMs);
    for (std::int64_t index = until / m_periodMs + 1; index >= until / m_periodMs - 1; --index) {
        const std::optional<Span> span = cut(block(index), nowMs);
        if (span && span->beginMs <= until)
            return span;
    }
    return std::nullopt;
}

QList<Span> RecordingSchedule::spans(std::int64_t fromMs, std::int64_t untilMs, std::int64_t nowMs,
                                     qsizetype limit) const
{
    QList<Span> result;
    std::int64_t at = fromMs;
    while (result.size() < limit) {
        const std::optional<Span> span = spanFrom(at, nowMs);
        if (!span || span->beginMs >= untilMs)
            break;
        result.append({std::max(span->beginMs, fromMs), std::min(span->endMs, untilMs)});
        at = span->endMs;
    }
    return result;
}

} // namespace orrin::demo
