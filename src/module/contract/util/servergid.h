// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <compare>

namespace orrin {

/*! Names a server by its group's id and its own id inside the group; -1 is unset. */
struct ServerGID
{
    constexpr ServerGID(int group, int server) : groupId(group), serverId(server) {}

    int groupId;
    int serverId;

    friend auto operator<=>(const ServerGID &, const ServerGID &) = default;
};

} // namespace orrin
