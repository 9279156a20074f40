// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <contract/util/requestid.h>

#include <QPointer>
#include <QSharedPointer>

namespace orrin {

class AbstractStreamProcessor;

/*! The registry that turns the address of a channel into a running stream processor. Main thread.

    Never keeps a processor alive: its owner is whoever received the pointer from createStreamProcessor(). */
class ORRINSDKQML_EXPORT QmlAbstractStreamProvider
{
public:
    virtual ~QmlAbstractStreamProvider();

    /*! A new processor, already started; null when the server has no such channel. Processors with the same
        \a syncContextId, other than -1, are kept at one moment. */
    virtual QSharedPointer<AbstractStreamProcessor> createStreamProcessor(unsigned serverGroupId, unsigned serverId,
                                                                          unsigned channelId, int syncContextId) = 0;
    /*! The processor of that address and stream, or null. */
    virtual QPointer<AbstractStreamProcessor> getStreamProcessor(unsigned serverGroupId, unsigned serverId,
                                                                 unsigned channelId, RequestId streamId) = 0;
    /*! Forgets the processor if nobody holds it any more: drop your own pointer first. */
    virtual void removeStreamProcessorIfNoReference(unsigned serverGroupId, unsigned serverId, unsigned channelId,
                                                    RequestId streamId) = 0;

protected:
    QmlAbstractStreamProvider() = default;
    QmlAbstractStreamProvider(const QmlAbstractStreamProvider &) = default;
    QmlAbstractStreamProvider &operator=(const QmlAbstractStreamProvider &) = default;
};

} // namespace orrin
