// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QTimeZone>

namespace orrin {

/*! How the user wants times shown. Main thread. */
class ORRINSDK_CORE_EXPORT CorvaneTime
{
public:
    /*! The zone that the user has chosen for display; the zone of the system while none was chosen. Always valid. */
    static QTimeZone preferredTimezone();
    /*! Chooses \a zone for the life of the process; an invalid one returns to the zone of the system. */
    static void setPreferredTimezone(const QTimeZone &zone);

    CorvaneTime() = delete;
};

} // namespace orrin
