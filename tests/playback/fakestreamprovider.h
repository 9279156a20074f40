// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fakestreamprocessor.h"

#include "video/qmlabstractstreamprovider.h"

#include <QMap>

#include <tuple>

/*! A provider of the streams that a test gave it; counts how often it was asked. */
class FakeStreamProvider : public orrin::QmlAbstractStreamProvider
{
public:
    using Keys = std::tuple<unsigned, unsigned, unsigned, quint16>;

    QSharedPointer<orrin::AbstractStreamProcessor> createStreamProcessor(unsigned, unsigned, unsigned, int) override
    {
        return {};
    }
    QPointer<orrin::AbstractStreamProcessor> getStreamProcessor(unsigned serverGroupId, unsigned serverId,
                                                                unsigned channelId, orrin::RequestId streamId) override
    {
        asked.append(Keys{serverGroupId, serverId, channelId, streamId.value});
        return processors.value(asked.last());
    }
    void removeStreamProcessorIfNoReference(unsigned, unsigned, unsigned, orrin::RequestId) override {}

    QMap<Keys, orrin::AbstractStreamProcessor *> processors;
    QList<Keys> asked;
};
