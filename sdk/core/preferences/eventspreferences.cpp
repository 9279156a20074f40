// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/eventspreferences.h>

namespace orrin {

const QString EventsPreferences::NAME = QStringLiteral("Events");
const QString EventsPreferences::MAXIMUM_ROWS = QStringLiteral("maximumRows");

EventsPreferences::EventsPreferences() : AbstractPreferenceGroup(NAME)
{
    addItem(MAXIMUM_ROWS, 500);
    load();
}

} // namespace orrin
