// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QColor>
#include <QDateTime>
#include <QHash>
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
};

/*! What an EventModel holds: the newest events, first the newest. Main thread. */
class ORRINSDK_CORE_EXPORT EventModelPrivate
{
public:
    /*! Rows that are kept whatever the preferences say. */
    static constexpr int HardLimit = 10000;

    explicit EventModelPrivate(EventModel *q) : q(q) {}

    /*! Puts \a record at the top and drops the oldest rows above maximumRows(). */
    void append(const EventRecord &record);
    /*! The limit of the preferences, between 1 and HardLimit; 500 without any. */
    int maximumRows() const;

    /*! Causes that are remembered for one server. */
    static constexpr qsizetype CauseLimit = 256;

    EventModel *q;
    std::deque<EventRecord> records;
    QHash<quint64, QStringList> causes; //!< by server uid, each once, in the order in which they came
};

} // namespace orrin
