// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/qmlsubtitlemonitor.h"

#include "resources/resourcelookup_p.h"
#include "support/qmlsubtitlemonitor_p.h"
#include "video/qmlvideoprovider.h"
#include "video/renderinglookup.h"

#include <contract/codecs/videoframe.h>
#include <contract/core/connection.h>
#include <contract/core/connectionmanager.h>

#include <QDateTime>

#include <algorithm>

namespace orrin {

QmlSubtitleMonitorPrivate::QmlSubtitleMonitorPrivate(QmlSubtitleMonitor *q,
                                                     QmlAbstractStreamProvider *provider)
    : q(q), provider(provider)
{
}

bool QmlSubtitleMonitorPrivate::bind()
{
    if (streamProcessor && rendering)
        return true;
    if (serverGroupId < 0 || serverId < 0 || channelId < 0)
        return false;
    streamProcessor = provider->getStreamProcessor(unsigned(serverGroupId), unsigned(serverId),
                                                   unsigned(channelId), streamId);
    if (!streamProcessor)
        return false;
    rendering = renderingOf(*streamProcessor);
    // Each binding connects anew, also to a stream that was bound before: the pacing drops the calls that
    // come too often.
    if (const QSharedPointer<PlaybackState> state = streamProcessor->playbackState()) {
        QObject::connect(state.data(), &PlaybackState::playModeChanged, q, &QmlSubtitleMonitor::update);
        QObject::connect(state.data(), &PlaybackState::stateChanged, q, &QmlSubtitleMonitor::update);
    }
    return !rendering.isNull();
}

void QmlSubtitleMonitorPrivate::refresh()
{
    if (!bind())
        return;
    const VideoFrame frame = rendering->currentFrame();
    if (!frame.isValid())
        return;
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const Connection *connection = streamProcessor->connection();
    const qint64 offset = connection ? connection->getCachedServerUTCOffsetToClientUTCMSecs() : 0;
    const QSharedPointer<PlaybackState> state = streamProcessor->playbackState();
    generator.setParameters(frame, now + offset, now, state ? state->mode() : StreamState::Stopped,
                            state ? state->seekSpeed() : 0);
    subtitle = generator.generate();
    Q_EMIT q->subtitleChanged();
}

QmlSubtitleMonitor::QmlSubtitleMonitor(QObject *parent)
    : QmlSubtitleMonitor(&QmlVideoProvider::instance(), parent)
{
}

QmlSubtitleMonitor::QmlSubtitleMonitor(QmlAbstractStreamProvider *provider, QObject *parent)
    : QObject(parent), d_ptr(std::make_unique<QmlSubtitleMonitorPrivate>(this, provider))
{
    if (ConnectionManager *manager = findConnectionManager())
        connect(manager, &ConnectionManager::serverConnected, this, &QmlSubtitleMonitor::update);
    d_func()->timer.setSingleShot(true);
}

QmlSubtitleMonitor::~QmlSubtitleMonitor() = default;

QString QmlSubtitleMonitor::subtitle() const
{
    return d_func()->subtitle;
}

QString QmlSubtitleMonitor::subtitleTemplate() const
{
    return d_func()->subtitleTemplate;
}

void QmlSubtitleMonitor::setSubtitleTemplate(const QString &subtitleTemplate)
{
    if (d_func()->subtitleTemplate == subtitleTemplate)
        return;
    d_func()->subtitleTemplate = subtitleTemplate;
    d_func()->generator.compileSubtitleTemplate(subtitleTemplate, false);
    updateAndEmit(&QmlSubtitleMonitor::subtitleTemplateChanged);
}

int QmlSubtitleMonitor::updateMs() const
{
    return d_func()->updateMs;
}

void QmlSubtitleMonitor::setUpdateMs(int milliseconds)
{
    if (d_func()->updateMs == milliseconds)
        return;
    d_func()->updateMs = milliseconds;
    Q_EMIT updateMsChanged();
}

int QmlSubtitleMonitor::serverGroupId() const
{
    return d_func()->serverGroupId;
}

void QmlSubtitleMonitor::setServerGroupId(int id)
{
    if (d_func()->serverGroupId == id)
        return;
    d_func()->serverGroupId = id;
    d_func()->rendering.clear();
    updateAndEmit(&QmlSubtitleMonitor::serverGroupIdChanged);
}

int QmlSubtitleMonitor::serverId() const
{
    return d_func()->serverId;
}

void QmlSubtitleMonitor::setServerId(int id)
{
    if (d_func()->serverId == id)
        return;
    d_func()->serverId = id;
    d_func()->rendering.clear();
    updateAndEmit(&QmlSubtitleMonitor::serverIdChanged);
}

int QmlSubtitleMonitor::channelId() const
{
    return d_func()->channelId;
}

void QmlSubtitleMonitor::setChannelId(int id)
{
    if (d_func()->channelId == id)
        return;
    d_func()->channelId = id;
    d_func()->rendering.clear();
    updateAndEmit(&QmlSubtitleMonitor::channelIdChanged);
}

RequestId QmlSubtitleMonitor::streamId() const
{
    return d_func()->streamId;
}

void QmlSubtitleMonitor::setStreamId(RequestId id)
{
    if (d_func()->streamId == id)
        return;
    d_func()->streamId = id;
    d_func()->rendering.clear();
    updateAndEmit(&QmlSubtitleMonitor::streamIdChanged);
}

void QmlSubtitleMonitor::update()
{
    if (d_func()->timer.isActive())
        return;
    // A listener may delete the monitor.
    const QPointer<QmlSubtitleMonitor> alive = this;
    d_func()->refresh();
    if (alive)
        d_func()->timer.start(std::max(0, d_func()->updateMs));
}

void QmlSubtitleMonitor::updateAndEmit(void (QmlSubtitleMonitor::*changed)())
{
    const QPointer<QmlSubtitleMonitor> alive = this;
    update();
    if (alive)
        Q_EMIT(this->*changed)();
}

} // namespace orrin
