// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/session.h"

#include <contract/util/corvaneurl.h>

#include <QPointer>

#include <deque>

namespace orrin::test {

/*! A connection whose bounds and clock a test sets. */
class ScriptedConnection : public Connection
{
public:
    QSharedPointer<TrackBounds> createTrackBounds(unsigned) override
    {
        return QSharedPointer<TrackBounds>::create(bounds);
    }
    long long getCachedServerUTCOffsetToClientUTCMSecs() const override { return clockOffsetMs; }

    TrackBounds bounds{0, 0};
    qint64 clockOffsetMs = 0;
};

/*! A session that says what a test tells it to, when the test tells it to. One thread.

    The steps emit at once: the test stands where the network would. */
class ScriptedSession : public Session
{
    Q_OBJECT
public:
    struct EndpointRequest
    {
        int channelId = 0;
        StreamQuality quality = StreamQuality::High;
        QPointer<QObject> context;
        MediaEndpointCallback callback;
    };

    struct PtzCall
    {
        int channelId = 0;
        PtzRequest request;
    };

    ScriptedSession(const CorvaneUrl &url, const SharedCredentials &credentials, bool asGroup,
                    unsigned request);

    void open() override;
    void close() override;
    void requestMediaEndpoint(int channelId, StreamQuality quality, QObject *context,
                              MediaEndpointCallback callback) override;
    void requestPtz(int channelId, const PtzRequest &request, QObject *context, PtzCallback callback) override;
    ScriptedConnection *connection() override { return &m_connection; }

    /*! The steps. succeed() ends the opening; logIn() describes and succeeds. */
    void describe(const SiteDescription &site);
    void succeed();
    void logIn(const SiteDescription &site);
    void fail(LoginError::Code code, int lockoutSeconds = 0);
    void lose(int connectionError = ConnectionError::ConnectionLost);
    void restore();
    void restore(const SiteDescription &site);
    void timeOut();

    /*! Answers the oldest request for a media endpoint, by the event loop; false when there is none. */
    bool answerEndpoint(const MediaEndpointResult &result);
    const std::deque<EndpointRequest> &endpointRequests() const { return m_endpoints; }

    /*! What was asked of cameras since the last time, oldest first. */
    QList<PtzCall> takePtzCalls() { return std::exchange(m_ptzCalls, {}); }
    /*! Answers the newest request of that kind that waits, by the event loop; false when there is none. */
    bool answerPtz(PtzRequest::Kind kind, const PtzAnswer &answer);

    const CorvaneUrl &url() const { return m_url; }
    const SharedCredentials &credentials() const { return m_credentials; }
    bool asGroup() const { return m_asGroup; }
    unsigned request() const { return m_request; }
    bool isOpening() const { return m_opening; }
    bool isClosed() const { return m_closed; }

private:
    const CorvaneUrl m_url;
    const SharedCredentials m_credentials;
    const bool m_asGroup;
    const unsigned m_request;
    ScriptedConnection m_connection;
    struct PtzWaiting
    {
        PtzRequest::Kind kind;
        QPointer<QObject> context;
        PtzCallback callback;
    };

    std::deque<EndpointRequest> m_endpoints;
    QList<PtzCall> m_ptzCalls;
    std::deque<PtzWaiting> m_ptzWaiting; // the newest first
    bool m_opening = false;
    bool m_closed = false;
};

} // namespace orrin::test
