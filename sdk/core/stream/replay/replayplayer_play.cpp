// SPDX-License-Identifier: GPL-3.0-or-later
// Play in any direction, at any rate.
#include "core/stream/replay/replaylimits.h"
#include "core/stream/replay/replayplayer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orrin::replay {

using namespace std::chrono_literals;

namespace {

constexpr auto AheadTime = 3ms;
constexpr int FramesPerTurn = 4;
constexpr int FramesAhead = 3;
constexpr auto TooLate = 500ms;
constexpr int MaxGrowthFactor = 5;

} // namespace

FrameRef ReplayPlayer::nextInPlay(int direction) const
{
    FrameRef next = direction > 0 ? m_buffer.after(m_position) : m_buffer.before(m_position);
    // A recorder that knows nothing of intervals sends every key frame.
    const Time300 least = m_keysOnly ? keyInterval() * 7 / 10 : 0;
    while (next && std::abs(next.time() - m_position) < least) {
        const FrameRef further = direction > 0 ? m_buffer.after(next.time()) : m_buffer.before(next.time());
        if (!further)
            return m_feed.active ? FrameRef() : next;
        next = further;
    }
    return next;
}

void ReplayPlayer::play()
{
    const int direction = m_rate > 0 ? 1 : -1;
    const bool keysOnly = std::abs(m_rate) > AllFramesRate;
    if (m_keysOnly != keysOnly) {
        clearBuffer();
        m_keysOnly = keysOnly;
    }
    m_decoder.setPlayhead(m_position, direction);
    feedPlay(direction);
    bool goOn = true;
    for (int i = 0; goOn && i < FramesPerTurn && m_rate != 0.0; ++i) {
        const FrameRef next = nextInPlay(direction);
        if (!next) {
            waitForData(direction);
            return;
        }
        playFrame(next, direction, &goOn);
    }
    if (goOn)
        advanceLater();
}

// One frame as far as it goes; goOn tells whether the next one may be tried.
void ReplayPlayer::playFrame(const FrameRef &next, int direction, bool *goOn)
{
    *goOn = false;
    if (!next.gop->complete && !m_feed.active)
        m_buffer.finishAppending();
    switch (m_decoder.advance(next, QDeadlineTimer(TurnTime))) {
    case Progress::Ready:
        m_corruptRun = 0;
        break;
    case Progress::Working:
        advanceLater();
        return;
    case Progress::Starved:
        waitForData(direction);
        return;
    case Progress::Failed:
        m_position = next.time();
        *goOn = ++m_corruptRun < MaxCorruptRun;
        if (!*goOn)
            refuse(PlaybackError(PlaybackError::Corrupt));
        return;
    }
    if (m_readyRun != m_run || m_limit == Limit::End) {
        m_readyRun = m_run;
        m_clock->ready(m_member, m_run, next.time());
    }
    m_clock->release(m_member);
    setLimit(Limit::Inside);
    const auto due = m_clock->due(m_run, next.time());
    const auto wait = due ? *due - std::chrono::steady_clock::now() : std::chrono::steady_clock::duration::zero();
    if (!due) {
        m_timer.start(ClockPoll);
        decodeAhead(next, direction);
        return;
    }
    const FrameRef shown = m_buffer.at(m_position);
    const bool gap = shown && (direction > 0 ? isGap(shown, next) : isGap(next, shown));
    if (gap && wait > SyncClock::WorthSkipping && m_clock->offerJump(m_member, next.time())) {
        *goOn = true;
        return;
    }
    if (wait > 1ms) {
        m_timer.start(std::chrono::ceil<std::chrono::milliseconds>(std::min<std::chrono::steady_clock::duration>(wait, 1s)));
        decodeAhead(next, direction);
        return;
    }
    *goOn = true;
    if (-wait > TooLate && !m_clock->restartAt(m_member, next.time()) && catchUp(next))
        return;
    if (gap)
        m_listener.gapSkipped(std::min(m_position, next.time()), std::max(m_position, next.time()));
    present(next, *m_decoder.cached(next));
}

// In company nobody waits for one that is late: it leaves out what is over.
bool ReplayPlayer::catchUp(const FrameRef &next)
{
    const Time300 now = m_clock->now();
    const FrameRef there = m_buffer.at(now);
    if (there && there.gop != next.gop) {
        m_position = m_rate > 0 ? there.gop->keyTime() - 1 : there.gop->lastTime() + 1;
        return true;
    }
    if (std::abs(now - next.time()) < EndTolerance * std::abs(m_rate))
        return false;
    clearBuffer();
    m_position = now;
    feedPlay(m_rate > 0 ? 1 : -1);
    return true;
}

void ReplayPlayer::decodeAhead(const FrameRef &next, int direction)
{
    if (direction < 0) {
        // The group before is shown from its end: all of it has to be there by then.
        if (const FrameRef last = m_buffer.before(next.gop->keyTime());
            last && m_decoder.advance(last, QDeadlineTimer(AheadTime)) == Progress::Working)
            advanceLater();
        return;
    }
    FrameRef frame = next;
    for (int i = 0; i < FramesAhead; ++i) {
        frame = m_buffer.next(frame);
        if (!frame || m_decoder.advance(frame, QDeadlineTimer(AheadTime)) != Progress::Ready)
            return;
    }
}

void ReplayPlayer::waitForData(int direction)
{
    if (!m_feed.active && m_feed.ended && !m_feed.bounded && m_feed.backward == (direction < 0)) {
        reachLimit(direction);
        return;
    }
    if (m_growthTimer.isActive())
        return;
    setWaiting(true);
    const auto due = m_clock->due(m_run, m_position + direction * (m_keysOnly ? keyInterval() : interval()));
    if (due && *due > std::chrono::steady_clock::now())
        m_timer.start(std::chrono::ceil<std::chrono::milliseconds>(*due - std::chrono::steady_clock::now()));
    else if (m_clock->hold(m_member))
        m_timer.start(ClockPoll);
}

void ReplayPlayer::reachLimit(int direction)
{
    setWaiting(false);
    m_clock->rest(m_member);
    if (direction < 0) {
        m_rate = 0.0;
        setLimit(Limit::Beginning);
        return;
    }
    setLimit(Limit::End);
    if (m_growthTimer.isActive())
        return;
    // The recording may grow.
    const int factor = std::min(1 << std::min(m_growthAsked++, 3), MaxGrowthFactor);
    m_growthTimer.start(m_timing.growthPoll * factor);
    m_feed.ended = false;
}

} // namespace orrin::replay
