// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/onvifsession.h"

#include "core/corelog.h"
#include "core/ptz/onvifptz.h"
#include "core/session/onvif/descriptionreader.h"
#include "core/session/onvif/eventservice.h"
#include "core/session/onvif/eventsubscription.h"
#include "core/session/onvif/publickeypolicy.h"
#include "core/session/onvif/sitewatch.h"

#include <contract/core/publickeychecker.h>

#include <QPointer>

namespace orrin {

namespace {

/*! For objects that may be in the middle of a signal of their own. */
template <typename Object> void dropLater(std::unique_ptr<Object> &object)
{
    if (!object)
        return;
    object->QObject::disconnect();
    object.release()->deleteLater();
}

} // namespace

OnvifSession::OnvifSession(const CorvaneUrl &url, const SharedCredentials &credentials, bool asGroup,
                           unsigned request, const OnvifTimings &timings, QObject *parent)
    : Session(parent)
    , m_url(url)
    , m_credentials(credentials)
    , m_asGroup(asGroup)
    , m_request(request)
    , m_timings(timings)
    , m_connection(timings.boundsRenewal)
    , m_reconnect(timings.reconnectFirst, timings.reconnectLongest)
{
    connect(&m_reconnect, &ReconnectTimer::due, this, &OnvifSession::startSequence);
}

OnvifSession::~OnvifSession()
{
    EventSubscription::end(std::move(m_events));
    DeviceLink::end(std::move(m_link));
}

void OnvifSession::open()
{
    if (m_state != State::Idle)
        return;
    m_state = State::Connecting;
    startSequence();
}

void OnvifSession::close()
{
    if (m_state == State::Closed)
        return;
    m_state = State::Closed;
    m_reconnect.reset();
    dropLater(m_sequence);
    dropLink();
}

void OnvifSession::dropLink()
{
    if (m_ptz)
        m_ptz->end(m_state != State::Closed);
    m_ptz.reset();
    EventSubscription::end(std::move(m_events));
    m_connection.setReader(nullptr);
    dropLater(m_recordings);
    dropLater(m_watch);
    dropLater(m_reader);
    m_readOnceMore = false;
    DeviceLink::end(std::move(m_link));
    // With the link go the calls for these, without an answer.
    const QList<quint64> waiting = m_endpoints.keys();
    QMetaObject::invokeMethod(
        this,
        [this, waiting] {
            const QPointer<OnvifSession> guard(this);
            for (const quint64 number : waiting) {
                if (guard)
                    answerEndpoint(number, PlaybackError(PlaybackError::StreamLost));
            }
        },
        Qt::QueuedConnection);
}

QByteArray OnvifSession::trustedKey() const
{
    return isPublicKeyCheckOn() ? PublicKeyChecker::derKey(m_url.hostAndPort()) : QByteArray();
}

void OnvifSession::startSequence()
{
    LoginSequence::Target target;
    target.url = m_url;
    target.credentials = m_credentials;
    target.trustedKey = trustedKey();
    target.requireTls = !m_lastKey.isEmpty();
    m_sequence = std::make_unique<LoginSequence>(
        target, m_timings, [self = QPointer<OnvifSession>(this)](LoginSequence::Outcome outcome) {
            if (self)
                self->onSequenceEnded(std::move(outcome));
        });
    m_sequence->start();
}

void OnvifSession::onSequenceEnded(LoginSequence::Outcome outcome)
{
    dropLater(m_sequence);
    if (m_state == State::Closed)
        return;
    if (outcome.failure)
        onLoginFailed(*outcome.failure);
    else
        onLinkReady(std::move(outcome.link));
}

void OnvifSession::onLoginFailed(const LoginFailure &failure)
{
    const LoginError error = loginErrorOf(failure);
    logCore(olog::LL_Warning, Q_FUNC_INFO,
            QStringLiteral("%1: login failed with code %2. %3")
                .arg(m_url.hostAndPort(), QString::number(error.errorId()), failure.detail));
    if (m_state == State::Connecting) {
        m_state = State::Closed;
        Q_EMIT loginFailed(error);
        return;
    }
    // Trying a refused password again and again locks the account; a changed key waits for a decision.
    const bool needsPerson = failure.code == LoginError::BadLogin ||
                             failure.code == LoginError::AccountLocked ||
                             failure.code == LoginError::PublicKeyChanged;
    if (needsPerson)
        m_reconnect.scheduleLongest();
    else
        m_reconnect.scheduleNext();
}

LoginError OnvifSession::loginErrorOf(const LoginFailure &failure) const
{
    LoginError error;
    error.error = failure.code;
    error.server = m_url.host();
    error.port = static_cast<std::uint16_t>(m_url.port());
    error.detail = failure.detail;
    error.request = m_request;
    error.asGroup = m_asGroup;
    error.lockoutSeconds = failure.lockoutSeconds;
    error.loginData = LoginData(m_url.hostAndPort());
    error.loginData.negotiationData().derKey() = failure.derKey;
    return error;
}

void OnvifSession::onLinkReady(DeviceLinkPtr link)
{
    m_link = std::move(link);
    m_lastKey = m_link->trust.key();
    m_connection.setClockOffset(m_link->soap.clockOffset());
    m_reconnect.reset();
    if (isPublicKeyCheckOn() && m_link->trust.isTls() &&
        PublicKeyChecker::derKey(m_url.hostAndPort()).isEmpty())
        PublicKeyChecker::setDerKey(m_url.hostAndPort(), m_link->trust.key());
    const bool isFirst = m_state == State::Connecting;
    m_state = State::Online;
    startWatch();
    startRecordings();
    const QPointer<OnvifSession> guard(this);
    Q_EMIT described(m_link->assembled.description);
    if (!guard || m_state != State::Online)
        return;
    if (isFirst)
        Q_EMIT opened();
    else
        Q_EMIT restored();
    // Not before: events belong to a server that stands.
    if (guard && m_state == State::Online)
        startEvents();
}

void OnvifSession::startRecordings()
{
    if (m_link->services.search.isEmpty() || m_link->services.replay.isEmpty())
        return;
    m_recordings = std::make_unique<RecordingReader>(m_link.get());
    m_connection.setReader(m_recordings.get());
    m_recordings->read();
}

void OnvifSession::startEvents()
{
    if (m_link->services.events.isEmpty() || m_events)
        return;
    m_events = std::make_unique<EventSubscription>(*m_link, m_timings);
    connect(m_events.get(), &EventSubscription::pulled, this, &OnvifSession::onEvents);
    connect(m_events.get(), &EventSubscription::causesKnown, this, &Session::eventCausesKnown);
    m_events->start();
}

void OnvifSession::onEvents(const XmlElement &answer)
{
    const QList<EventDescription> events =
        eventservice::readMessages(answer, m_link->assembled.channelsBySource);
    if (!events.isEmpty())
        Q_EMIT eventsReceived(events);
}

void OnvifSession::startWatch()
{
    m_watch = std::make_unique<SiteWatch>(m_link.get(), m_timings);
    connect(m_watch.get(), &SiteWatch::changed, this, &OnvifSession::readAgain);
    connect(m_watch.get(), &SiteWatch::notice, this, &OnvifSession::onNotice);
    connect(m_watch.get(), &SiteWatch::failed, this, &OnvifSession::lose);
    m_watch->start();
}

void OnvifSession::readAgain()
{
    if (m_reader) {
        m_readOnceMore = true;
        return;
    }
    m_readOnceMore = false;
    m_reader = std::make_unique<DescriptionReader>(
        m_link.get(), [self = QPointer<OnvifSession>(this)](const std::optional<LoginFailure> &failure) {
            if (self)
                self->onReadAgain(failure);
        });
    m_reader->start();
}

void OnvifSession::onReadAgain(const std::optional<LoginFailure> &failure)
{
    dropLater(m_reader);
    if (m_state != State::Online)
        return;
    if (failure) {
        // What the site looks like now is not known: a new login finds out.
        lose(ConnectionError(failure->code == LoginError::BadLogin ? ConnectionError::NotAuthorised
                                                                   : ConnectionError::ProtocolError));
        return;
    }
    if (m_recordings)
        m_recordings->read();
    const QPointer<OnvifSession> guard(this);
    Q_EMIT described(m_link->assembled.description);
    if (guard && m_state == State::Online && m_readOnceMore)
        readAgain();
}

void OnvifSession::lose(const ConnectionError &error)
{
    if (m_state != State::Online)
        return;
    m_state = State::Lost;
    dropLink();
    m_reconnect.scheduleNext();
    logCore(olog::LL_Warning, Q_FUNC_INFO,
            QStringLiteral("%1: connection lost, code %2")
                .arg(m_url.hostAndPort(), QString::number(error.errorId())));
    Q_EMIT lost(error);
}

void OnvifSession::onNotice(const QString &name)
{
    if (name == QLatin1StringView("restart")) {
        Q_EMIT restartRequested();
    } else if (name == QLatin1StringView("reboot")) {
        Q_EMIT rebootRequested();
    } else if (name == QLatin1StringView("shutdown")) {
        Q_EMIT shutdownRequested();
    } else if (name == QLatin1StringView("userTimedOut")) {
        close();
        Q_EMIT userTimedOut();
    }
}

void OnvifSession::requestMediaEndpoint(int channelId, StreamQuality quality, QObject *context,
                                        MediaEndpointCallback callback)
{
    const quint64 number = ++m_lastEndpoint;
    m_endpoints.insert(number, {callback, context, context != nullptr});
    const bool isOnline = m_state == State::Online;
    const auto streams = isOnline ? m_link->assembled.streams.constFind(channelId)
                                  : QHash<int, ChannelStreams>::const_iterator();
    if (!isOnline || streams == m_link->assembled.streams.cend()) {
        const PlaybackError error(isOnline ? PlaybackError::NotFound : PlaybackError::StreamLost);
        QMetaObject::invokeMethod(
            this, [this, number, error] { answerEndpoint(number, error); }, Qt::QueuedConnection);
        return;
    }
    const QString profile = quality == StreamQuality::Low ? streams->lowProfile : streams->highProfile;
    m_link->soap.call(
        m_link->streamUriRequest(profile, m_timings.endpointTimeout),
        [self = QPointer<OnvifSession>(this), number, mask = streams->privacyMask](const SoapAnswer &reply) {
            if (self && self->m_state == State::Online)
                self->onStreamUri(number, reply, mask);
        });
}

void OnvifSession::requestPtz(int channelId, const PtzRequest &request, QObject *context, PtzCallback callback)
{
    if (m_state == State::Online) {
        if (!m_ptz)
            m_ptz = std::make_unique<OnvifPtz>(m_link.get(), m_timings);
        m_ptz->request(channelId, request, context, std::move(callback));
        return;
    }
    if (!callback || m_state == State::Closed)
        return;
    QMetaObject::invokeMethod(
        context ? context : this,
        [callback = std::move(callback)] { callback({PtzfError(PtzfError::NotConnected), {}, {}}); },
        Qt::QueuedConnection);
}

void OnvifSession::refuseEndpointLater(quint64 number, const PlaybackError &error)
{
    QMetaObject::invokeMethod(
        this, [this, number, error] { answerEndpoint(number, error); }, Qt::QueuedConnection);
}

void OnvifSession::requestReplayEndpoint(int channelId, int trackId, StreamQuality quality, QObject *context,
                                         MediaEndpointCallback callback)
{
    const quint64 number = ++m_lastEndpoint;
    m_endpoints.insert(number, {std::move(callback), context, context != nullptr});
    if (m_state != State::Online || !m_recordings) {
        refuseEndpointLater(number, PlaybackError(m_state == State::Online ? PlaybackError::Unsupported
                                                                           : PlaybackError::StreamLost));
        return;
    }
    m_recordings->whenKnown([self = QPointer<OnvifSession>(this), reader = m_recordings.get(), number, channelId,
                             trackId, quality] {
        if (!self || self->m_recordings.get() != reader)
            return;
        const auto place = reader->catalogue().place(channelId, trackId, quality);
        if (reader->error())
            self->answerEndpoint(number, *reader->error());
        else if (!place)
            self->answerEndpoint(number, PlaybackError(PlaybackError::NotFound));
        else
            self->onPlace(number, *place, channelId);
    });
}

void OnvifSession::onPlace(quint64 number, const RecordingReader::Place &place, int channelId)
{
    const QByteArray mask = m_link->assembled.streams.value(channelId).privacyMask;
    m_recordings->requestUri(place, [self = QPointer<OnvifSession>(this), number, mask,
                                     track = place.track.toUtf8()](const SoapAnswer &reply) {
        if (!self || self->m_state != State::Online)
            return;
        const QUrl url = reply.isAnswer() ? mediaservice::readStreamUri(reply.body, self->m_url.host()) : QUrl();
        if (!url.isValid()) {
            self->onStreamUri(number, reply, mask);
            return;
        }
        MediaEndpoint endpoint = self->endpointFor(url, mask);
        endpoint.trackToken = track;
        self->answerEndpoint(number, endpoint);
    });
}

void OnvifSession::requestTrackBounds(int channelId, int trackId, QObject *context, TrackBoundsCallback callback)
{
    const auto answer = [context = QPointer<QObject>(context), hasContext = context != nullptr,
                         callback = std::move(callback)](const std::optional<TrackBounds> &bounds) {
        if (!hasContext || context)
            callback(bounds);
    };
    if (m_state != State::Online || !m_recordings) {
        QMetaObject::invokeMethod(this, [answer] { answer(std::nullopt); }, Qt::QueuedConnection);
        return;
    }
    m_recordings->whenKnown([reader = QPointer<RecordingReader>(m_recordings.get()), channelId, trackId, answer] {
        if (!reader)
            return;
        reader->refresh(channelId, trackId, StreamQuality::High, [answer](const std::optional<RecordingReader::Place> &place) {
            const bool known = place && place->toMs > place->fromMs;
            answer(known ? std::optional(TrackBounds(place->fromMs * 3 / 10, place->toMs * 3 / 10)) : std::nullopt);
        });
    });
}

void OnvifSession::onStreamUri(quint64 number, const SoapAnswer &reply, const QByteArray &mask)
{
    const QUrl url = reply.isAnswer() ? mediaservice::readStreamUri(reply.body, m_url.host()) : QUrl();
    if (url.isValid())
        answerEndpoint(number, endpointFor(url, mask));
    else if (reply.isNotAuthorised())
        answerEndpoint(number, PlaybackError(PlaybackError::NotPermitted));
    else if (reply.kind == SoapAnswer::Kind::NoAnswer)
        answerEndpoint(number, PlaybackError(PlaybackError::StreamLost));
    else
        answerEndpoint(number, PlaybackError(PlaybackError::NotFound));
}

void OnvifSession::answerEndpoint(quint64 number, const MediaEndpointResult &result)
{
    const EndpointRequest request = m_endpoints.take(number);
    if (request.callback && (!request.hasContext || request.context) && m_state != State::Closed)
        request.callback(result);
}

MediaEndpoint OnvifSession::endpointFor(const QUrl &url, const QByteArray &mask) const
{
    MediaEndpoint endpoint;
    endpoint.url = url;
    endpoint.credentials = m_credentials;
    // Another host has a key of its own, of which the session knows nothing.
    if (isPublicKeyCheckOn() && url.host().compare(m_url.host(), Qt::CaseInsensitive) == 0)
        endpoint.trustedKey = m_link->trust.key();
    endpoint.privacyMask = mask;
    endpoint.timeZone = m_link->assembled.description.timeZone;
    endpoint.clockOffsetMs = m_link->soap.clockOffset();
    return endpoint;
}

} // namespace orrin
