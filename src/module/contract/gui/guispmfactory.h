// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/abstractspmfactory.h>
#include <contract/core/displayfactory.h>
#include <contract/gui/export.h>

namespace orrin {

/*! The modules of a stream of pictures; the displays come from a DisplayFactory. Main thread. */
class ORRINSDK_GUI_EXPORT GuiSPMFactory : public AbstractSPMFactory
{
public:
    explicit GuiSPMFactory(QSharedPointer<DisplayFactory> displayFactory);
    ~GuiSPMFactory() override;

    QSharedPointer<SPAbstractInputControl> createController() override;
    QSharedPointer<SPAbstractSynchroniser> createSynchroniser() override;
    QSharedPointer<SPAbstractAuthentication> createAuthentication() override;
    QSharedPointer<SPAbstractDecoder> createDecoder() override;
    QSharedPointer<SPAbstractTiming> createTiming() override;
    QList<QSharedPointer<SPAbstractOutput>> createOutputs() override;

private:
    QSharedPointer<DisplayFactory> m_displayFactory;
};

} // namespace orrin
