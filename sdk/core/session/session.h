// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/eventdescription.h"
#include "core/session/mediaendpoint.h"
#include "core/session/ptzrequest.h"
#include "core/session/sitedescription.h"
#include "core/stats/statspage.h"

#include <contract/core/connection.h>
#include <contract/core/connectionerror.h>
#include <contract/core/export.h>
#include <contract/core/loginerror.h>
#include <contract/core/statusobject.h>

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>
#include <variant>
#include <optional>

namespace orrin {

using StatsContentsResult = std::variant<StatsContents, StatsError>;
using StatsResult = std::variant<StatsPage, StatsError>;

/*! The seam between the core and a recorder: one recorder that the user logged in to.

    Lives on the main thread. Every outcome comes by the event loop, never inside the call that asked. open() ends in described() and then
    opened(), or in loginFailed(), within 10 seconds. After opened() the session looks after itself: it reports lost() once, tries again with
    back-off and jitter (1 s to 60 s, one attempt at a time), and reports described() and restored(). close() ends it for
    good, with no further signal. */
class ORRINSDK_CORE_EXPORT Session : public QObject
{
    Q_OBJECT
public:
    using MediaEndpointCallback = std::function<void(const MediaEndpointResult &)>;
    using StatsContentsCallback = std::function<void(const StatsContentsResult &)>;
    using StatsCallback = std::function<void(const StatsResult &)>;
    using TrackBoundsCallback = std::function<void(const std::optional<TrackBounds> &)>;
    using PtzCallback = std::function<void(const PtzAnswer &)>;

    explicit Session(QObject *parent = nullptr);
    ~Session() override;

    virtual void open() = 0;
    virtual void close() = 0;

    /*! Asks for the stream \a quality of a channel. \a callback is called once, by the event loop, within 10 seconds, unless \a context or
        the session ends before. */
    virtual void requestMediaEndpoint(int channelId, StreamQuality quality, QObject *context,
                                      MediaEndpointCallback callback) = 0;

    /*! Asks where the recording of a track is to be had, with \a quality where it was recorded in two. As requestMediaEndpoint(); a session
        that knows no recordings answers Unsupported, one whose user may not play back NotPermitted. */
    virtual void requestReplayEndpoint(int channelId, int trackId, StreamQuality quality, QObject *context,
                                       MediaEndpointCallback callback);

    /*! Asks for the bounds of a track as they are now. \a callback is called once, by the event loop, within 10 seconds, unless \a context or
        the session ends before; without a value when they cannot be had, as for a track that has no recording. */
    virtual void requestTrackBounds(int channelId, int trackId, QObject *context, TrackBoundsCallback callback);

    /*! Asks something of a camera that can be steered. Each camera is asked one thing at a time: of speeds that come meanwhile only the
        newest is sent, and the earlier ones are answered as done. A camera that moves is kept moving until it is told to stop, and stops
        by itself within seconds when the session ends or loses its connection.
        \a callback, which may be null, is called once, by the event loop, unless \a context or the session ends before. What the
        session does not know is answered as not supported. */
    virtual void requestPtz(int channelId, const PtzRequest &request, QObject *context, PtzCallback callback);

    /*! Asks which statistics the server keeps, and for one page of them, from the beginning of the span. Callbacks as above; where nothing else is
        said, the server keeps none. */
    virtual void requestStatsContents(QObject *context, StatsContentsCallback callback);
    virtual void requestStats(const StatsQuery &query, QObject *context, StatsCallback callback);

    /*! The connection that streams of this session show to the module; lives as long as the session. */
    virtual Connection *connection() = 0;

Q_SIGNALS:
    /*! The whole description, at login, after a reconnect and after each change. */
    void described(const orrin::SiteDescription &site);
    void opened();
    void loginFailed(const orrin::LoginError &error);
    void lost(const orrin::ConnectionError &error);
    void restored();
    /*! What happened since the last time, oldest first. */
    void eventsReceived(const QList<orrin::EventDescription> &events);
    /*! The causes of all events that the server has, in words; after opened() and after restored(). */
    void eventCausesKnown(const QStringList &causes);
    void statusChanged(const orrin::StatusObject &status);
    /*! The server ended the user's session for lack of activity; the session is then closed. */
    void userTimedOut();
    void restartRequested();
    void rebootRequested();
    void shutdownRequested();
};

} // namespace orrin
