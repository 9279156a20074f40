// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/gui/guispmfactory.h>

#include "gui/displayoutputs.h"

#include <utility>

namespace orrin {

GuiSPMFactory::GuiSPMFactory(QSharedPointer<DisplayFactory> displayFactory) : m_displayFactory(std::move(displayFactory)) {}
GuiSPMFactory::~GuiSPMFactory() = default;

QSharedPointer<SPAbstractInputControl> GuiSPMFactory::createController()
{
    return {};
}

QSharedPointer<SPAbstractSynchroniser> GuiSPMFactory::createSynchroniser()
{
    return {};
}

QSharedPointer<SPAbstractAuthentication> GuiSPMFactory::createAuthentication()
{
    return {};
}

QSharedPointer<SPAbstractDecoder> GuiSPMFactory::createDecoder()
{
    return {};
}

QSharedPointer<SPAbstractTiming> GuiSPMFactory::createTiming()
{
    return {};
}

QList<QSharedPointer<SPAbstractOutput>> GuiSPMFactory::createOutputs()
{
    return createDisplayOutputs(m_displayFactory.get(), {channel(), playbackState(), serverName(), channelName()});
}

} // namespace orrin
