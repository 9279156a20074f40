// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlaudioprovider.h"

#include "video/qmlaudiodisplayfactory.h"
#include "video/qmlaudioprovider_p.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/gui/audiospmfactory.h>

namespace orrin {

namespace {

constexpr int InOrderWithoutDrops = 2; // presentation mode

} // namespace

QmlAudioProvider::QmlAudioProvider()
    : d_ptr(new QmlAudioProviderPrivate, [](QmlAudioProviderPrivate *d) { delete d; })
{
    const QSharedPointer<DisplayFactory> displayFactory(new QmlAudioDisplayFactory);
    d_func()->provider.setAudioFactory(QSharedPointer<SPMFactory>(new AudioSPMFactory(displayFactory)));
}

QmlAudioProvider::QmlAudioProvider(QmlAudioProvider &&other) noexcept = default;
QmlAudioProvider &QmlAudioProvider::operator=(QmlAudioProvider &&other) noexcept = default;
QmlAudioProvider::~QmlAudioProvider() = default;

QmlAudioProvider &QmlAudioProvider::instance()
{
    static QmlAudioProvider provider;
    return provider;
}

QSharedPointer<AbstractStreamProcessor> QmlAudioProvider::createStreamProcessor(unsigned serverGroupId,
                                                                                unsigned serverId,
                                                                                unsigned channelId,
                                                                                int syncContextId)
{
    QSharedPointer<AbstractStreamProcessor> processor = d_func()->provider.createStreamProcessor(
        int(serverGroupId), int(serverId), int(channelId), syncContextId);
    if (processor)
        processor->setPresentationMode(InOrderWithoutDrops);
    return processor;
}

QPointer<AbstractStreamProcessor> QmlAudioProvider::getStreamProcessor(unsigned serverGroupId,
                                                                       unsigned serverId, unsigned channelId,
                                                                       RequestId streamId)
{
    return d_func()->provider.getStreamProcessor(int(serverGroupId), int(serverId), int(channelId), streamId);
}

void QmlAudioProvider::removeStreamProcessorIfNoReference(unsigned serverGroupId, unsigned serverId,
                                                          unsigned channelId, RequestId streamId)
{
    d_func()->provider.removeStreamProcessorIfNoReference(int(serverGroupId), int(serverId), int(channelId),
                                                          streamId);
}

} // namespace orrin
