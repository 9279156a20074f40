// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/qmlchannel.h"

#include <QPointer>

namespace orrin {

class Channel;

class QmlChannelPrivate
{
public:
    explicit QmlChannelPrivate(QmlChannel *q);

    /*! The channel, or null; a channel other than the last one found is listened to and announced before this returns. */
    Channel *channel();
    void update();

    QPointer<QmlChannel> q_ptr;
    QPointer<Channel> cachedChannel;
    int serverGroupId = -1;
    int serverId = -1;
    int channelId = -1;
};

} // namespace orrin
