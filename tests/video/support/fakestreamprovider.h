// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlabstractstreamprovider.h"

#include "support/fakestreamprocessor.h"

#include <functional>

namespace orrin {

/*! Notes what it is asked for and hands out fake processors, numbered from 1. */
class FakeStreamProvider : public QmlAbstractStreamProvider
{
public:
    QSharedPointer<AbstractStreamProcessor> createStreamProcessor(unsigned serverGroupId, unsigned serverId,
                                                                  unsigned channelId,
                                                                  int syncContextId) override;
    QPointer<AbstractStreamProcessor> getStreamProcessor(unsigned serverGroupId, unsigned serverId,
                                                         unsigned channelId, RequestId streamId) override;
    void removeStreamProcessorIfNoReference(unsigned serverGroupId, unsigned serverId, unsigned channelId,
                                            RequestId streamId) override;

    QStringList calls;
    bool refuses = false;                               //!< gives no processor
    std::function<void(FakeStreamProcessor &)> prepare; //!< sees each processor before it is handed out
    QPointer<FakeStreamProcessor> last;
    QWeakPointer<AbstractStreamProcessor> lastStrong; //!< to become another owner of it
    quint16 count = 0;
};

} // namespace orrin
