// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/events/eventcauses.h"
#include "core/session/eventdescription.h"

#include <contract/core/export.h>

#include <QColor>
#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <deque>

namespace orrin {

class EventModel;

/*! One event as the live list shows it. A value. */
struct EventRecord
{
    QString cause;
    QString serverName;
    QString sourceName;
    QDateTime time; //!< in the server's zone
    QColor causeColor;
    quint64 serverUid = 0;
    int channelId = -1;
    QString baseCause; //!< the cause of beginning and end alike; empty: as cause
    QString sourceId;  //!< what the device calls the source
    QString text;
    EventDescription::State state = EventDescription::State::Momentary;
    int sortId = -1;
    quint64 id = 0;             //!< given by the list: unique, ascending
    quint64 instanceNumber = 0; //!< given by the list: counts the events of the server, from 1
};

/*! What an EventModel holds: the newest events, first the newest. Main thread. */
class ORRINSDK_CORE_EXPORT EventModelPrivate
{
public:
    /*! Rows that are kept whatever the preferences say. */
    static constexpr int HardLimit = 10000;

    explicit EventModelPrivate(EventModel *q) : q(q) {}

    /*! Puts \a record at the top and drops the oldest rows above maximumRows(). */
    void append(const EventRecord &record) { append(QList<EventRecord>{record}); }
    /*! The same for several, oldest first, as one insertion. */
    void append(const QList<EventRecord> &batch);
    void noteCauses(quint64 serverUid, const QStringList &list) { causes.note(serverUid, list); }
    /*! The limit of the preferences, between 1 and HardLimit; 500 without any. */
    int maximumRows() const;

    EventModel *q;
    std::deque<EventRecord> records;
    EventCauses causes;

private:
    /*! Makes room, so that the list is never longer than its limit. */
    void shrinkTo(int rows);

    quint64 m_lastId = 0;
    QHash<quint64, quint64> m_counts; // of events by server
};

} // namespace orrin
