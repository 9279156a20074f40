// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "site/deviceclock.h"
#include "site/site.h"

#include <QList>
#include <QObject>
#include <QTimer>

#include <deque>
#include <map>

namespace orrin::demo {

enum class EventKind { Motion, VideoLoss, Door, Login, Disk };

/*! Something that happened on a recorder. A plain value. */
struct Event
{
    EventKind kind = EventKind::Motion;
    QString source;     //!< the camera's source token, the door, the disk or the user
    int camera = 0;     //!< its id, 0 for what has none
    bool active = true; //!< it began; false: it ended
    qint64 timeMs = 0;  //!< Unix time, as the device believes it to be
};

/*!
    The events of one recorder, the newest of them, each with a number of its own. They come at a steady pace,
   as a function of time, and on command. GUI thread.
*/
class EventLog : public QObject
{
    Q_OBJECT

public:
    /*! Events that are kept. */
    static constexpr qsizetype Capacity = 4096;
    static constexpr double MaximumRate = 500;
    static constexpr double DefaultRate = 1.0 / 15;
    /*! What a command begins ends after this time. */
    static constexpr std::chrono::milliseconds CommandedTime{2000};

    /*! \a recorder outlives the log; its cameras may change. */
    EventLog(const RecorderInfo &recorder, DeviceClock clock);

    /*! Events a second from now on; 0 stops them. */
    void setRate(double perSecond);

    /*! Reports that something begins now; its end follows by itself. \a camera is for events of cameras. */
    void report(EventKind kind, int camera);

    /*! The event of a recorder that stands at \a number of a steady pace: the same one each time. */
    static Event eventAt(const RecorderInfo &recorder, qint64 number);

    /*! Numbers of the oldest event that is kept, and of the next one to come. */
    qint64 begin() const { return m_end - qint64(m_events.size()); }
    qint64 end() const { return m_end; }

    /*! \a number lies in begin() to end(). */
    const Event &at(qint64 number) const { return m_events[std::size_t(number - begin())]; }

    /*! The last event of each source that has a state. */
    QList<Event> states() const;

Q_SIGNALS:
    void appended();

private:
    void tick();
    void scheduleTick();
    void append(const Event &event);

    const RecorderInfo &m_recorder;
    DeviceClock m_clock;
    std::deque<Event> m_events;
    std::map<std::pair<EventKind, QString>, Event> m_states;
    qint64 m_end = 0;
    double m_periodMs = 0; // 0: none
    qint64 m_nextNumber = 0;
    QTimer m_timer;
};

} // namespace orrin::demo
