// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/gui/audiospmfactory.h>

#include "gui/audiooutput.h"
#include "gui/audiothread.h"
#include "gui/displayoutputs.h"

#include <utility>

namespace orrin {

AudioSPMFactory::AudioSPMFactory(QSharedPointer<DisplayFactory> displayFactory) : m_displayFactory(std::move(displayFactory)) {}
AudioSPMFactory::~AudioSPMFactory() = default;

QSharedPointer<SPAbstractInputControl> AudioSPMFactory::createController()
{
    return {};
}

QSharedPointer<SPAbstractSynchroniser> AudioSPMFactory::createSynchroniser()
{
    return {};
}

QSharedPointer<SPAbstractAuthentication> AudioSPMFactory::createAuthentication()
{
    return {};
}

QSharedPointer<SPAbstractDecoder> AudioSPMFactory::createDecoder()
{
    return {};
}

QSharedPointer<SPAbstractTiming> AudioSPMFactory::createTiming()
{
    return {};
}

QList<QSharedPointer<SPAbstractOutput>> AudioSPMFactory::createOutputs()
{
    QList<QSharedPointer<SPAbstractOutput>> outputs =
        createDisplayOutputs(m_displayFactory.get(), {channel(), playbackState(), serverName(), channelName()});
    if (std::shared_ptr<AudioPlayer> player = AudioThread::instance().createPlayer())
        outputs.append(QSharedPointer<AudioOutput>::create(std::move(player)));
    return outputs;
}

} // namespace orrin
