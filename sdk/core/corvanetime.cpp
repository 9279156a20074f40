// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/corvanetime.h>

namespace orrin {

namespace {

QTimeZone &chosenTimezone()
{
    static QTimeZone zone;
    return zone;
}

} // namespace

QTimeZone CorvaneTime::preferredTimezone()
{
    if (chosenTimezone().isValid())
        return chosenTimezone();
    // A system without zone data has no valid zone of its own.
    const QTimeZone system = QTimeZone::systemTimeZone();
    return system.isValid() ? system : QTimeZone::utc();
}

void CorvaneTime::setPreferredTimezone(const QTimeZone &zone)
{
    chosenTimezone() = zone;
}

} // namespace orrin
