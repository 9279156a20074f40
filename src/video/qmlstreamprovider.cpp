// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlstreamprovider.h"

#include "video/qmlstreamprovider_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/util/channeluid.h>
#include <contract/util/servergid.h>

#include <algorithm>
#include <utility>

namespace orrin {

namespace {

/*! The uid of a channel that exists, else the null value. */
ChannelUID findChannel(int serverGroupId, int serverId, int channelId)
{
    const QPointer<OrrinSDK> sdk = OrrinSDK::instance();
    if (!sdk || !sdk->connectionManager())
        return {};
    const ConnectionManager *manager = sdk->connectionManager();
    const ServerGroup *group = manager->serverGroup(serverGroupId);
    const Server *server = group ? group->serverById(serverId) : nullptr;
    if (!server || !server->channelById(channelId))
        return {};
    return ChannelUID(manager->serverUidFromGid(ServerGID(serverGroupId, serverId)), channelId);
}

} // namespace

QmlStreamProvider::QmlStreamProvider()
    : d_ptr(new QmlStreamProviderPrivate, [](QmlStreamProviderPrivate *d) { delete d; })
    , m_log("QmlStreamProvider")
{
}

QmlStreamProvider::QmlStreamProvider(QmlStreamProvider &&other) noexcept = default;
QmlStreamProvider &QmlStreamProvider::operator=(QmlStreamProvider &&other) noexcept = default;
QmlStreamProvider::~QmlStreamProvider() = default;

void QmlStreamProvider::setVideoFactory(QSharedPointer<SPMFactory> factory)
{
    QmlStreamProviderPrivate *d = d_func();
    if (d->factory)
        d->factory->setVideoFactory(std::move(factory));
    else
        d->factory = QSharedPointer<SPLinkedFactory>::create(std::move(factory), nullptr, nullptr, nullptr);
}

void QmlStreamProvider::setAudioFactory(QSharedPointer<SPMFactory> factory)
{
    QmlStreamProviderPrivate *d = d_func();
    if (d->factory)
        d->factory->setAudioFactory(std::move(factory));
    else
        d->factory = QSharedPointer<SPLinkedFactory>::create(nullptr, std::move(factory), nullptr, nullptr);
}

QSharedPointer<AbstractStreamProcessor>
QmlStreamProvider::createStreamProcessor(int serverGroupId, int serverId, int channelId, int syncContextId)
{
    QmlStreamProviderPrivate *d = d_func();
    const ChannelUID channel = findChannel(serverGroupId, serverId, channelId);
    if (channel.isNull() || !d->factory)
        return {};

    const QSharedPointer<AbstractStreamProcessor> processor =
        d->factory->createProcessor(channel, syncContextId);
    if (!processor)
        return {};
    processor->start();
    const RequestId requestId = processor->requestId();
    d->streams.append({serverGroupId, serverId, channelId, requestId, processor.toWeakRef()});
    ORRIN_TRACE(m_log, "stream %u of channel %d/%d/%d created, %lld known", unsigned(requestId.value),
                serverGroupId, serverId, channelId, static_cast<long long>(d->streams.size()));
    return processor;
}

QPointer<AbstractStreamProcessor> QmlStreamProvider::getStreamProcessor(int serverGroupId, int serverId,
                                                                        int channelId,
                                                                        RequestId streamId) const
{
    const QList<StreamProcessorEntry> &streams = d_func()->streams;
    const auto entry =
        std::find_if(streams.cbegin(), streams.cend(), [&](const StreamProcessorEntry &candidate) {
            return candidate.isFor(serverGroupId, serverId, channelId, streamId);
        });
    if (entry == streams.cend())
        return {};
    return entry->processor.toStrongRef().data();
}

void QmlStreamProvider::removeStreamProcessorIfNoReference(int serverGroupId, int serverId, int channelId,
                                                           RequestId streamId)
{
    QList<StreamProcessorEntry> &streams = d_func()->streams;
    const auto entry =
        std::find_if(streams.begin(), streams.end(), [&](const StreamProcessorEntry &candidate) {
            return candidate.isFor(serverGroupId, serverId, channelId, streamId);
        });
    if (entry == streams.end() || entry->processor.toStrongRef())
        return;
    streams.erase(entry);
    ORRIN_TRACE(m_log, "stream %u of channel %d/%d/%d removed", unsigned(streamId.value), serverGroupId,
                serverId, channelId);
}

} // namespace orrin
