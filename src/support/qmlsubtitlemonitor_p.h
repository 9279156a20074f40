// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "video/qmlrendering.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/subtitlesgenerator.h>
#include <contract/util/requestid.h>

#include <QPointer>
#include <QString>
#include <QTimer>

namespace orrin {

class QmlAbstractStreamProvider;
class QmlSubtitleMonitor;

class QmlSubtitleMonitorPrivate
{
public:
    QmlSubtitleMonitorPrivate(QmlSubtitleMonitor *q, QmlAbstractStreamProvider *provider);

    void refresh();
    /*! Finds the stream of the keys, when it is not known yet; false when there is none. */
    bool bind();

    QPointer<QmlSubtitleMonitor> q;
    QPointer<QmlRendering> rendering;
    QPointer<AbstractStreamProcessor> streamProcessor;
    SubtitlesGenerator generator;
    QString subtitle;
    QString subtitleTemplate;
    int serverGroupId = -1;
    int serverId = -1;
    int channelId = -1;
    RequestId streamId;
    QTimer timer; // while it runs, update() does nothing
    int updateMs = 0;
    QmlAbstractStreamProvider *provider;
};

} // namespace orrin
