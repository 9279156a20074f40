// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/spmfactory.h>

namespace orrin {

/*! A factory that remembers what it was set to. */
class ORRINSDK_CORE_EXPORT AbstractSPMFactory : public SPMFactory
{
public:
    AbstractSPMFactory();
    ~AbstractSPMFactory() override;

    void setPlaybackState(QSharedPointer<PlaybackState> state) override;
    void setChannel(ChannelUID channel, const QString &serverName, const QString &channelName) override;
    void setMediaStream(QSharedPointer<MediaStream> stream) override;
    void setPresenterType(SPMFactory::PresenterType type) override;

protected:
    const QSharedPointer<PlaybackState> &playbackState() const { return m_playbackState; }
    ChannelUID channel() const { return m_channel; }
    const QString &serverName() const { return m_serverName; }
    const QString &channelName() const { return m_channelName; }
    const QSharedPointer<MediaStream> &mediaStream() const { return m_mediaStream; }
    SPMFactory::PresenterType presenterType() const { return m_presenterType; }

private:
    QSharedPointer<PlaybackState> m_playbackState;
    ChannelUID m_channel;
    QString m_serverName;
    QString m_channelName;
    QSharedPointer<MediaStream> m_mediaStream;
    SPMFactory::PresenterType m_presenterType = PresenterType::Single;
};

} // namespace orrin
