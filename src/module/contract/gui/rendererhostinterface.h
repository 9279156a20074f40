// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/gui/imagerenderinginterface.h>

#include <QSharedPointer>

namespace orrin {

/*! The side of a display that holds its renderer. Main thread. */
class RendererHostInterface
{
public:
    virtual ~RendererHostInterface() = default;
    virtual void setRenderer(const QSharedPointer<ImageRenderingInterface> &renderer) = 0;
    virtual QSharedPointer<ImageRenderingInterface> renderer() const = 0;
};

} // namespace orrin
