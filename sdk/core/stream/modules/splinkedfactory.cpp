// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/splinkedfactory.h>

#include "core/session/sessionlookup.h"
#include "core/stream/processor/streamprocessor.h"

#include <contract/core/server.h>

#include <utility>

namespace orrin {

SPLinkedFactory::SPLinkedFactory(QSharedPointer<SPMFactory> video, QSharedPointer<SPMFactory> audio,
                                 QSharedPointer<SPMFactory> metadata, QSharedPointer<SPMFactory> talkback)
    : m_video(std::move(video))
    , m_audio(std::move(audio))
    , m_metadata(std::move(metadata))
    , m_talkback(std::move(talkback))
{
}

SPLinkedFactory::~SPLinkedFactory() = default;

void SPLinkedFactory::setVideoFactory(QSharedPointer<SPMFactory> factory)
{
    m_video = std::move(factory);
}

void SPLinkedFactory::setAudioFactory(QSharedPointer<SPMFactory> factory)
{
    m_audio = std::move(factory);
}

QSharedPointer<AbstractStreamProcessor> SPLinkedFactory::createProcessor(ChannelUID uid, int syncContextId)
{
    Channel *channel = channelForUid(uid);
    if (!channel || (!m_video && !m_audio))
        return {};
    StreamProcessorParts parts;
    parts.channelUid = uid;
    parts.channel = channel;
    parts.playbackState.reset(new PlaybackState);
    parts.hasVideo = !m_video.isNull();
    parts.findSession = sessionForServer;
    parts.syncContextId = syncContextId;
    const QString serverName = channel->server() ? channel->server()->name() : QString();
    for (const auto &factory : {m_video, m_audio}) {
        if (!factory)
            continue;
        factory->setPlaybackState(parts.playbackState);
        factory->setChannel(uid, serverName, channel->name());
        factory->setMediaStream({});
        factory->setPresenterType(SPMFactory::PresenterType::Single);
        if (!parts.inputControl)
            parts.inputControl = factory->createController();
        (factory == m_video ? parts.outputs : parts.audioOutputs) += factory->createOutputs();
    }
    // Owners drop their pointer inside calls of the processor; it ends by the event loop.
    return QSharedPointer<AbstractStreamProcessor>(new StreamProcessor(std::move(parts)), &QObject::deleteLater);
}

} // namespace orrin
