// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/displayinterface.h>
#include <contract/core/displaytypes.h>
#include <contract/core/export.h>
#include <contract/core/playbackstate.h>
#include <contract/util/channeluid.h>

#include <QObject>
#include <QSharedPointer>
#include <QString>

#include <memory>

namespace orrin {

class DisplayDecorator;

/*! Makes the displays of streams; implemented by the module. Main thread. */
class ORRINSDK_CORE_EXPORT DisplayFactory : public QObject
{
    Q_OBJECT
public:
    explicit DisplayFactory(QObject *parent = nullptr);
    ~DisplayFactory() override;

    virtual void setDisplayDecorator(const QSharedPointer<DisplayDecorator> &decorator) = 0;
    virtual std::shared_ptr<DisplayInterface> createDisplay(ChannelUID channel, QSharedPointer<PlaybackState> state,
                                                            WidgetType widgetType, DisplayType displayType,
                                                            const QString &serverName, const QString &channelName,
                                                            const QRectF &zoomRect, const ZoomInfo &zoomInfo) = 0;
    virtual WidgetType type() const = 0;
    virtual DisplayType displayType() const = 0;
};

} // namespace orrin
