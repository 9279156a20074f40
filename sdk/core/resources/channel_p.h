// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/sitedescription.h"

#include <contract/core/export.h>

#include <QPointer>

#include <map>

namespace orrin {

class Channel;
class Server;
class Track;

/*! What a Channel holds. Tracks are children of the channel and keep their objects by id. */
class ORRINSDK_CORE_EXPORT ChannelPrivate
{
public:
    /*! Takes over \a description and makes, changes and removes tracks; true when anything changed. */
    bool apply(Channel *q, const ChannelDescription &description);

    /*! Whether an object with \a other as its description could be this one: same kind and same sort id. */
    bool isSameChannel(const ChannelDescription &other) const;

    ChannelDescription description;
    QPointer<Server> server;
    quint64 serverUid = 0;
    bool valid = true;
    std::map<int, Track *> tracks;
};

} // namespace orrin
