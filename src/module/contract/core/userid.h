// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! A user of the whole group. */
struct UserId
{
    int id = 0;
    friend bool operator==(const UserId &, const UserId &) = default;
};

/*! A user of one server alone: the server's id and the user's id there. */
struct UserLId
{
    int serverId = 0;
    int id = 0;
    friend bool operator==(const UserLId &, const UserLId &) = default;
};

} // namespace orrin
