// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/pullpoints.h"

#include <QUuid>

#include <algorithm>

namespace orrin::demo {

PullPoints::PullPoints(EventLog &log, Permission permission, Answer answer)
    : m_log(log), m_permission(std::move(permission)), m_answer(std::move(answer))
{
    connect(&m_log, &EventLog::appended, this, &PullPoints::answerWaiting);
    connect(&m_sweep, &QTimer::timeout, this, &PullPoints::removeExpired);
    m_sweep.start(std::chrono::seconds(1));
}

PullPoints::~PullPoints() = default;

std::optional<QString> PullPoints::create(const QString &user, std::optional<Milliseconds> lifetime)
{
    removeExpired();
    if (m_points.size() >= MaximumCount)
        return std::nullopt;
    const QString id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    Point &point = m_points[id];
    point.user = user;
    point.next = m_log.end();
    point.states = m_log.states();
    point.livesByPulls = !lifetime;
    extend(point, lifetime.value_or(DefaultLifetime));
    ++m_made;
    return id;
}

bool PullPoints::renew(const QString &id, const QString &user, Milliseconds lifetime)
{
    Point *point = find(id, user);
    if (point)
        extend(*point, lifetime);
    return point != nullptr;
}

bool PullPoints::remove(const QString &id, const QString &user)
{
    Point *point = find(id, user);
    if (!point)
        return false;
    finish(*point, {});
    m_points.erase(id);
    return true;
}

bool PullPoints::synchronise(const QString &id, const QString &user)
{
    Point *point = find(id, user);
    if (!point)
        return false;
    point->states = m_log.states();
    answerWaiting();
    return true;
}

bool PullPoints::pull(const QString &id, const QString &user, Milliseconds wait, int limit, SoapReply &reply)
{
    Point *point = find(id, user);
    if (!point)
        return false;
    finish(*point, {});
    if (point->livesByPulls)
        extend(*point, DefaultLifetime);
    Waiting waiting{std::move(reply), std::clamp(limit, 1, MaximumMessages), nullptr};
    const QList<Message> messages = take(*point, waiting.limit);
    if (!messages.isEmpty() || wait <= Milliseconds::zero()) {
        m_answer(std::move(waiting.reply), messages, remaining(*point));
        return true;
    }
    waiting.timer = std::make_unique<QTimer>();
    waiting.timer->setSingleShot(true);
    connect(waiting.timer.get(), &QTimer::timeout, this, [this, id, user] {
        if (Point *late = find(id, user))
            finish(*late, {});
    });
    waiting.timer->start(std::min(wait, LongestWait));
    point->waiting.emplace(std::move(waiting));
    return true;
}

PullPoints::Point *PullPoints::find(const QString &id, const QString &user)
{
    const auto found = m_points.find(id);
    return found == m_points.end() || found->second.user != user ? nullptr : &found->second;
}

QList<PullPoints::Message> PullPoints::take(Point &point, int limit)
{
    QList<Message> messages;
    while (!point.states.isEmpty() && messages.size() < limit) {
        const Event event = point.states.takeFirst();
        if (m_permission(event, point.user))
            messages.append({event, true});
    }
    for (point.next = std::max(point.next, m_log.begin());
         point.next < m_log.end() && messages.size() < limit; ++point.next) {
        const Event &event = m_log.at(point.next);
        if (m_permission(event, point.user))
            messages.append({event, false});
    }
    return messages;
}

void PullPoints::extend(Point &point, Milliseconds lifetime)
{
    point.end =
        std::chrono::steady_clock::now() + std::clamp(lifetime, ShortestLifetime, LongestLifetime);
}

PullPoints::Milliseconds PullPoints::remaining(const Point &point)
{
    const auto time = point.end - std::chrono::steady_clock::now();
    return std::max(Milliseconds::zero(), std::chrono::duration_cast<Milliseconds>(time));
}

void PullPoints::finish(Point &point, const QList<Message> &messages)
{
    if (!point.waiting)
        return;
    Waiting waiting = std::move(*point.waiting);
    point.waiting.reset();
    // This may be the timer's own signal.
    waiting.timer.release()->deleteLater();
    m_answer(std::move(waiting.reply), messages, remaining(point));
}

void PullPoints::answerWaiting()
{
    for (auto &[id, point] : m_points) {
        if (!point.waiting)
            continue;
        const QList<Message> messages = take(point, point.waiting->limit);
        if (!messages.isEmpty())
            finish(point, messages);
    }
}

void PullPoints::removeExpired()
{
    const auto now = std::chrono::steady_clock::now();
    std::erase_if(m_points, [this, now](auto &entry) {
        if (entry.second.end > now)
            return false;
        finish(entry.second, {});
        return true;
    });
}

} // namespace orrin::demo
