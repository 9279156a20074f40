// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/abstractspmfactory.h>

#include <utility>

namespace orrin {

AbstractSPMFactory::AbstractSPMFactory() = default;
AbstractSPMFactory::~AbstractSPMFactory() = default;

void AbstractSPMFactory::setPlaybackState(QSharedPointer<PlaybackState> state)
{
    m_playbackState = std::move(state);
}

void AbstractSPMFactory::setChannel(ChannelUID channel, const QString &serverName, const QString &channelName)
{
    m_channel = channel;
    m_serverName = serverName;
    m_channelName = channelName;
}

void AbstractSPMFactory::setMediaStream(QSharedPointer<MediaStream> stream)
{
    m_mediaStream = std::move(stream);
}

void AbstractSPMFactory::setPresenterType(SPMFactory::PresenterType type)
{
    m_presenterType = type;
}

} // namespace orrin
