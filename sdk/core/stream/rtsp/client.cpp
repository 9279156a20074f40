// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/client.h"

#include "core/stream/rtsp/parameterlist.h"

#include <algorithm>
#include <utility>

namespace orrin::rtsp {

using namespace std::chrono_literals;

namespace {

constexpr std::size_t ReadBytes = 64 * 1024;
// After that many reads in one turn the other streams of the thread get theirs.
constexpr int ReadsPerTurn = 8;
constexpr std::size_t MaxQueuedRequests = 16;
constexpr auto DefaultSessionTimeout = 60s;
// An answer may stand behind packets that are still on their way: so many times the usual wait while they come.
constexpr int PatienceFactor = 4;

} // namespace

namespace {

Failure failureOf(int status)
{
    const QString detail = Client::tr("The server answers with status %1.").arg(status);
    switch (status) {
    case 401:
    case 403:
        return {Failure::Kind::Unauthorised, detail};
    case 404:
    case 410:
        return {Failure::Kind::NotFound, detail};
    case 457:
        return {Failure::Kind::InvalidRange, detail};
    case 415:
    case 461:
    case 501:
    case 505:
    case 551:
        return {Failure::Kind::Unsupported, detail};
    case 454:
        return {Failure::Kind::Ended, detail};
    default:
        return {Failure::Kind::Connection, detail};
    }
}

} // namespace

Client::Client(ClientListener &listener, QObject *parent)
    : QObject(parent)
    , m_listener(listener)
    , m_connection(this)
    , m_keepAliveInterval(DefaultSessionTimeout / 2)
    , m_requestTimer(this)
    , m_keepAliveTimer(this)
    , m_silenceTimer(this)
{
    m_requestTimer.setSingleShot(true);
    connect(&m_connection, &Connection::established, this, &Client::established);
    connect(&m_connection, &Connection::readable, this, &Client::readBytes);
    connect(&m_connection, &Connection::broken, this,
            [this](const Failure &failure) { fail(failure.kind, failure.detail); });
    connect(&m_requestTimer, &QTimer::timeout, this, &Client::requestTimedOut);
    connect(&m_keepAliveTimer, &QTimer::timeout, this, &Client::keepAlive);
    connect(&m_silenceTimer, &QTimer::timeout, this, &Client::checkSilence);
}

Client::~Client()
{
    close();
}

void Client::open(const ClientSettings &settings)
{
    close();
    // Not when closing: bytes of the parser may be lent to the listener that closes.
    m_parser.reset();
    m_reading = true;
    m_settings = settings;
    m_requestUri = settings.url.toEncoded(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
    m_baseUri = m_requestUri;
    m_authenticator.setCredentials(settings.user, settings.password,
                                   settings.url.scheme() == QLatin1StringView("rtsps"));
    m_state = State::Connecting;
    m_connection.open(settings.url, settings.trustedKey, settings.requestTimeout);
}

void Client::close()
{
    if (m_state == State::Closed)
        return;
    if (!m_session.isEmpty()) {
        Request teardown{"TEARDOWN", m_baseUri, {}, nullptr};
        send(teardown);
    }
    m_state = State::Closed;
    m_requestTimer.stop();
    m_keepAliveTimer.stop();
    m_silenceTimer.stop();
    m_requests.clear();
    m_waiting = false;
    m_session.clear();
    m_connection.close();
}

void Client::setReading(bool reading)
{
    if (std::exchange(m_reading, reading) == reading || !reading)
        return;
    m_lastPacket.start();
    if (m_state != State::Closed && !std::exchange(m_readQueued, true))
        QMetaObject::invokeMethod(this, &Client::readBytes, Qt::QueuedConnection);
}

void Client::fail(Failure::Kind kind, const QString &detail)
{
    if (m_state == State::Closed)
        return;
    close();
    m_listener.failed({kind, detail});
}

void Client::failForStatus(int status)
{
    const Failure failure = failureOf(status);
    fail(failure.kind, failure.detail);
}

// Packets that came meanwhile are a sign of life: the answer stands behind them.
void Client::requestTimedOut()
{
    const bool keepsAlive = !m_requests.empty() && m_requests.front().handler == &Client::keptAlive;
    const bool patient = keepsAlive || m_sent.durationElapsed() < m_settings.requestTimeout * PatienceFactor;
    const bool alive = std::exchange(m_receivedMeanwhile, false);
    if ((alive && patient) || (keepsAlive && !m_reading)) {
        m_requestTimer.start(m_settings.requestTimeout);
        return;
    }
    fail(Failure::Kind::Timeout, tr("The server does not answer."));
}

void Client::established()
{
    m_state = State::SettingUp;
    QList<Message::Header> headers = m_settings.options;
    headers.append(Message::Header("Accept", "application/sdp"));
    enqueue({"DESCRIBE", m_requestUri, headers, &Client::described});
}

void Client::readBytes()
{
    m_readQueued = false;
    for (int i = 0; i < ReadsPerTurn; ++i) {
        if (m_state == State::Closed || !m_reading || !readSome())
            return;
    }
    if (!m_connection.hasBytes() || std::exchange(m_readQueued, true))
        return;
    QMetaObject::invokeMethod(this, &Client::readBytes, Qt::QueuedConnection);
}

// One read and what it completed; false when there was nothing to read or the client is closed.
bool Client::readSome()
{
    const std::size_t size = m_connection.read(m_parser.prepare(ReadBytes));
    if (size == 0)
        return false;
    m_receivedMeanwhile = true;
    m_parser.commit(size);
    for (;;) {
        switch (m_parser.next()) {
        case MessageParser::Event::NeedsMore:
            return true;
        case MessageParser::Event::Error:
            fail(Failure::Kind::Protocol, tr("What the server sends cannot be read."));
            return false;
        case MessageParser::Event::Message:
            handleMessage(m_parser.message());
            break;
        case MessageParser::Event::Interleaved:
            handleInterleaved();
            break;
        }
        if (m_state == State::Closed)
            return false;
    }
}

void Client::handleInterleaved()
{
    // Packets may come before the answer to PLAY, but not before that to SETUP.
    if (m_state != State::Ready && m_state != State::Playing)
        return;
    for (std::size_t i = 0; i < m_tracks.size(); ++i) {
        if (m_parser.channel() == m_tracks[i].rtpChannel) {
            m_lastPacket.start();
            m_listener.rtpPacket(int(i), m_parser.payload());
            return;
        }
        if (m_parser.channel() == m_tracks[i].rtcpChannel) {
            m_listener.rtcpPacket(int(i), m_parser.payload());
            return;
        }
    }
}

void Client::handleMessage(const Message &message)
{
    if (message.isRequest())
        handleRequest(message);
    else
        handleResponse(message);
}

void Client::handleRequest(const Message &request)
{
    if (request.method == "TEARDOWN" || request.method == "REDIRECT") {
        fail(Failure::Kind::Ended, tr("The server ended the session."));
        return;
    }
    const bool known = request.method == "OPTIONS" || request.method == "GET_PARAMETER"
        || request.method == "SET_PARAMETER" || request.method == "ANNOUNCE";
    QByteArray answer = known ? "RTSP/1.0 200 OK\r\n" : "RTSP/1.0 501 Not Implemented\r\n";
    answer += "CSeq: " + request.header("cseq") + "\r\n\r\n";
    m_connection.write(answer);
}

void Client::handleResponse(const Message &response)
{
    if (!m_waiting || response.cseq() != m_requests.front().cseq || response.status < 200)
        return;
    Request &request = m_requests.front();
    if (response.status == 401 && !request.challenged) {
        if (!m_authenticator.challenge(response.headersNamed("www-authenticate"))) {
            fail(Failure::Kind::Unauthorised);
            return;
        }
        request.challenged = true;
        send(request);
        return;
    }
    const Handler handler = request.handler;
    const bool keepAlive = handler == &Client::keptAlive;
    m_requests.pop_front();
    m_waiting = false;
    m_requestTimer.stop();
    const bool refused = response.status < 200 || response.status > 299;
    const bool refusedPlay = refused && handler == &Client::played;
    if (refusedPlay) {
        // Nothing plays, whatever played before.
        m_state = State::Ready;
        m_silenceTimer.stop();
    }
    if (refused && !keepAlive && !isBearable(handler, response.status)) {
        failForStatus(response.status);
        return;
    }
    if (handler && !refusedPlay)
        (this->*handler)(response);
    if (m_state != State::Closed)
        sendNext();
}

// Whether the session stands although the server refused that request; tells the listener.
bool Client::isBearable(Handler handler, int status)
{
    const Failure failure = failureOf(status);
    if (handler == &Client::played)
        return failure.kind != Failure::Kind::Ended && m_listener.playRefused(failure);
    // A server at the end of a range has nothing to pause.
    if (handler == &Client::pausedByServer)
        return failure.kind != Failure::Kind::Ended;
    return handler == &Client::setUp && m_tracksSetUp > 0;
}

void Client::enqueue(Request request)
{
    if (m_requests.size() >= MaxQueuedRequests) {
        fail(Failure::Kind::Timeout, tr("The server does not answer."));
        return;
    }
    m_requests.push_back(std::move(request));
    sendNext();
}

void Client::sendNext()
{
    if (m_waiting || m_requests.empty())
        return;
    m_waiting = true;
    send(m_requests.front());
}

void Client::send(Request &request)
{
    request.cseq = ++m_cseq;
    QByteArray bytes = request.method + ' ' + request.uri + " RTSP/1.0\r\nCSeq: " + QByteArray::number(request.cseq)
        + "\r\nUser-Agent: orrinsdk\r\n";
    const QByteArray authorization = m_authenticator.authorization(request.method, request.uri);
    if (!authorization.isEmpty())
        bytes += "Authorization: " + authorization + "\r\n";
    if (!m_session.isEmpty())
        bytes += "Session: " + m_session + "\r\n";
    for (const Message::Header &header : std::as_const(request.headers))
        bytes += header.first + ": " + header.second + "\r\n";
    m_connection.write(bytes + "\r\n");
    m_requestTimer.start(m_settings.requestTimeout);
    m_receivedMeanwhile = false;
    m_sent.start();
}

void Client::described(const Message &response)
{
    const auto description = SessionDescription::parse(response.body);
    if (!description) {
        fail(Failure::Kind::Unsupported, tr("The server describes no stream."));
        return;
    }
    for (const char *name : {"content-base", "content-location"}) {
        const QByteArray base = response.header(name);
        if (base.startsWith("rtsp")) {
            m_baseUri = base;
            break;
        }
    }
    const QList<int> chosen = m_listener.chooseMedia(*description);
    if (m_state == State::Closed)
        return;
    m_tracks.clear();
    m_tracksSetUp = 0;
    for (const int index : chosen) {
        if (index >= 0 && index < description->media.size() && int(m_tracks.size()) < MaxTracks)
            m_tracks.push_back({controlUri(description->media.at(index).control)});
    }
    if (m_tracks.empty()) {
        fail(Failure::Kind::Unsupported, tr("The server offers no codec that can be played."));
        return;
    }
    if (description->control.startsWith("rtsp"))
        m_baseUri = description->control;
    setUpNext();
}

void Client::setUpNext()
{
    const int channel = int(m_tracksSetUp) * 2;
    QList<Message::Header> headers = m_settings.options;
    headers.append(Message::Header("Transport", "RTP/AVP/TCP;unicast;interleaved=" + QByteArray::number(channel) + '-'
                                                    + QByteArray::number(channel + 1)));
    enqueue({"SETUP", m_tracks[m_tracksSetUp].uri, headers, &Client::setUp});
}

void Client::setUp(const Message &response)
{
    if (response.status > 299) {
        // What was set up before is enough to play.
        m_tracks.resize(m_tracksSetUp);
        ready();
        return;
    }
    readSession(response.header("session"));
    if (m_session.isEmpty()) {
        fail(Failure::Kind::Protocol, tr("The server opens no session."));
        return;
    }
    if (!readTransport(response.header("transport"), int(m_tracksSetUp))) {
        fail(Failure::Kind::Unsupported, tr("The server offers no transport over the connection."));
        return;
    }
    if (++m_tracksSetUp < m_tracks.size())
        setUpNext();
    else
        ready();
}

void Client::ready()
{
    m_state = State::Ready;
    m_keepAliveTimer.start(m_keepAliveInterval);
    m_listener.ready();
}

void Client::play(const QList<Message::Header> &headers)
{
    if (m_state != State::Ready && m_state != State::Playing)
        return;
    enqueue({"PLAY", m_baseUri, m_settings.options + headers, &Client::played});
}

void Client::played(const Message &response)
{
    m_state = State::Playing;
    m_lastPacket.start();
    if (m_settings.silenceTimeout.count() > 0)
        m_silenceTimer.start(std::clamp<std::chrono::milliseconds>(m_settings.silenceTimeout / 10, 20ms, 1s));
    PlayReply reply;
    reply.range = response.header("range");
    reply.scale = response.header("scale");
    reply.cseq = response.header("cseq");
    bool ok = false;
    const int sequence = ParameterList(response.header("rtp-info"), ';').value("seq").toInt(&ok);
    if (ok && sequence >= 0 && sequence <= 0xFFFF)
        reply.firstSequence = quint16(sequence);
    m_listener.playing(reply);
}

void Client::pause()
{
    if (m_state == State::Playing)
        enqueue({"PAUSE", m_baseUri, {}, &Client::pausedByServer});
}

void Client::pausedByServer(const Message &)
{
    m_state = State::Ready;
    m_silenceTimer.stop();
    m_listener.paused();
}

void Client::keepAlive()
{
    // A request on its way keeps the session alive too.
    if (!m_requests.empty())
        return;
    enqueue({m_getParameter ? "GET_PARAMETER" : "OPTIONS", m_baseUri, {}, &Client::keptAlive});
}

void Client::keptAlive(const Message &response)
{
    if (response.status == 454)
        fail(Failure::Kind::Ended, tr("The server ended the session."));
    else if (response.status >= 300)
        m_getParameter = false;
}

void Client::checkSilence()
{
    if (!m_reading)
        m_lastPacket.start();
    else if (m_state == State::Playing && m_lastPacket.durationElapsed() > m_settings.silenceTimeout)
        fail(Failure::Kind::Timeout, tr("The server sends no pictures."));
}

QByteArray Client::controlUri(const QByteArray &control) const
{
    if (control.isEmpty() || control == "*")
        return m_baseUri;
    if (control.startsWith("rtsp://") || control.startsWith("rtsps://"))
        return control;
    return m_baseUri.endsWith('/') ? m_baseUri + control : m_baseUri + '/' + control;
}

bool Client::readTransport(const QByteArray &transport, int track)
{
    Track &place = m_tracks[std::size_t(track)];
    place.rtpChannel = 2 * track;
    place.rtcpChannel = 2 * track + 1;
    const ParameterList parameters(transport, ';');
    const QByteArray channels = parameters.value("interleaved");
    if (!channels.isEmpty()) {
        const QList<QByteArray> numbers = channels.split('-');
        bool ok = false;
        place.rtpChannel = numbers[0].toInt(&ok);
        if (!ok || place.rtpChannel < 0 || place.rtpChannel > 255)
            return false;
        const int second = numbers.size() > 1 ? numbers[1].toInt(&ok) : -1;
        place.rtcpChannel = ok && second >= 0 && second <= 255 ? second : -1;
    } else if (!transport.isEmpty() && !transport.contains("TCP")) {
        return false;
    }
    int highest = 0;
    for (const Track &each : m_tracks)
        highest = std::max({highest, each.rtpChannel, each.rtcpChannel});
    m_parser.setChannelCount(highest + 1);
    return true;
}

// "12345678;timeout=60"
void Client::readSession(const QByteArray &header)
{
    const qsizetype semicolon = header.indexOf(';');
    m_session = (semicolon < 0 ? header : header.first(semicolon)).trimmed();
    std::chrono::milliseconds timeout = DefaultSessionTimeout;
    if (semicolon >= 0) {
        const int seconds = ParameterList(QByteArrayView(header).sliced(semicolon + 1), ';').value("timeout").toInt();
        if (seconds > 0)
            timeout = std::chrono::seconds(seconds);
    }
    m_keepAliveInterval = std::clamp<std::chrono::milliseconds>(timeout / 2, 2s, 30s);
}

} // namespace orrin::rtsp
