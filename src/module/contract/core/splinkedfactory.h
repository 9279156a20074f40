// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/export.h>
#include <contract/core/spmfactory.h>
#include <contract/util/channeluid.h>

#include <QSharedPointer>

namespace orrin {

/*! Makes stream processors from module factories. Main thread. */
class ORRINSDK_CORE_EXPORT SPLinkedFactory
{
public:
    /*! Any of the factories may be null; the last two serve metadata and talk-back. */
    SPLinkedFactory(QSharedPointer<SPMFactory> video, QSharedPointer<SPMFactory> audio, QSharedPointer<SPMFactory> metadata,
                    QSharedPointer<SPMFactory> talkback);
    ~SPLinkedFactory();

    void setVideoFactory(QSharedPointer<SPMFactory> factory);
    void setAudioFactory(QSharedPointer<SPMFactory> factory);

    /*! A processor, not yet started, for \a channel; null when no server has that channel or there is neither a video nor an audio
        factory. Processors with the same \a syncContextId, above 0, are kept at one moment. Its deleter is deleteLater. */
    QSharedPointer<AbstractStreamProcessor> createProcessor(ChannelUID channel, int syncContextId);

private:
    QSharedPointer<SPMFactory> m_video;
    QSharedPointer<SPMFactory> m_audio;
    QSharedPointer<SPMFactory> m_metadata;
    QSharedPointer<SPMFactory> m_talkback;
};

} // namespace orrin
