// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/logclient.h"
#include "module/orrinsdkqmlglobal.h"

#include <contract/core/displayfactory.h>

namespace orrin {

/*! Makes the displays of sound. Main thread. */
class ORRINSDKQML_EXPORT QmlAudioDisplayFactory : public DisplayFactory
{
    Q_OBJECT
public:
    explicit QmlAudioDisplayFactory(QObject *parent = nullptr);
    ~QmlAudioDisplayFactory() override;

    /*! Nothing is painted here, so that there is nothing to decorate. */
    void setDisplayDecorator(const QSharedPointer<DisplayDecorator> &decorator) override;
    /*! A new display with a renderer and a receiver of its own, whatever the arguments. */
    std::shared_ptr<DisplayInterface> createDisplay(ChannelUID channel, QSharedPointer<PlaybackState> state,
                                                    WidgetType widgetType, DisplayType displayType,
                                                    const QString &serverName, const QString &channelName,
                                                    const QRectF &zoomRect, const ZoomInfo &zoomInfo) override;
    WidgetType type() const override;
    DisplayType displayType() const override;

private:
    LogClient m_log;
};

} // namespace orrin
