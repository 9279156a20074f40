// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/publickeypolicy.h"

#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>
#include <contract/core/securitypreferences.h>

namespace orrin {

bool isPublicKeyCheckOn()
{
    const OrrinSDK *sdk = OrrinSDK::instance();
    const auto group = sdk ? sdk->preferences()->preferenceGroup(SecurityPreferences::NAME) : nullptr;
    const auto item = group ? group->item(SecurityPreferences::PUBLIC_KEY_CHECK, QString()) : nullptr;
    return !item || item->value().toBool();
}

} // namespace orrin
