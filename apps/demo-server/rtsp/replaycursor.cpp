// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/replaycursor.h"

#include "camera/framegrid.h"

#include <algorithm>

namespace orrin::demo {

namespace {
constexpr std::int64_t GopMs = RecordingSchedule::GopMs;
}

ReplayCursor::ReplayCursor(const RecordingSchedule &schedule, DeviceClock clock, int rate)
    : m_schedule(schedule), m_clock(clock), m_rate(rate)
{
}

std::int64_t ReplayCursor::timeOf(std::int64_t gop, int index) const
{
    return framegrid::timeOf(gop * m_rate * GopMs / 1000 + index, m_rate);
}

std::int64_t ReplayCursor::keyStep() const
{
    return std::max<std::int64_t>(1, (m_request.intervalMs + GopMs - 1) / GopMs);
}

void ReplayCursor::start(const Request &request)
{
    m_request = request;
    m_gop = (request.backward ? request.endMs : request.beginMs) / GopMs;
    m_index = 0;
    m_discontinuity = true;
    m_done = !hasFrames();
}

bool ReplayCursor::hasFrames() const
{
    if (m_request.beginMs > m_request.endMs)
        return false;
    const auto span = m_schedule.spanFrom(m_request.beginMs, m_clock.nowMs());
    return span && span->beginMs <= m_request.endMs;
}

std::optional<ReplayCursor::Position> ReplayCursor::next()
{
    if (m_done)
        return std::nullopt;
    const std::optional<Position> position = m_request.backward ? nextBackward() : nextForward();
    m_done = !position;
    if (position)
        m_discontinuity = false;
    return position;
}

std::optional<ReplayCursor::Position> ReplayCursor::nextForward()
{
    std::int64_t timeMs = timeOf(m_gop, m_index);
    const std::optional<Span> span = m_schedule.spanFrom(timeMs, m_clock.nowMs());
    if (!span)
        return std::nullopt;
    if (span->beginMs > timeMs) {
        m_gop = span->beginMs / GopMs;
        m_index = 0;
        m_discontinuity = true;
        timeMs = timeOf(m_gop, 0);
    }
    if (timeMs >= m_request.endMs && timeMs > m_request.beginMs)
        return std::nullopt;
    const Position position{m_gop, m_index, timeMs, m_discontinuity};
    if (m_request.keyFramesOnly) {
        m_gop += keyStep();
    } else if (++m_index >= m_rate * GopMs / 1000) {
        m_index = 0;
        ++m_gop;
    }
    return position;
}

std::optional<ReplayCursor::Position> ReplayCursor::nextBackward()
{
    std::int64_t timeMs = timeOf(m_gop, m_index);
    const std::int64_t nowMs = m_clock.nowMs();
    const bool over = m_index > 0 && (m_index >= m_rate * GopMs / 1000 || timeMs > m_request.endMs);
    const std::optional<Span> here = m_schedule.spanUntil(timeMs, nowMs);
    if (over || (m_index > 0 && here && timeMs >= here->endMs)) {
        --m_gop;
        m_index = 0;
        timeMs = timeOf(m_gop, 0);
    }
    if (m_gop < 0)
        return std::nullopt;
    const std::optional<Span> span = m_schedule.spanUntil(timeMs, nowMs);
    if (!span)
        return std::nullopt;
    if (timeMs >= span->endMs) {
        m_gop = (span->endMs - 1) / GopMs;
        m_index = 0;
        timeMs = timeOf(m_gop, 0);
    }
    if ((m_gop + 1) * GopMs <= m_request.beginMs)
        return std::nullopt;
    const Position position{m_gop, m_index, timeMs, m_discontinuity || m_index == 0};
    if (m_request.keyFramesOnly)
        m_gop -= keyStep();
    else
        ++m_index;
    return position;
}

} // namespace orrin::demo
