// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/sessionlookup.h"

#include "core/connectionmanager_p.h"
#include "core/resources/server_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>

namespace orrin {

namespace {

Server *serverForUid(unsigned long long uid)
{
    const OrrinSDK *sdk = OrrinSDK::instance();
    return sdk ? sdk->connectionManager()->d_func()->serverByUid(uid) : nullptr;
}

} // namespace

Session *sessionForServer(unsigned long long uid)
{
    const Server *server = serverForUid(uid);
    return server ? server->d_func()->session.data() : nullptr;
}

Channel *channelForUid(ChannelUID uid)
{
    const Server *server = serverForUid(uid.serverUid);
    return server ? server->channelById(uid.channelId) : nullptr;
}

} // namespace orrin
