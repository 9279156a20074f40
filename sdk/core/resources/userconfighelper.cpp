// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/userconfighelper.h>

namespace orrin {

UserConfigHelper::UserConfigHelper(std::variant<UserId, UserLId> user, const QSet<ChannelUID> &notPermitted)
    : m_user(user), m_notPermitted(notPermitted)
{
}

std::pair<UserConfigError, bool>
UserConfigHelper::isNotPermittedCameraForUser(std::variant<UserId, UserLId> user, ChannelUID channel) const
{
    if (user != m_user)
        return {UserConfigError::UnknownUser, false};
    return {UserConfigError::NoError, m_notPermitted.contains(channel)};
}

} // namespace orrin
