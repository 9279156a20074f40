// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/abstractpreferencegroup.h>

namespace orrin {

/*! Options of the live event list. */
class ORRINSDK_CORE_EXPORT EventsPreferences : public AbstractPreferenceGroup
{
    Q_OBJECT
public:
    static const QString NAME;
    /*! How many rows the live list keeps. */
    static const QString MAXIMUM_ROWS;

    EventsPreferences();
};

} // namespace orrin
