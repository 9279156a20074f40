// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/securitypreferences.h>

namespace orrin {

const QString SecurityPreferences::NAME = QStringLiteral("Security");
const QString SecurityPreferences::PUBLIC_KEY_CHECK = QStringLiteral("publicKeyCheck");

SecurityPreferences::SecurityPreferences() : AbstractPreferenceGroup(NAME)
{
    addItem(PUBLIC_KEY_CHECK, true);
    load();
}

} // namespace orrin
