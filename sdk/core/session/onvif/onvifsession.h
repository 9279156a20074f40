// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/loginsequence.h"
#include "core/session/onvif/onvifconnection.h"
#include "core/session/onvif/onviftimings.h"
#include "core/session/onvif/recordingreader.h"
#include "core/session/onvif/reconnecttimer.h"
#include "core/session/session.h"

#include <QHash>
#include <QPointer>

#include <memory>

namespace orrin {

class DescriptionReader;
class EventSubscription;
class OnvifPtz;
class SiteWatch;
class XmlElement;

/*! A session with a device that speaks ONVIF, with or without the site extension. Main thread; network
    threads are Qt's.

    States: Idle -> Connecting -> Online <-> Lost -> Closed. In Lost the session waits or tries again, one
    attempt at a time. What belongs to one login at the device is the DeviceLink, made by a LoginSequence, kept
    while Online, dropped when lost.

    Trust: with the option SecurityPreferences::PUBLIC_KEY_CHECK the key of a target is pinned at its first
    login, and another one ends a login before credentials leave. A target that showed a key is never spoken to
    without TLS again. The password is held by the shared credentials alone. */
class ORRINSDK_CORE_EXPORT OnvifSession : public Session
{
    Q_OBJECT
public:
    OnvifSession(const CorvaneUrl &url, const SharedCredentials &credentials, bool asGroup, unsigned request,
                 const OnvifTimings &timings, QObject *parent = nullptr);
    ~OnvifSession() override;

    void open() override;
    void close() override;
    void requestMediaEndpoint(int channelId, StreamQuality quality, QObject *context,
                              MediaEndpointCallback callback) override;
    void requestPtz(int channelId, const PtzRequest &request, QObject *context, PtzCallback callback) override;
    void requestStatsContents(QObject *context, StatsContentsCallback callback) override;
    void requestStats(const StatsQuery &query, QObject *context, StatsCallback callback) override;
    void requestReplayEndpoint(int channelId, int trackId, StreamQuality quality, QObject *context,
                               MediaEndpointCallback callback) override;
    void requestTrackBounds(int channelId, int trackId, QObject *context, TrackBoundsCallback callback) override;
    Connection *connection() override { return &m_connection; }

private:
    enum class State { Idle, Connecting, Online, Lost, Closed };
    struct EndpointRequest
    {
        MediaEndpointCallback callback;
        QPointer<QObject> context;
        bool hasContext = false;
    };

    void startSequence();
    void onSequenceEnded(LoginSequence::Outcome outcome);
    void onLoginFailed(const LoginFailure &failure);
    void onLinkReady(DeviceLinkPtr link);
    void startWatch();
    void startEvents();
    void onEvents(const XmlElement &answer);
    void readAgain();
    void onReadAgain(const std::optional<LoginFailure> &failure);
    void lose(const ConnectionError &error);
    void onNotice(const QString &name);
    void askForStats(const QString &path, QObject *context, std::function<void(const QJsonObject &)> answered,
                     std::function<void(StatsError)> refused);
    void dropLink();
    LoginError loginErrorOf(const LoginFailure &failure) const;
    QByteArray trustedKey() const;
    void startRecordings();
    void onPlace(quint64 number, const RecordingReader::Place &place, int channelId);
    void refuseEndpointLater(quint64 number, const PlaybackError &error);
    void onStreamUri(quint64 number, const SoapAnswer &reply, const QByteArray &mask);
    void answerEndpoint(quint64 number, const MediaEndpointResult &result);
    MediaEndpoint endpointFor(const QUrl &url, const QByteArray &mask) const;

    const CorvaneUrl m_url;
    const SharedCredentials m_credentials;
    const bool m_asGroup;
    const unsigned m_request;
    const OnvifTimings m_timings;
    State m_state = State::Idle;
    OnvifConnection m_connection;
    ReconnectTimer m_reconnect;
    QByteArray m_lastKey; // of the last standing link
    DeviceLinkPtr m_link;
    std::unique_ptr<LoginSequence> m_sequence;
    std::unique_ptr<SiteWatch> m_watch;
    std::unique_ptr<EventSubscription> m_events;
    std::unique_ptr<RecordingReader> m_recordings; // null without something that records
    std::unique_ptr<OnvifPtz> m_ptz; // from the first request of a standing link on
    std::unique_ptr<DescriptionReader> m_reader;
    bool m_readOnceMore = false;
    QHash<quint64, EndpointRequest> m_endpoints;
    quint64 m_lastEndpoint = 0;
};

} // namespace orrin
