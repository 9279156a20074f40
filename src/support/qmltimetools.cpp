// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/qmltimetools.h"

#include "support/qmltimetools_p.h"

#include <contract/core/corvanetime.h>

#include <QDateTime>
#include <QTimeZone>

namespace orrin {

namespace {

QDateTime preferredNow()
{
    return QDateTime::currentDateTimeUtc().toTimeZone(CorvaneTime::preferredTimezone());
}

QDate dateInZone(qlonglong msSinceEpoch, const QTimeZone &zone)
{
    return QDateTime::fromMSecsSinceEpoch(msSinceEpoch, zone).date();
}

} // namespace

QmlTimeTools::QmlTimeTools(QObject *parent)
    : QObject(parent)
    , d_ptr(new QmlTimeToolsPrivate{this})
{
}

QmlTimeTools::~QmlTimeTools() = default;

QDate QmlTimeTools::dateNow()
{
    return preferredNow().date();
}

QTime QmlTimeTools::timeNow()
{
    return preferredNow().time();
}

QString QmlTimeTools::getTimeFromEpoch(qlonglong msSinceEpoch, const QVariant &time_zone)
{
    const QTimeZone zone = time_zone.value<QTimeZone>();
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(msSinceEpoch, zone);
    const QString text = moment.toString(QStringLiteral("hh:mm:ss"));
    const QDate today = QDateTime::currentDateTime(zone).date();
    if (moment.date() == today)
        return text;
    return moment.date().toString(QStringLiteral("ddd d MMM yyyy ")) + text;
}

bool QmlTimeTools::dateUnavailable(qlonglong track_beginning, QDate date, const QVariant &time_zone)
{
    const QTimeZone zone = time_zone.value<QTimeZone>();
    const QDate first = dateInZone(track_beginning, zone);
    const QDate day = QDateTime(date, QTime(0, 0, 0, 0), zone).date();
    if (first > day)
        return true;
    // Today is the user's, not that of the zone: near midnight the two differ, and the calendar follows the user.
    return day > dateNow();
}

int QmlTimeTools::getYearFromEpoch(qlonglong msSinceEpoch, const QVariant &time_zone)
{
    return dateInZone(msSinceEpoch, time_zone.value<QTimeZone>()).year();
}

int QmlTimeTools::getMonthFromEpoch(qlonglong msSinceEpoch, const QVariant &time_zone)
{
    return dateInZone(msSinceEpoch, time_zone.value<QTimeZone>()).month();
}

bool QmlTimeTools::datesEqual(QDate date_left, QDate date_right, const QVariant &time_zone)
{
    const QTimeZone zone = time_zone.value<QTimeZone>();
    return date_left.startOfDay(zone) == date_right.startOfDay(zone);
}

} // namespace orrin
