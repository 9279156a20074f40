// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <QDate>
#include <QObject>
#include <QString>
#include <QTime>
#include <QVariant>

#include <memory>

namespace orrin {

class QmlTimeToolsPrivate;

/*! Dates and times in an explicit zone, for QML, whose own Date knows the local zone alone. Main thread.

    A host publishes one as the context property `timeTools`. Moments are in milliseconds since the epoch. A `time_zone` holds a
    QTimeZone or converts to one; anything else counts as an invalid zone, in which no moment has a date: texts are then empty and
    numbers are what Qt gives for an invalid date. */
class ORRINSDKQML_EXPORT QmlTimeTools : public QObject
{
    Q_OBJECT
public:
    explicit QmlTimeTools(QObject *parent = nullptr);
    ~QmlTimeTools() override;

    /*! Today and the time of day in the zone that the user prefers. */
    Q_INVOKABLE QDate dateNow();
    Q_INVOKABLE QTime timeNow();

    /*! The moment as "hh:mm:ss", preceded by its date ("Tue 3 Mar 2026 ") unless that is today in the zone. */
    Q_INVOKABLE QString getTimeFromEpoch(qlonglong msSinceEpoch, const QVariant &time_zone);

    /*! True when \a date can hold no recording: it lies before the day of \a track_beginning in the zone, or after today in the zone
        that the user prefers. */
    Q_INVOKABLE bool dateUnavailable(qlonglong track_beginning, QDate date, const QVariant &time_zone);

    /*! The year, and the month from 1 to 12, of the moment in the zone; 0 in an invalid one. */
    Q_INVOKABLE int getYearFromEpoch(qlonglong msSinceEpoch, const QVariant &time_zone);
    Q_INVOKABLE int getMonthFromEpoch(qlonglong msSinceEpoch, const QVariant &time_zone);

    /*! Compares the moments at which the two days begin in the zone. */
    Q_INVOKABLE bool datesEqual(QDate date_left, QDate date_right, const QVariant &time_zone);

private:
    Q_DISABLE_COPY_MOVE(QmlTimeTools)

    std::unique_ptr<QmlTimeToolsPrivate> d_ptr;
};

} // namespace orrin
