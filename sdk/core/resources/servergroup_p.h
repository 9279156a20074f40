// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QString>

#include <map>

namespace orrin {

class Server;

/*! What a ServerGroup holds. The servers are children of the group. */
class ORRINSDK_CORE_EXPORT ServerGroupPrivate
{
public:
    /*! The id for a new server that would like \a wanted: that one, or the lowest free one when it is taken
     * or below 1. */
    int freeServerId(int wanted) const;

    int id = 0;
    /*! What the group is known by: its uid, or one made from the server's for a server alone. */
    QString key;
    QString name;
    std::map<int, Server *> servers;
};

} // namespace orrin
