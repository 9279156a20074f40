// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"
#include "video/qmlrendering.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/util/time300.h>

#include <QDateTime>
#include <QPointer>
#include <QSharedPointer>
#include <QTimeZone>

namespace orrin {

class FrameGrabber;
class QmlAbstractStreamProvider;

class ORRINSDKQML_EXPORT FrameGrabberPrivate
{
public:
    FrameGrabberPrivate(FrameGrabber *q, QmlAbstractStreamProvider *provider);
    virtual ~FrameGrabberPrivate();
    FrameGrabberPrivate(const FrameGrabberPrivate &);
    FrameGrabberPrivate &operator=(const FrameGrabberPrivate &);

    // Hooks for what is built on the grabber; they do nothing here.
    virtual void streamProcessorCreated();
    virtual void serverGroupIdChanged();
    virtual void serverIdChanged();
    virtual void channelIdChanged();

    FrameGrabber *q;
    QSharedPointer<AbstractStreamProcessor> streamProcessor; // the owning reference
    QPointer<QmlRendering> rendering;
    QmlAbstractStreamProvider *provider;
    int serverGroupId = -1;
    int serverId = -1;
    int channelId = -1;
    int syncContextId = -1;
    Time300 frameTime = 0;
    QDateTime frameDateTime;
    QTimeZone frameTimeZone;
};

} // namespace orrin
