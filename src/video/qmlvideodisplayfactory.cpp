// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlvideodisplayfactory.h"

#include "video/qmlrendering.h"
#include "video/qmlvideoframereceiver.h"

#include <contract/gui/display.h>

#include <utility>

namespace orrin {

QmlVideoDisplayFactory::QmlVideoDisplayFactory(QObject *parent)
    : DisplayFactory(parent), m_log("QmlVideoDisplayFactory", this)
{
}

QmlVideoDisplayFactory::~QmlVideoDisplayFactory() = default;

void QmlVideoDisplayFactory::setDisplayDecorator(const QSharedPointer<DisplayDecorator> &decorator)
{
    Q_UNUSED(decorator)
}

std::shared_ptr<DisplayInterface>
QmlVideoDisplayFactory::createDisplay(ChannelUID, QSharedPointer<PlaybackState>, WidgetType, DisplayType,
                                      const QString &, const QString &, const QRectF &, const ZoomInfo &)
{
    auto display = std::make_shared<Display>();
    std::unique_ptr<QmlAbstractFrameReceiver> receiver = std::make_unique<QmlVideoFrameReceiver>();
    const QSharedPointer<QmlRendering> rendering(new QmlRendering(std::move(receiver)));
    display->setRenderer(rendering.staticCast<ImageRenderingInterface>());
    ORRIN_TRACE(m_log, "display %p created", static_cast<const void *>(display.get()));
    return display;
}

WidgetType QmlVideoDisplayFactory::type() const
{
    return WidgetType::QuickItem;
}

DisplayType QmlVideoDisplayFactory::displayType() const
{
    return DisplayType::Video;
}

} // namespace orrin
