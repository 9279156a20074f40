// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/time300.h>

#include <QTimeZone>

#include <limits>

namespace orrin {

namespace {

constexpr long long CountsPer100Ms = 30;
constexpr long long MsPer3Counts = 10;

constexpr long long roundedDivision(long long value, long long divisor)
{
    return (value >= 0 ? value + divisor / 2 : value - divisor / 2) / divisor;
}

} // namespace

QDateTime time300ToDateTimeUTC(long long time)
{
    // Whole groups of three counts first, so that nothing overflows below the range of the result.
    constexpr long long Limit = std::numeric_limits<long long>::max() / MsPer3Counts - 1;
    const long long groups = qBound(-Limit, time / 3, Limit);
    const long long ms = groups * MsPer3Counts + roundedDivision((time % 3) * MsPer3Counts, 3);
    return QDateTime::fromMSecsSinceEpoch(ms, QTimeZone::utc());
}

long long dateTimeToTime300(const QDateTime &dateTime)
{
    if (!dateTime.isValid())
        return 0;
    const long long ms = dateTime.toMSecsSinceEpoch();
    return (ms / 100) * CountsPer100Ms + roundedDivision((ms % 100) * CountsPer100Ms, 100);
}

} // namespace orrin
