// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>

#include <array>
#include <cstddef>

namespace orrin {

class Channel;
class ConnectionManager;
class Server;
class ServerGroup;
class Track;

/*! The ways from ids to the core's objects. Each is null when any step on the way is absent, also before the root object
    exists and while it ends. The pointers are borrowed for the call. Main thread. */
ConnectionManager *findConnectionManager();
ServerGroup *findServerGroup(int serverGroupId);
Server *findServer(int serverGroupId, int serverId);
Channel *findChannel(int serverGroupId, int serverId, int channelId);
Track *findTrack(int serverGroupId, int serverId, int channelId, int trackId);

/*! Emits \a changes of \a object in their order, and stops when a handler deletes the object. */
template <class T, std::size_t N>
void emitAll(const QPointer<T> &object, const std::array<void (T::*)(), N> &changes)
{
    const QPointer<T> alive = object;
    for (const auto change : changes) {
        if (!alive)
            return;
        Q_EMIT(alive.data()->*change)();
    }
}

} // namespace orrin
