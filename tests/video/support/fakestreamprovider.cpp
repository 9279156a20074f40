// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/fakestreamprovider.h"

namespace orrin {

QSharedPointer<AbstractStreamProcessor> FakeStreamProvider::createStreamProcessor(unsigned serverGroupId,
                                                                                  unsigned serverId,
                                                                                  unsigned channelId,
                                                                                  int syncContextId)
{
    calls.append(QStringLiteral("create %1 %2 %3 %4")
                     .arg(serverGroupId)
                     .arg(serverId)
                     .arg(channelId)
                     .arg(syncContextId));
    if (refuses)
        return {};
    auto *processor = new FakeStreamProcessor(++count);
    processor->start();
    if (prepare)
        prepare(*processor);
    last = processor;
    const QSharedPointer<AbstractStreamProcessor> strong(processor, &QObject::deleteLater);
    lastStrong = strong;
    return strong;
}

QPointer<AbstractStreamProcessor> FakeStreamProvider::getStreamProcessor(unsigned, unsigned, unsigned,
                                                                         RequestId streamId)
{
    return last && last->requestId() == streamId ? last.data() : nullptr;
}

void FakeStreamProvider::removeStreamProcessorIfNoReference(unsigned serverGroupId, unsigned serverId,
                                                            unsigned channelId, RequestId streamId)
{
    calls.append(QStringLiteral("remove %1 %2 %3 %4%5")
                     .arg(serverGroupId)
                     .arg(serverId)
                     .arg(channelId)
                     .arg(streamId.value)
                     .arg(last ? QStringLiteral(" alive") : QString()));
}

} // namespace orrin
