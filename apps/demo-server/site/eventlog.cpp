// SPDX-License-Identifier: GPL-3.0-or-later
#include "site/eventlog.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 ShortestTickMs = 20;
constexpr qint64 LongestTickMs = 60000;
constexpr std::size_t MaximumStates = 512;

bool hasState(EventKind kind)
{
    return kind != EventKind::Login;
}

QString sourceOf(EventKind kind, int camera, qint64 number)
{
    static const QStringList users{u"admin"_s, u"operator"_s, u"guest"_s};
    switch (kind) {
    case EventKind::Motion:
    case EventKind::VideoLoss:
        return u"VS_%1"_s.arg(camera);
    case EventKind::Door:
        return u"Door %1"_s.arg(number % 2 + 1);
    case EventKind::Login:
        return users.at(number % users.size());
    case EventKind::Disk:
        return u"Disk %1"_s.arg(number % 4 + 1);
    }
    return {};
}

} // namespace

EventLog::EventLog(const RecorderInfo &recorder, DeviceClock clock) : m_recorder(recorder), m_clock(clock)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &EventLog::tick);
    setRate(DefaultRate);
}

void EventLog::setRate(double perSecond)
{
    m_timer.stop();
    m_periodMs = perSecond > 0 ? 1000.0 / std::min(perSecond, MaximumRate) : 0;
    if (m_periodMs <= 0)
        return;
    m_nextNumber = qint64(std::floor(double(m_clock.nowMs()) / m_periodMs)) + 1;
    scheduleTick();
}

void EventLog::scheduleTick()
{
    const qint64 due = qint64(double(m_nextNumber) * m_periodMs) - m_clock.nowMs();
    m_timer.start(std::chrono::milliseconds(std::clamp(due, ShortestTickMs, LongestTickMs)));
}

void EventLog::tick()
{
    const qint64 last = qint64(std::floor(double(m_clock.nowMs()) / m_periodMs));
    // After a jump of the clock the events between are left out.
    m_nextNumber = std::max(m_nextNumber, last - qint64(MaximumRate));
    const qint64 before = m_end;
    for (; m_nextNumber <= last; ++m_nextNumber) {
        Event event = eventAt(m_recorder, m_nextNumber);
        event.timeMs = qint64(double(m_nextNumber) * m_periodMs);
        append(event);
    }
    scheduleTick();
    if (m_end != before)
        Q_EMIT appended();
}

Event EventLog::eventAt(const RecorderInfo &recorder, qint64 number)
{
    // What begins at an even number ends at the odd one that follows.
    static constexpr std::array Cycle{EventKind::Motion, EventKind::Door,   EventKind::Motion,
                                      EventKind::Login,  EventKind::Motion, EventKind::VideoLoss,
                                      EventKind::Motion, EventKind::Disk};
    const qint64 pair = number / 2;
    Event event;
    event.kind = Cycle[std::size_t(pair % qint64(Cycle.size()))];
    event.active = number % 2 == 0 || !hasState(event.kind);
    const bool ofCamera = event.kind == EventKind::Motion || event.kind == EventKind::VideoLoss;
    if (ofCamera && recorder.cameras.isEmpty())
        event.kind = EventKind::Door;
    else if (ofCamera)
        event.camera = recorder.cameras.at((pair / 2) % recorder.cameras.size()).id;
    event.source = sourceOf(event.kind, event.camera, pair / qint64(Cycle.size()));
    return event;
}

void EventLog::report(EventKind kind, int camera)
{
    Event event{kind, sourceOf(kind, camera, 0), camera, true, m_clock.nowMs()};
    append(event);
    Q_EMIT appended();
    if (!hasState(kind))
        return;
    QTimer::singleShot(CommandedTime, this, [this, event]() mutable {
        event.active = false;
        event.timeMs = m_clock.nowMs();
        append(event);
        Q_EMIT appended();
    });
}

void EventLog::append(const Event &event)
{
    m_events.push_back(event);
    ++m_end;
    if (qsizetype(m_events.size()) > Capacity)
        m_events.pop_front();
    const auto key = std::pair(event.kind, event.source);
    if (hasState(event.kind) && (m_states.size() < MaximumStates || m_states.contains(key)))
        m_states[key] = event;
}

QList<Event> EventLog::states() const
{
    QList<Event> states;
    for (const auto &[key, event] : m_states)
        states.append(event);
    return states;
}

} // namespace orrin::demo
