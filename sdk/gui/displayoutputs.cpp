// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/displayoutputs.h"

#include "gui/displaypresenter.h"
#include "gui/guidisplayoutput.h"

namespace orrin {

QList<QSharedPointer<SPAbstractOutput>> createDisplayOutputs(DisplayFactory *factory, const DisplayPurpose &purpose)
{
    QList<std::shared_ptr<DisplayInterface>> displays;
    if (factory) {
        auto display = factory->createDisplay(purpose.channel, purpose.state, factory->type(), factory->displayType(),
                                              purpose.serverName, purpose.channelName, QRectF(), ZoomInfo());
        if (display)
            displays.append(std::move(display));
    }
    return {QSharedPointer<GuiDisplayOutput>::create(std::make_shared<DisplayPresenter>(std::move(displays)))};
}

} // namespace orrin
