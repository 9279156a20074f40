// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlvideoprovider.h"

#include "video/qmlvideodisplayfactory.h"
#include "video/qmlvideoprovider_p.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/gui/guispmfactory.h>

namespace orrin {

QmlVideoProvider::QmlVideoProvider()
    : d_ptr(new QmlVideoProviderPrivate, [](QmlVideoProviderPrivate *d) { delete d; })
{
    const QSharedPointer<DisplayFactory> displayFactory(new QmlVideoDisplayFactory);
    d_func()->provider.setVideoFactory(QSharedPointer<SPMFactory>(new GuiSPMFactory(displayFactory)));
}

QmlVideoProvider::QmlVideoProvider(QmlVideoProvider &&other) noexcept = default;
QmlVideoProvider &QmlVideoProvider::operator=(QmlVideoProvider &&other) noexcept = default;
QmlVideoProvider::~QmlVideoProvider() = default;

QmlVideoProvider &QmlVideoProvider::instance()
{
    static QmlVideoProvider provider;
    return provider;
}

QSharedPointer<AbstractStreamProcessor> QmlVideoProvider::createStreamProcessor(unsigned serverGroupId,
                                                                                unsigned serverId,
                                                                                unsigned channelId,
                                                                                int syncContextId)
{
    return d_func()->provider.createStreamProcessor(int(serverGroupId), int(serverId), int(channelId),
                                                    syncContextId);
}

QPointer<AbstractStreamProcessor> QmlVideoProvider::getStreamProcessor(unsigned serverGroupId,
                                                                       unsigned serverId, unsigned channelId,
                                                                       RequestId streamId)
{
    return d_func()->provider.getStreamProcessor(int(serverGroupId), int(serverId), int(channelId), streamId);
}

void QmlVideoProvider::removeStreamProcessorIfNoReference(unsigned serverGroupId, unsigned serverId,
                                                          unsigned channelId, RequestId streamId)
{
    d_func()->provider.removeStreamProcessorIfNoReference(int(serverGroupId), int(serverId), int(channelId),
                                                          streamId);
}

} // namespace orrin
