// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/renderinglookup.h"

#include "video/qmlrendering.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/displayoutput.h>
#include <contract/gui/rendererhostinterface.h>

namespace orrin {

QmlRendering *renderingOf(const AbstractStreamProcessor &processor)
{
    const QList<QSharedPointer<SPAbstractOutput>> outputs = processor.outputs();
    const auto *output = outputs.isEmpty() ? nullptr : dynamic_cast<DisplayOutput *>(outputs.first().data());
    const std::shared_ptr<StreamPresenterInterface> presenter = output ? output->presenter() : nullptr;
    if (!presenter)
        return nullptr;
    const QList<std::shared_ptr<DisplayInterface>> displays = presenter->displays();
    const auto *host = displays.isEmpty() ? nullptr : dynamic_cast<RendererHostInterface *>(displays.first().get());
    return host ? dynamic_cast<QmlRendering *>(host->renderer().data()) : nullptr;
}

} // namespace orrin
