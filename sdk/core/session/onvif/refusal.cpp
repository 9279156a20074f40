// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/refusal.h"

#include <algorithm>
#include <limits>

namespace orrin {

std::optional<Refusal> Refusal::fromName(QStringView name, qint64 seconds)
{
    Refusal refusal;
    if (name == u"TooManyConnections")
        refusal.reason = Reason::TooManyConnections;
    else if (name == u"OutsideHours")
        refusal.reason = Reason::OutsideHours;
    else if (name == u"AccountLocked")
        refusal.reason = Reason::AccountLocked;
    else if (name == u"AddressNotPermitted")
        refusal.reason = Reason::AddressNotPermitted;
    else
        return {};
    refusal.seconds = static_cast<int>(std::clamp<qint64>(seconds, 0, std::numeric_limits<int>::max()));
    return refusal;
}

} // namespace orrin
