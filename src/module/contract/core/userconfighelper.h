// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/userid.h>
#include <contract/util/channeluid.h>

#include <QSet>

#include <utility>
#include <variant>

namespace orrin {

/*! Outcome of a question about a user's configuration. */
enum class UserConfigError : int { NoError = 0, UnknownUser = 1, NotAvailable = 2 };

/*! Answers questions about what users may do. Main thread. */
class ORRINSDK_CORE_EXPORT UserConfigHelper
{
public:
    /*! \a user is the one whose restrictions are known: that of the session. */
    UserConfigHelper(std::variant<UserId, UserLId> user, const QSet<ChannelUID> &notPermitted);

    /*! The bool is true when the user may not see the camera. Another user gives UnknownUser and false. */
    std::pair<UserConfigError, bool> isNotPermittedCameraForUser(std::variant<UserId, UserLId> user,
                                                                ChannelUID channel) const;

private:
    std::variant<UserId, UserLId> m_user;
    QSet<ChannelUID> m_notPermitted;
};

} // namespace orrin
