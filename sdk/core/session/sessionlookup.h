// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/util/channeluid.h>

namespace orrin {

class Channel;
class Session;

/*! The session behind the server of that uid; null when there is none, as after a time-out of the user. Main
    thread. The pointer is borrowed: hold it in a QPointer beyond the call, since a new login of the user
    replaces the session. */
ORRINSDK_CORE_EXPORT Session *sessionForServer(unsigned long long uid);

/*! The channel of that uid; null when absent. Main thread. The pointer is borrowed: hold it in a QPointer
 * beyond the call. */
ORRINSDK_CORE_EXPORT Channel *channelForUid(ChannelUID uid);

} // namespace orrin
