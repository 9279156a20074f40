// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/streamsynchroniser.h"

#include "core/stream/replay/replaytime.h"

#include <contract/core/playbackerror.h>

#include <QHash>
#include <QPointer>
#include <QWeakPointer>

#include <algorithm>
#include <cmath>

namespace orrin {

using replay::ReplayCommand;

namespace {

using Kind = PlaybackCommand::Kind;
using Place = ReplayCommand::Place;

constexpr double MaxRate = 1024.0;

QHash<int, QWeakPointer<StreamSynchroniser>> &contexts()
{
    static QHash<int, QWeakPointer<StreamSynchroniser>> map;
    return map;
}

PlayMode modeOf(double rate)
{
    if (rate == 0.0)
        return PlayMode::Paused;
    if (rate < 0.0)
        return PlayMode::Rewind;
    return rate > 2.0 ? PlayMode::FastForward : PlayMode::Play;
}

int seekSpeedOf(double rate)
{
    if (rate > 0.0 && rate <= 2.0)
        return 1;
    return int(rate);
}

} // namespace

StreamSynchroniser::StreamSynchroniser(const StreamTiming &timing)
    : m_timing(timing)
    , m_clock(std::make_shared<replay::SyncClock>())
{
    m_scrubEnd.setSingleShot(true);
    connect(&m_scrubEnd, &QTimer::timeout, this, [this] {
        // The rate stays what it was before the drag.
        if (m_rate != 0.0 && !m_streams.empty())
            play(m_streams.front(), std::nullopt, m_rate);
    });
}

StreamSynchroniser::~StreamSynchroniser() = default;

QSharedPointer<StreamSynchroniser> StreamSynchroniser::forContext(int syncContextId, const StreamTiming &timing)
{
    if (syncContextId < 1)
        return QSharedPointer<StreamSynchroniser>::create(timing);
    QWeakPointer<StreamSynchroniser> &known = contexts()[syncContextId];
    QSharedPointer<StreamSynchroniser> synchroniser = known.toStrongRef();
    if (!synchroniser) {
        synchroniser = QSharedPointer<StreamSynchroniser>::create(timing);
        known = synchroniser;
    }
    contexts().removeIf([](const auto &entry) { return entry.value().isNull(); });
    return synchroniser;
}

void StreamSynchroniser::join(SynchronisedStream *stream)
{
    if (std::ranges::find(m_streams, stream) == m_streams.end())
        m_streams.push_back(stream);
}

void StreamSynchroniser::leave(SynchronisedStream *stream)
{
    std::erase(m_streams, stream);
    if (m_stepping == stream)
        m_stepping = nullptr;
    if (!m_streams.empty())
        return;
    m_current.reset();
    m_rate = 1.0;
    m_scrubEnd.stop();
}

void StreamSynchroniser::execute(SynchronisedStream *leader, const PlaybackCommand &command)
{
    const bool wasScrubbing = m_scrubEnd.isActive();
    m_scrubEnd.stop();
    ++m_question;
    m_stepping = nullptr;
    switch (command.kind) {
    case Kind::Live:
        m_rate = 1.0;
        m_current.reset();
        for (SynchronisedStream *stream : std::vector(m_streams))
            stream->playLive();
        return;
    case Kind::Pause:
        m_rate = 0.0;
        if (leader->isLive()) {
            for (SynchronisedStream *stream : std::vector(m_streams))
                stream->holdLive();
        } else {
            play(leader, std::nullopt, 0.0);
        }
        return;
    case Kind::Play:
        // At the live edge there is nothing to play faster or slower from, and play alone changes nothing.
        if (leader->isLive() && m_rate != 0.0 && command.speed == 1.0 && command.time == SPInputControlInterface::FromHere)
            return;
        m_rate = command.speed;
        play(leader, command.time == SPInputControlInterface::FromHere ? std::nullopt : std::optional(command.time), m_rate);
        return;
    case Kind::Rewind:
    case Kind::FastForward:
        m_rate = std::min(command.speed, MaxRate) * (command.kind == Kind::Rewind ? -1 : 1);
        play(leader, std::nullopt, m_rate);
        return;
    case Kind::StepBack:
    case Kind::StepForward:
        m_rate = 0.0;
        step(leader, command.kind == Kind::StepBack ? -1 : 1);
        return;
    case Kind::JumpToStart:
    case Kind::JumpToEnd:
        m_rate = 0.0;
        goToLimit(leader, command.kind == Kind::JumpToStart);
        return;
    case Kind::Jump:
        goTo(leader, command.time, Place::At, false);
        return;
    case Kind::Scrub:
        Q_UNUSED(wasScrubbing)
        goTo(leader, command.time, Place::At, true);
        m_scrubEnd.start(m_timing.scrubEnd);
        return;
    }
}

Time300 StreamSynchroniser::positionOf(SynchronisedStream *leader) const
{
    const bool company = m_streams.size() > 1 && m_current && m_current->rate != 0.0 && !leader->isLive();
    return company ? m_clock->now() : leader->position();
}

void StreamSynchroniser::play(SynchronisedStream *leader, std::optional<Time300> target, double rate)
{
    if (target && !replay::isPossible(*target)) {
        leader->refuseCommand(PlaybackError::NotFound);
        return;
    }
    ReplayCommand command;
    command.target = target;
    command.here = positionOf(leader);
    command.rate = rate;
    run(leader, command, command, modeOf(rate));
}

void StreamSynchroniser::goTo(SynchronisedStream *leader, Time300 time, Place place, bool scrub)
{
    if (!replay::isPossible(time)) {
        leader->refuseCommand(time < 0 ? PlaybackError::NotFound : PlaybackError::BeyondEnd);
        return;
    }
    ReplayCommand command;
    command.target = time;
    command.place = place;
    command.scrub = scrub;
    command.rate = scrub ? 0.0 : m_rate;
    command.here = time;
    ReplayCommand following = command;
    following.place = Place::At;
    run(leader, command, following, scrub ? PlayMode::Scrub : modeOf(m_rate));
}

void StreamSynchroniser::goToLimit(SynchronisedStream *leader, bool begin)
{
    const quint32 question = m_question;
    leader->requestBounds([this, leader, begin, question](const std::optional<TrackBounds> &bounds) {
        if (question != m_question || std::ranges::find(m_streams, leader) == m_streams.end())
            return;
        if (!bounds || bounds->end() <= bounds->begin())
            leader->refuseCommand(PlaybackError::NotFound);
        else if (begin)
            goTo(leader, bounds->begin(), Place::Beginning, false);
        else
            goTo(leader, bounds->end(), Place::End, false);
    });
}

void StreamSynchroniser::step(SynchronisedStream *leader, int steps)
{
    ReplayCommand command;
    command.steps = steps;
    command.here = positionOf(leader);
    m_stepping = m_streams.size() > 1 ? leader : nullptr;
    ReplayCommand following;
    following.here = command.here;
    run(leader, command, following, PlayMode::Step);
}

void StreamSynchroniser::arrived(SynchronisedStream *stream, quint32 run, Time300 time)
{
    if (stream != m_stepping || run != m_run)
        return;
    m_stepping = nullptr;
    ReplayCommand command;
    command.run = m_run;
    command.target = time;
    command.here = time;
    m_current = command;
    for (SynchronisedStream *each : std::vector(m_streams)) {
        if (each != stream)
            each->playRecorded(command, PlayMode::Step, 0);
    }
}

void StreamSynchroniser::run(SynchronisedStream *leader, const ReplayCommand &leading, const ReplayCommand &following, PlayMode mode)
{
    ++m_run;
    m_fromLive = leader->isLive();
    m_clock->prepare(m_run, leading.target.value_or(leading.here), leading.rate);
    m_current = leading;
    m_current->run = m_run;
    m_current->scrub = false;
    const int speed = mode == PlayMode::Step || mode == PlayMode::Scrub ? 0 : seekSpeedOf(leading.rate);
    for (SynchronisedStream *stream : std::vector(m_streams)) {
        ReplayCommand command = stream == leader ? leading : following;
        command.run = m_run;
        stream->playRecorded(command, mode, speed);
    }
}

bool StreamSynchroniser::refused(SynchronisedStream *stream, quint32 run)
{
    if (run != m_run || m_streams.size() != 1)
        return false;
    if (!m_current || !m_current->target || m_rate == 0.0) {
        m_rate = 0.0;
        return false;
    }
    m_scrubEnd.stop();
    if (m_fromLive) {
        m_current.reset();
        stream->playLive();
    } else {
        play(stream, std::nullopt, m_rate);
    }
    return true;
}

void StreamSynchroniser::stopped(SynchronisedStream *)
{
    if (m_streams.size() == 1)
        m_rate = 0.0;
}

std::optional<ReplayCommand> StreamSynchroniser::current() const
{
    if (!m_current)
        return std::nullopt;
    ReplayCommand command = *m_current;
    command.steps = 0;
    if (command.rate != 0.0)
        command.target = m_clock->now();
    else if (!command.target)
        command.target = command.here;
    return command;
}

} // namespace orrin
