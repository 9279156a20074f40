// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/replay/replayplayer.h"

#include "core/stream/replay/replaylimits.h"
#include "core/stream/replay/replaytime.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <utility>

namespace orrin::replay {

using namespace std::chrono_literals;

namespace {

constexpr std::size_t MaxBufferBytes = 24U << 20;
constexpr int KeyFramesAhead = 24;
constexpr int MaxSteps = 64;
constexpr Time300 MarkedGap = Second;
constexpr Time300 DefaultInterval = Second / 10;
constexpr qint64 ShortWindowMs = 1000;
constexpr qint64 LongWindowMs = 10'000;
// No group of pictures begins so long before the moment that was asked for.
constexpr qint64 StrangeMs = 120'000;
constexpr int MaxStrange = 50;
constexpr qint64 DayMs = 86'400'000;
constexpr qint64 Year2000Ms = 946'684'800'000;
constexpr auto BusyDelay = 250ms;
constexpr auto ScrubPatience = 700ms;
// Of all players together.
constexpr std::size_t PictureBudget = 320U << 20;
constexpr std::size_t LeastPictureBudget = 24U << 20;
std::atomic<int> playerCount{0};

} // namespace

ReplayPlayer::ReplayPlayer(ReplayPlayerListener &listener, const StreamTiming &timing, std::shared_ptr<SyncClock> clock,
                           AudioTrack *audio)
    : m_listener(listener)
    , m_timing(timing)
    , m_clock(std::move(clock))
    , m_audio(audio)
    , m_link(*this, timing, audio)
    , m_timer(this)
    , m_growthTimer(this)
    , m_waitTimer(this)
{
    ++playerCount;
    m_waker->player = this;
    m_member = m_clock->join([waker = m_waker] {
        const std::lock_guard lock(waker->mutex);
        if (waker->player)
            QMetaObject::invokeMethod(waker->player, &ReplayPlayer::advance, Qt::QueuedConnection);
    });
    for (QTimer *timer : {&m_timer, &m_growthTimer, &m_waitTimer})
        timer->setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ReplayPlayer::advance);
    connect(&m_growthTimer, &QTimer::timeout, this, &ReplayPlayer::advance);
    connect(&m_waitTimer, &QTimer::timeout, this, [this] { m_listener.replayWaits(true); });
}

ReplayPlayer::~ReplayPlayer()
{
    {
        const std::lock_guard lock(m_waker->mutex);
        m_waker->player = nullptr;
    }
    m_clock->leave(m_member);
    --playerCount;
}

void ReplayPlayer::close()
{
    m_closed = true;
    m_link.close();
    m_clock->leave(m_member);
    for (QTimer *timer : {&m_timer, &m_growthTimer, &m_waitTimer})
        timer->stop();
}

void ReplayPlayer::open(const MediaEndpoint &endpoint, bool sameTrack)
{
    m_endpoint = endpoint;
    m_link.close();
    m_feed = {};
    if (!sameTrack) {
        clearBuffer();
        m_wanted = {};
        // The same moment of the other track.
        if (m_hasPosition && !m_seek)
            m_seek = Seek{m_position};
    }
    m_buffer.restartAppending();
    m_buffer.restartPrepending();
    m_link.open(endpoint);
    if (m_seek)
        startSeek();
    advanceLater();
}

void ReplayPlayer::execute(const ReplayCommand &command)
{
    const bool busy = m_scrubbing && (m_seek || m_wanted) && m_seekTime.durationElapsed() < ScrubPatience;
    if (command.scrub && busy) {
        m_nextScrub = command;
        return;
    }
    m_scrubbing = command.scrub;
    m_nextScrub.reset();
    m_run = command.run;
    m_readyRun.reset();
    m_growthTimer.stop();
    m_growthAsked = 0;
    m_corruptRun = 0;
    if (!m_hasPosition && !command.target) {
        m_position = command.here;
        m_hasPosition = true;
    }
    m_rate = command.rate;
    m_steps = command.steps == 0 ? 0 : std::clamp(m_steps + command.steps, -MaxSteps, MaxSteps);
    m_stepFar = false;
    if (m_audio)
        m_audio->setAudible(m_rate == 1.0);
    m_decoder.setBudget(std::clamp(PictureBudget / std::size_t(std::max(1, playerCount.load())), LeastPictureBudget,
                                   GopDecoder::DefaultBudget));
    if (command.target) {
        m_seek = Seek{*command.target, command.place, Phase::Near};
        m_wanted = {};
        startSeek();
    } else if (m_rate == 0.0 && m_steps == 0 && !m_seek && !m_wanted) {
        m_link.rest();
        m_feed.active = false;
        setWaiting(false);
    }
    advance();
}

void ReplayPlayer::codecKnown(VideoCodec codec)
{
    if (m_decoder.open(codec) != VideoDecoder::Status::Ok)
        m_corruptRun = MaxCorruptRun;
}

void ReplayPlayer::frameReceived(CodedFrame frame)
{
    if (!m_feed.active || (m_keysOnly && !frame.key))
        return;
    const qint64 ms = lastMs(frame.time);
    if (m_feed.backward ? ms > m_feed.fromMs + StrangeMs : ms < m_feed.fromMs - StrangeMs) {
        // A few may be left over from a range before.
        if (++m_strange > MaxStrange)
            refuse(PlaybackError(PlaybackError::StreamLost, tr("The server plays another time than it was asked for.")));
        return;
    }
    const bool beyond = m_feed.bounded && (m_feed.backward ? ms < m_feed.toMs - LongWindowMs : ms > m_feed.toMs + ShortWindowMs);
    if (m_feed.backward)
        m_buffer.prepend(std::move(frame));
    else
        m_buffer.append(std::move(frame));
    if (m_keysOnly && m_feed.backward)
        m_buffer.finishPrepending();
    if (beyond) {
        // A recorder that knows no ends.
        m_link.rest();
        rangeEnded();
    }
    advanceLater();
}

void ReplayPlayer::rangeEnded()
{
    if (!m_feed.active)
        return;
    m_feed.active = false;
    m_feed.ended = true;
    if (m_feed.backward)
        m_buffer.finishPrepending();
    else
        m_buffer.finishAppending();
    advanceLater();
}

void ReplayPlayer::rangeRefused(const PlaybackError &error)
{
    // Recorders say in many ways that nothing is recorded there.
    if (error.errorCode() == PlaybackError::BeyondEnd || error.errorCode() == PlaybackError::StreamLost) {
        rangeEnded();
        return;
    }
    m_feed.active = false;
    refuse(error);
}

void ReplayPlayer::linkFailed(const PlaybackError &error)
{
    m_feed = {};
    m_growthTimer.stop();
    m_listener.replayFailed(error, isIdle());
    // What is there already is played meanwhile.
    advanceLater();
}

// Many frames come in one turn of the event loop: they are looked at together.
void ReplayPlayer::advanceLater()
{
    if (!std::exchange(m_queued, true))
        QMetaObject::invokeMethod(this, &ReplayPlayer::advance, Qt::QueuedConnection);
}

void ReplayPlayer::advance()
{
    m_queued = false;
    if (m_closed)
        return;
    if (m_seek)
        seek();
    if (m_wanted)
        showWanted();
    if (m_steps != 0 && !m_seek && !m_wanted)
        step();
    if (m_rate != 0.0 && m_steps == 0 && !m_seek && !m_wanted)
        play();
    regulate();
}

void ReplayPlayer::ask(bool backward, qint64 fromMs, qint64 toMs, bool bounded)
{
    m_feed = {true, false, backward, bounded, fromMs, toMs};
    m_strange = 0;
    m_buffer.restartAppending();
    m_buffer.restartPrepending();
    RangeRequest range;
    range.fromMs = fromMs;
    range.toMs = toMs;
    range.backward = backward;
    range.keyFramesOnly = m_keysOnly;
    range.keyIntervalMs = m_keysOnly ? keyInterval() * 10 / 3 : 0;
    m_link.request(range);
}

void ReplayPlayer::askForward(Time300 from, bool bounded)
{
    const qint64 ms = lastMs(from);
    ask(false, ms, bounded ? ms + windowMs() : farMs(ms), bounded);
}

void ReplayPlayer::askBackward(qint64 fromMs, bool bounded)
{
    const qint64 window = std::max(LongWindowMs / 5, windowMs());
    ask(true, fromMs, bounded ? std::max<qint64>(0, fromMs - window) : fromMs > Year2000Ms ? Year2000Ms : 0, bounded);
}

void ReplayPlayer::feedPlay(int direction)
{
    const bool backward = direction < 0;
    if (!m_buffer.isEmpty() && (m_position < m_buffer.first().time() - Second || m_position > m_buffer.last().time() + Second))
        clearBuffer();
    if (m_feed.active && m_feed.backward == backward)
        return;
    if (m_feed.ended && m_feed.backward == backward && !m_feed.bounded)
        return;
    if (m_growthTimer.isActive())
        return;
    if (!backward)
        askForward(m_buffer.isEmpty() ? m_position : m_buffer.last().time(), false);
    else
        askBackward(m_buffer.isEmpty() ? lastMs(m_position) : firstMs(m_buffer.first().time()) - 1, false);
}

// Keeps as much as is wanted soon, and holds the recorder back beyond that.
void ReplayPlayer::regulate()
{
    if (!m_feed.active || m_buffer.isEmpty()) {
        if (m_feed.active)
            m_link.setReading(true);
        return;
    }
    bool enough = m_buffer.bytes() > MaxBufferBytes;
    if (!m_seek && !m_wanted && m_steps == 0 && !m_feed.bounded) {
        const Time300 ahead = std::max<Time300>(2 * Second, Time300(std::abs(m_rate) * 1.5 * Second));
        if (m_keysOnly)
            enough = enough || (m_feed.backward ? m_buffer.framesBefore(m_position) : m_buffer.framesAfter(m_position)) >= KeyFramesAhead;
        else if (m_feed.backward)
            enough = enough || m_buffer.groupsBefore(m_position) >= 2;
        else
            enough = enough || m_buffer.last().time() - m_position > ahead;
    }
    m_link.setReading(!enough);
    if (m_seek || m_wanted)
        return;
    if (m_rate > 0 || m_buffer.bytes() > MaxBufferBytes)
        m_buffer.trimBefore(m_position, 1);
    if (m_rate < 0 || (m_rate == 0.0 && m_buffer.bytes() > MaxBufferBytes))
        m_buffer.trimAfter(m_position, 1);
}

void ReplayPlayer::clearBuffer()
{
    m_buffer.clear();
    m_decoder.clear();
    if (m_feed.active)
        m_link.rest();
    m_feed = {};
}

void ReplayPlayer::present(const FrameRef &frame, const Image &image)
{
    m_position = frame.time();
    m_hasPosition = true;
    setWaiting(false);
    m_decoder.setPlayhead(m_position, m_rate > 0 ? 1 : m_rate < 0 ? -1 : 0);
    m_listener.showRecorded(image, frame.time(), frame.frame().key);
}

void ReplayPlayer::setLimit(Limit limit)
{
    if (limit == Limit::Inside)
        m_growthAsked = 0;
    if (std::exchange(m_limit, limit) != limit)
        m_listener.limitReached(limit);
}

void ReplayPlayer::setWaiting(bool waiting)
{
    if (std::exchange(m_waiting, waiting) == waiting)
        return;
    if (waiting) {
        m_waitTimer.start(BusyDelay);
        return;
    }
    m_waitTimer.stop();
    m_listener.replayWaits(false);
}

void ReplayPlayer::refuse(const PlaybackError &error)
{
    m_seek.reset();
    m_wanted = {};
    m_steps = 0;
    m_rate = 0.0;
    m_corruptRun = 0;
    setWaiting(false);
    m_link.rest();
    m_feed.active = false;
    // What is left must be what is around the frame shown.
    if (const FrameRef shown = m_buffer.at(m_position); !shown || shown.time() != m_position)
        clearBuffer();
    m_clock->rest(m_member);
    m_listener.commandRefused(m_run, error);
    if (const auto scrub = std::exchange(m_nextScrub, std::nullopt))
        execute(*scrub);
}

qint64 ReplayPlayer::windowMs() const
{
    return std::max(ShortWindowMs, m_buffer.longestGroup() * 10 / 3);
}

qint64 ReplayPlayer::farMs(qint64 fromMs) const
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch() + m_endpoint.clockOffsetMs;
    return std::max(now, fromMs) + DayMs;
}

// Between the newest frames around the position.
Time300 ReplayPlayer::interval() const
{
    const FrameRef last = m_buffer.at(m_seek ? m_seek->time : m_position);
    const FrameRef before = last ? m_buffer.before(last.time()) : FrameRef();
    return before ? std::clamp<Time300>(last.time() - before.time(), 1, UnmarkedGap) : DefaultInterval;
}

Time300 ReplayPlayer::keyInterval() const
{
    return Time300(std::abs(m_rate) * Second / KeyFrameRate);
}

bool ReplayPlayer::isGap(const FrameRef &earlier, const FrameRef &later) const
{
    const Time300 distance = later.time() - earlier.time();
    if (m_keysOnly)
        return distance > 2 * keyInterval() + UnmarkedGap;
    const bool marked = earlier.frame().end || later.frame().discontinuity;
    return distance > (marked ? MarkedGap : UnmarkedGap);
}

} // namespace orrin::replay
