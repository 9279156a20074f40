// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/mediastream.h>
#include <contract/core/playbackstate.h>
#include <contract/core/spabstractauthentication.h>
#include <contract/core/spabstractdecoder.h>
#include <contract/core/spabstractinputcontrol.h>
#include <contract/core/spabstractoutput.h>
#include <contract/core/spabstractsynchroniser.h>
#include <contract/core/spabstracttiming.h>
#include <contract/util/channeluid.h>

#include <QList>
#include <QSharedPointer>
#include <QString>

namespace orrin {

/*! The factory of a stream processor's modules: the operations in their order. The core sets what a processor is for and then asks
    for its modules; a factory serves many processors, one after the other, on the main thread. A null result means that the
    processor uses its own. */
class ORRINSDK_CORE_EXPORT SPMFactory
{
public:
    enum class PresenterType : int { Single = 0, Multiple = 1 };

    virtual ~SPMFactory();
    virtual void setPlaybackState(QSharedPointer<PlaybackState> state) = 0;
    virtual void setChannel(ChannelUID channel, const QString &serverName, const QString &channelName) = 0;
    virtual void setMediaStream(QSharedPointer<MediaStream> stream) = 0;
    virtual void setPresenterType(SPMFactory::PresenterType type) = 0;
    virtual QSharedPointer<SPAbstractInputControl> createController() = 0;
    virtual QSharedPointer<SPAbstractSynchroniser> createSynchroniser() = 0;
    virtual QSharedPointer<SPAbstractAuthentication> createAuthentication() = 0;
    virtual QSharedPointer<SPAbstractDecoder> createDecoder() = 0;
    virtual QSharedPointer<SPAbstractTiming> createTiming() = 0;
    virtual QList<QSharedPointer<SPAbstractOutput>> createOutputs() = 0;
};

} // namespace orrin
