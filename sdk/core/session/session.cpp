// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/session.h"

namespace orrin {

Session::Session(QObject *parent) : QObject(parent) {}

Session::~Session() = default;

void Session::requestReplayEndpoint(int, int, StreamQuality, QObject *context, MediaEndpointCallback callback)
{
    QMetaObject::invokeMethod(
        context ? context : this,
        [callback = std::move(callback)] { callback(PlaybackError(PlaybackError::Unsupported)); }, Qt::QueuedConnection);
}

void Session::requestTrackBounds(int, int, QObject *context, TrackBoundsCallback callback)
{
    QMetaObject::invokeMethod(
        context ? context : this, [callback = std::move(callback)] { callback(std::nullopt); }, Qt::QueuedConnection);
}

void Session::requestPtz(int, const PtzRequest &, QObject *context, PtzCallback callback)
{
    if (!callback)
        return;
    QMetaObject::invokeMethod(
        context ? context : this,
        [callback = std::move(callback)] { callback({PtzfError(PtzfError::NotSupported)}); },
        Qt::QueuedConnection);
}

void Session::requestStatsContents(QObject *context, StatsContentsCallback callback)
{
    QMetaObject::invokeMethod(
        context ? context : this, [callback = std::move(callback)] { callback(StatsError::Unsupported); }, Qt::QueuedConnection);
}

void Session::requestStats(const StatsQuery &, QObject *context, StatsCallback callback)
{
    QMetaObject::invokeMethod(
        context ? context : this, [callback = std::move(callback)] { callback(StatsError::Unsupported); }, Qt::QueuedConnection);
}

} // namespace orrin
