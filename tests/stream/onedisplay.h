// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "../gui/recordingrenderer.h"

#include <contract/gui/display.h>
#include <contract/gui/guispmfactory.h>

#include <memory>

namespace orrin {

/*! Makes a display over a renderer that keeps what it is given. */
class OneDisplay : public DisplayFactory
{
public:
    void setDisplayDecorator(const QSharedPointer<DisplayDecorator> &) override {}
    std::shared_ptr<DisplayInterface> createDisplay(ChannelUID, QSharedPointer<PlaybackState>, WidgetType, DisplayType,
                                                    const QString &, const QString &, const QRectF &, const ZoomInfo &) override
    {
        auto display = std::make_shared<orrin::Display>();
        renderer = QSharedPointer<RecordingRenderer>::create();
        display->setRenderer(renderer);
        return display;
    }
    WidgetType type() const override { return WidgetType::QuickItem; }
    DisplayType displayType() const override { return DisplayType::Video; }

    QSharedPointer<RecordingRenderer> renderer;
};

} // namespace orrin
