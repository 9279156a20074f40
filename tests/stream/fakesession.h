// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/session.h"

#include <QHash>
#include <QPointer>

namespace orrin {

/*! A session that answers with endpoints set by the test. */
class FakeSession : public Session, private Connection
{
    Q_OBJECT
public:
    void open() override {}
    void close() override {}
    void requestMediaEndpoint(int channelId, StreamQuality quality, QObject *context, MediaEndpointCallback callback) override
    {
        ++requests;
        lastChannel = channelId;
        const MediaEndpointResult result = failing ? MediaEndpointResult(PlaybackError(failing)) : endpoints.value(int(quality));
        QMetaObject::invokeMethod(context, [callback, result] { callback(result); }, Qt::QueuedConnection);
    }
    void requestReplayEndpoint(int channelId, int trackId, StreamQuality quality, QObject *context,
                               MediaEndpointCallback callback) override
    {
        ++replayRequests;
        lastChannel = channelId;
        lastTrack = trackId;
        lastReplayQuality = quality;
        if (silent)
            return;
        const MediaEndpointResult result = replayFailing ? MediaEndpointResult(PlaybackError(replayFailing)) : replayEndpoint;
        QMetaObject::invokeMethod(context, [callback, result] { callback(result); }, Qt::QueuedConnection);
    }
    void requestTrackBounds(int, int, QObject *context, TrackBoundsCallback callback) override
    {
        QMetaObject::invokeMethod(context, [callback, bounds = bounds] { callback(bounds); }, Qt::QueuedConnection);
    }
    Connection *connection() override { return this; }

    QHash<int, MediaEndpoint> endpoints;
    MediaEndpoint replayEndpoint;
    int replayFailing = PlaybackError::Unsupported;
    bool silent = false;
    int replayRequests = 0;
    int lastTrack = 0;
    StreamQuality lastReplayQuality = StreamQuality::High;
    std::optional<TrackBounds> bounds;
    int failing = 0;
    int requests = 0;
    int lastChannel = 0;

private:
    QSharedPointer<TrackBounds> createTrackBounds(unsigned) override { return QSharedPointer<TrackBounds>::create(0, 0); }
    long long getCachedServerUTCOffsetToClientUTCMSecs() const override { return 0; }
};

} // namespace orrin
