// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlaudiodisplayfactory.h"

#include "video/qmlaudioframereceiver.h"
#include "video/qmlrendering.h"

#include <contract/gui/display.h>

#include <utility>

namespace orrin {

QmlAudioDisplayFactory::QmlAudioDisplayFactory(QObject *parent)
    : DisplayFactory(parent), m_log("QmlAudioDisplayFactory", this)
{
}

QmlAudioDisplayFactory::~QmlAudioDisplayFactory() = default;

void QmlAudioDisplayFactory::setDisplayDecorator(const QSharedPointer<DisplayDecorator> &decorator)
{
    Q_UNUSED(decorator)
}

std::shared_ptr<DisplayInterface>
QmlAudioDisplayFactory::createDisplay(ChannelUID, QSharedPointer<PlaybackState>, WidgetType, DisplayType,
                                      const QString &, const QString &, const QRectF &, const ZoomInfo &)
{
    auto display = std::make_shared<Display>();
    std::unique_ptr<QmlAbstractFrameReceiver> receiver = std::make_unique<QmlAudioFrameReceiver>();
    const QSharedPointer<QmlRendering> rendering(new QmlRendering(std::move(receiver)));
    display->setRenderer(rendering.staticCast<ImageRenderingInterface>());
    ORRIN_TRACE(m_log, "display %p created", static_cast<const void *>(display.get()));
    return display;
}

WidgetType QmlAudioDisplayFactory::type() const
{
    return WidgetType::None;
}

DisplayType QmlAudioDisplayFactory::displayType() const
{
    return DisplayType::Audio;
}

} // namespace orrin
