// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/splinkedfactory.h>
#include <contract/util/requestid.h>

#include <QList>
#include <QSharedPointer>
#include <QWeakPointer>

namespace orrin {

struct StreamProcessorEntry
{
    qint32 serverGroupId;
    qint32 serverId;
    qint32 channelId;
    RequestId requestId;
    QWeakPointer<AbstractStreamProcessor> processor;

    bool isFor(int group, int server, int channel, RequestId stream) const
    {
        return serverGroupId == group && serverId == server && channelId == channel && requestId == stream;
    }
};

class QmlStreamProviderPrivate
{
public:
    QSharedPointer<SPLinkedFactory> factory; // null until the first factory is set
    QList<StreamProcessorEntry> streams;     // in the order of creation
};

} // namespace orrin
