// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/resourcelookup_p.h"

#include <contract/core/channel.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/core/track.h>

namespace orrin {

ConnectionManager *findConnectionManager()
{
    const QPointer<OrrinSDK> sdk = OrrinSDK::instance();
    return sdk ? sdk->connectionManager() : nullptr;
}

ServerGroup *findServerGroup(int serverGroupId)
{
    const ConnectionManager *manager = findConnectionManager();
    return manager ? manager->serverGroup(serverGroupId) : nullptr;
}

Server *findServer(int serverGroupId, int serverId)
{
    const ServerGroup *group = findServerGroup(serverGroupId);
    return group ? group->serverById(serverId) : nullptr;
}

Channel *findChannel(int serverGroupId, int serverId, int channelId)
{
    const Server *server = findServer(serverGroupId, serverId);
    return server ? server->channelById(channelId) : nullptr;
}

Track *findTrack(int serverGroupId, int serverId, int channelId, int trackId)
{
    const Channel *channel = findChannel(serverGroupId, serverId, channelId);
    return channel ? channel->track(trackId) : nullptr;
}

} // namespace orrin
