// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/soapreply.h"
#include "site/eventlog.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace orrin::demo {

/*!
    The pull points of one recorder: who subscribed, how far each has read, and who waits for what comes next.
   A subscription holds a place in the event log and no events of its own; one that reads too slowly misses
   what the log dropped. It belongs to the user who made it. GUI thread.
*/
class PullPoints : public QObject
{
    Q_OBJECT

public:
    using Milliseconds = std::chrono::milliseconds;

    static constexpr std::size_t MaximumCount = 64;
    static constexpr Milliseconds DefaultLifetime{60000};
    static constexpr Milliseconds ShortestLifetime{5000};
    static constexpr Milliseconds LongestLifetime{3600000};
    static constexpr Milliseconds LongestWait{30000};
    static constexpr int MaximumMessages = 1024;

    /*! One event of an answer; a state is told when somebody asks what it is, not because it changed. */
    struct Message
    {
        Event event;
        bool isState = false;
    };
    /*! Sends an answer to a pull; the subscription lasts for the time given. */
    using Answer = std::function<void(SoapReply, const QList<Message> &, Milliseconds)>;
    /*! Whether the events of this camera are for this user. */
    using Permission = std::function<bool(const Event &, const QString &user)>;

    /*! \a log outlives the object. */
    PullPoints(EventLog &log, Permission permission, Answer answer);
    ~PullPoints() override;

    /*! The id of a new subscription, or nothing when there are too many. Without a lifetime it lasts for the
        default one, and each pull prolongs it. */
    std::optional<QString> create(const QString &user, std::optional<Milliseconds> lifetime);
    /*! False when \a user has no such subscription. */
    bool renew(const QString &id, const QString &user, Milliseconds lifetime);
    bool remove(const QString &id, const QString &user);
    bool synchronise(const QString &id, const QString &user);
    /*! Answers as soon as there are events, or after \a wait with none. A second pull ends the first. */
    bool pull(const QString &id, const QString &user, Milliseconds wait, int limit, SoapReply &reply);

    /*! Forgets all subscriptions; what waits gets no answer. */
    void reset() { m_points.clear(); }
    std::size_t count() const { return m_points.size(); }
    /*! How many were made since the start. */
    int madeCount() const { return m_made; }

private:
    struct Waiting
    {
        SoapReply reply;
        int limit = 0;
        std::unique_ptr<QTimer> timer;
    };
    struct Point
    {
        QString user;
        qint64 next = 0;
        QList<Event> states; // to be told before anything else
        bool livesByPulls = false;
        std::chrono::steady_clock::time_point end;
        std::optional<Waiting> waiting;
    };

    Point *find(const QString &id, const QString &user);
    QList<Message> take(Point &point, int limit);
    void extend(Point &point, Milliseconds lifetime);
    static Milliseconds remaining(const Point &point);
    void finish(Point &point, const QList<Message> &messages);
    void answerWaiting();
    void removeExpired();

    EventLog &m_log;
    Permission m_permission;
    Answer m_answer;
    std::map<QString, Point> m_points;
    int m_made = 0;
    QTimer m_sweep;
};

} // namespace orrin::demo
