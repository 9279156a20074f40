// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>

#include <QDateTime>

namespace orrin {

/*! A moment as a signed count of 1/300 s since 1970-01-01T00:00:00 UTC.

    300 is divisible by 25, 30, 50, 60 and 15, so that frame times at the usual rates are whole numbers. A duration in
    the same unit has the same type. */
using Time300 = long long;

/*! The moment \a time in UTC, rounded to the nearest millisecond. Safe from any thread. */
ORRINSDK_UTIL_EXPORT QDateTime time300ToDateTimeUTC(long long time);

/*! The count for \a dateTime, whatever its zone, rounded to the nearest 1/300 s; 0 for an invalid one.
    Converting a count to a date and back yields the same count. Safe from any thread. */
ORRINSDK_UTIL_EXPORT long long dateTimeToTime300(const QDateTime &dateTime);

} // namespace orrin
