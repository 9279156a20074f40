// SPDX-License-Identifier: GPL-3.0-or-later
// To a moment, and from there step by step.
#include "core/stream/replay/replaylimits.h"
#include "core/stream/replay/replayplayer.h"
#include "core/stream/replay/replaytime.h"

#include <utility>

namespace orrin::replay {

void ReplayPlayer::startSeek()
{
    setWaiting(true);
    m_seekTime.start();
    m_seek->phase = Phase::Near;
    if (m_keysOnly) {
        clearBuffer();
        m_keysOnly = false;
    }
    const Time300 time = m_seek->time;
    if (m_seek->place == Place::End) {
        clearBuffer();
        m_seek->phase = Phase::Back;
        askBackward(lastMs(time), false);
        return;
    }
    const bool known = !m_buffer.isEmpty() && m_buffer.first().time() <= time && time < m_buffer.last().time();
    const bool onItsWay = !m_buffer.isEmpty() && m_feed.active && !m_feed.backward && m_buffer.first().time() <= time
        && time - m_buffer.last().time() < Second && lastMs(time) < m_feed.toMs;
    if (known || onItsWay)
        return;
    clearBuffer();
    askForward(time, true);
}

void ReplayPlayer::seek()
{
    const Seek &seek = *m_seek;
    const FrameRef at = m_buffer.at(seek.time);
    const FrameRef after = m_buffer.after(seek.time);
    const bool over = !m_feed.active;
    // What a broken connection left out cannot be told from what is not there.
    if (over && !m_link.isOpen() && !(at && after))
        return;
    if (seek.place == Place::End) {
        if (at) {
            arriveAt(at);
            setLimit(Limit::End);
        } else if (over) {
            refuse(PlaybackError(PlaybackError::NotFound, tr("Nothing is recorded.")));
        }
    } else if (at && after) {
        arriveAt(chosen(at, after, seek.time));
    } else if (at && !over && seek.phase != Phase::Back) {
        // Most likely it is this one: what is decoded now need not be waited for later.
        if (m_decoder.advance(at, QDeadlineTimer(TurnTime)) == Progress::Working)
            advanceLater();
    } else if (at) {
        if (seek.time - at.time() <= interval() * 3 / 2)
            arriveAt(at);
        else if (seek.phase == Phase::Near)
            seekFurther(Phase::Far);
        else if (seek.time - at.time() <= EndTolerance) {
            arriveAt(at);
            setLimit(Limit::End);
        } else
            refuse(PlaybackError(PlaybackError::BeyondEnd));
    } else if (after) {
        if (seek.place == Place::Beginning || (seek.phase == Phase::Back && over))
            arriveAt(after);
        else if (seek.phase != Phase::Back)
            seekFurther(Phase::Back);
    } else if (over) {
        if (seek.phase == Phase::Back)
            refuse(PlaybackError(PlaybackError::NotFound, tr("Nothing is recorded.")));
        else
            seekFurther(seek.phase == Phase::Near ? Phase::Far : Phase::Back);
    }
}

void ReplayPlayer::seekFurther(Phase phase)
{
    m_seek->phase = phase;
    if (phase == Phase::Far)
        askForward(m_buffer.isEmpty() ? m_seek->time : m_buffer.last().time(), false);
    else
        // What begins behind the moment may have been begun too late: then its frame stands right before.
        askBackward(lastMs(m_seek->time), !m_buffer.isEmpty());
}

FrameRef ReplayPlayer::chosen(const FrameRef &at, const FrameRef &after, Time300 time) const
{
    return isGap(at, after) && time - at.time() > Second / 2 ? after : at;
}

void ReplayPlayer::arriveAt(const FrameRef &frame)
{
    m_seek.reset();
    m_wanted = frame;
    setLimit(Limit::Inside);
}

void ReplayPlayer::showWanted()
{
    if (!m_wanted.gop->complete && !m_feed.active)
        m_buffer.finishAppending();
    switch (m_decoder.advance(m_wanted, QDeadlineTimer(TurnTime))) {
    case Progress::Ready: {
        const FrameRef frame = std::exchange(m_wanted, FrameRef());
        m_corruptRun = 0;
        present(frame, *m_decoder.cached(frame));
        finishCommand();
        return;
    }
    case Progress::Working:
        advanceLater();
        return;
    case Progress::Starved:
        return;
    case Progress::Failed:
        m_wanted = {};
        refuse(PlaybackError(PlaybackError::Corrupt));
        return;
    }
}

void ReplayPlayer::finishCommand()
{
    if (m_steps == 0)
        m_listener.arrived(m_run, m_position);
    if (m_rate == 0.0 && m_steps == 0 && m_feed.active && !m_feed.bounded) {
        m_link.rest();
        m_feed.active = false;
    }
    if (const auto scrub = std::exchange(m_nextScrub, std::nullopt))
        execute(*scrub);
}

// --- Step by step

void ReplayPlayer::step()
{
    setWaiting(true);
    if (m_keysOnly) {
        clearBuffer();
        m_keysOnly = false;
    }
    if (m_steps > 0)
        stepForward();
    else
        stepBack();
}

void ReplayPlayer::stepForward()
{
    if (const FrameRef next = m_buffer.after(m_position)) {
        --m_steps;
        m_stepFar = false;
        m_wanted = next;
        setLimit(Limit::Inside);
        showWanted();
        if (!m_wanted)
            advanceLater();
        return;
    }
    if (m_feed.active && !m_feed.backward)
        return;
    const bool asked = m_feed.ended && !m_feed.backward;
    if (asked && !m_feed.bounded && m_stepFar) {
        m_steps = 0;
        setWaiting(false);
        setLimit(Limit::End);
        m_listener.arrived(m_run, m_position);
        return;
    }
    m_stepFar = asked && m_feed.fromMs >= lastMs(m_buffer.isEmpty() ? m_position : m_buffer.last().time());
    askForward(m_buffer.isEmpty() ? m_position : m_buffer.last().time(), !m_stepFar);
}

void ReplayPlayer::stepBack()
{
    if (const FrameRef previous = m_buffer.before(m_position)) {
        ++m_steps;
        m_stepFar = false;
        m_wanted = previous;
        setLimit(Limit::Inside);
        showWanted();
        if (!m_wanted)
            advanceLater();
        return;
    }
    if (m_feed.active && m_feed.backward)
        return;
    const bool asked = m_feed.ended && m_feed.backward;
    if (asked && !m_feed.bounded && m_stepFar) {
        m_steps = 0;
        setWaiting(false);
        setLimit(Limit::Beginning);
        m_listener.arrived(m_run, m_position);
        return;
    }
    const qint64 from = m_buffer.isEmpty() ? lastMs(m_position) : firstMs(m_buffer.first().time()) - 1;
    m_stepFar = asked && m_feed.fromMs <= from;
    askBackward(from, !m_stepFar);
}

} // namespace orrin::replay
