// SPDX-License-Identifier: GPL-3.0-or-later
#include "testrtspserver.h"

#include "core/stream/rtsp/parameterlist.h"
#include "testcertificate.h"

#include <QCryptographicHash>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTcpSocket>
#include <QtEndian>

#include <chrono>

namespace orrin {

using namespace std::chrono_literals;

namespace {

constexpr auto FrameInterval = 10ms;
constexpr int PicturesBeforeTrouble = 5;
constexpr int MaxPayload = 200;
constexpr int Pictures = 60;
constexpr qint64 UnixToNtp = 2208988800;

QList<int> lumasFrom(int first)
{
    QList<int> lumas;
    for (int i = 0; i < Pictures; ++i)
        lumas.append(first + i % 60);
    return lumas;
}

QByteArray md5(const QByteArray &text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex();
}

template <typename Number>
QByteArray bigEndian(Number value)
{
    QByteArray bytes(sizeof(Number), Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

QList<QByteArray> nalsOf(const QByteArray &annexB)
{
    QList<QByteArray> nals;
    qsizetype at = annexB.indexOf(QByteArray::fromHex("000001"));
    while (at >= 0) {
        const qsizetype next = annexB.indexOf(QByteArray::fromHex("000001"), at + 3);
        QByteArray nal = annexB.mid(at + 3, next < 0 ? -1 : next - at - 3);
        while (next >= 0 && nal.endsWith('\0'))
            nal.chop(1);
        nals.append(nal);
        at = next;
    }
    return nals;
}

} // namespace

TestRtspServer::TestRtspServer(bool secure, QObject *parent) : QObject(parent), m_secure(secure)
{
    if (secure) {
        auto server = std::make_unique<QSslServer>();
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setLocalCertificate(QSslCertificate(QByteArray(TestCertificate)));
        configuration.setPrivateKey(QSslKey(QByteArray(TestPrivateKey), QSsl::Ec));
        configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
        server->setSslConfiguration(configuration);
        m_server = std::move(server);
    } else {
        m_server = std::make_unique<QTcpServer>();
    }
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, &TestRtspServer::accept);
    connect(&m_timer, &QTimer::timeout, this, &TestRtspServer::sendPictures);
    m_server->listen(QHostAddress::LocalHost);
    m_timer.start(FrameInterval);
    setKeyInterval(5);
}

TestRtspServer::~TestRtspServer()
{
    closeAll();
}

void TestRtspServer::setKeyInterval(int pictures)
{
    m_streams["/high"] = StreamEncoder("libx264", 320, 240).encode(lumasFrom(40), pictures);
    m_streams["/low"] = StreamEncoder("libx264", 160, 120).encode(lumasFrom(150), pictures);
}

void TestRtspServer::setUser(const QString &user, const QString &password)
{
    m_user = user.toUtf8();
    m_password = password.toUtf8();
}

QUrl TestRtspServer::url(const QString &path) const
{
    QUrl url;
    url.setScheme(m_secure ? QStringLiteral("rtsps") : QStringLiteral("rtsp"));
    url.setHost(QStringLiteral("127.0.0.1"));
    url.setPort(m_server->serverPort());
    url.setPath(path);
    return url;
}

QByteArray TestRtspServer::publicKey()
{
    return QSslCertificate(QByteArray(TestCertificate)).publicKey().toDer();
}

void TestRtspServer::closeAll()
{
    for (const auto &peer : m_peers) {
        disconnect(peer->socket, nullptr, this, nullptr);
        peer->socket->abort();
        peer->socket->deleteLater();
    }
    m_peers.clear();
    open = 0;
}

void TestRtspServer::accept()
{
    while (QTcpSocket *socket = m_server->nextPendingConnection()) {
        ++connections;
        ++open;
        auto peer = std::make_unique<Peer>();
        peer->socket = socket;
        Peer *raw = peer.get();
        m_peers.push_back(std::move(peer));
        connect(socket, &QIODevice::readyRead, this, [this, raw] { read(*raw); });
        connect(socket, &QAbstractSocket::disconnected, this, [this, raw] {
            --open;
            raw->socket->deleteLater();
            std::erase_if(m_peers, [raw](const auto &peer) { return peer.get() == raw; });
        });
        if (socket->bytesAvailable() > 0)
            read(*raw);
    }
}

void TestRtspServer::read(Peer &peer)
{
    const QByteArray bytes = peer.socket->readAll();
    bytesReceived += bytes.size();
    peer.parser.feed(bytes);
    while (peer.parser.next() == rtsp::MessageParser::Event::Message)
        answer(peer, peer.parser.message());
}

bool TestRtspServer::isAuthorised(const rtsp::Message &request) const
{
    if (m_mode == Mode::RefuseUser)
        return false;
    if (m_user.isEmpty())
        return true;
    const QByteArray value = request.header("authorization");
    if (!value.startsWith("Digest "))
        return false;
    const rtsp::ParameterList given(QByteArrayView(value).sliced(7), ',');
    const QByteArray secret = md5(m_user + ":test:" + m_password);
    const QByteArray asked = md5(request.method + ':' + request.uri);
    const QByteArray expected = md5(secret + ":abc:" + given.value("nc") + ':' + given.value("cnonce") + ":auth:" + asked);
    return given.value("username") == m_user && given.value("response") == expected;
}

QByteArray TestRtspServer::describe(const QByteArray &uri) const
{
    if (m_mode == Mode::NoVideo)
        return "v=0\r\ns=test\r\nm=audio 0 RTP/AVP 0\r\na=control:audio\r\n";
    return "v=0\r\ns=test\r\na=control:" + uri
        + "\r\nm=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/90000\r\na=fmtp:96 packetization-mode=1\r\na=control:track1\r\n";
}

void TestRtspServer::answer(Peer &peer, const rtsp::Message &request)
{
    requests.append(request.method);
    if (m_mode == Mode::Silent)
        return;
    if (m_mode == Mode::Garbage) {
        peer.socket->write(QByteArray(100'000, '\x01'));
        return;
    }
    const QByteArray tail = "CSeq: " + request.header("cseq") + "\r\n";
    if (!isAuthorised(request)) {
        peer.socket->write("RTSP/1.0 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"test\"\r\n"
                           "WWW-Authenticate: Digest realm=\"test\", nonce=\"abc\", qop=\"auth\"\r\n" + tail + "\r\n");
        return;
    }
    const QByteArray path = QUrl(QString::fromUtf8(request.uri)).path().toUtf8();
    QByteArray answer = "RTSP/1.0 200 OK\r\n" + tail;
    if (request.method == "DESCRIBE") {
        peer.path = path;
        if (m_mode == Mode::NoStream || !m_streams.contains(path)) {
            peer.socket->write("RTSP/1.0 404 Not Found\r\n" + tail + "\r\n");
            return;
        }
        const QByteArray body = describe(request.uri);
        answer += "Content-Base: " + request.uri + "/\r\nContent-Type: application/sdp\r\nContent-Length: "
            + QByteArray::number(body.size()) + "\r\n\r\n" + body;
    } else if (request.method == "SETUP") {
        answer += "Session: 12345;timeout=4\r\nTransport: RTP/AVP/TCP;unicast;interleaved=0-1\r\n\r\n";
    } else if (request.method == "PLAY") {
        peer.playing = true;
        answer += "Session: 12345\r\nRTP-Info: url=" + request.uri + ";seq=100;rtptime=0\r\n\r\n";
    } else {
        peer.playing = peer.playing && request.method != "PAUSE" && request.method != "TEARDOWN";
        answer += "\r\n";
    }
    peer.socket->write(answer);
}

void TestRtspServer::sendPictures()
{
    // A peer may go while it is served.
    std::vector<Peer *> peers;
    for (const auto &peer : m_peers)
        peers.push_back(peer.get());
    for (Peer *peer : peers) {
        if (peer->playing)
            sendPicture(*peer);
    }
}

void TestRtspServer::sendPicture(Peer &peer)
{
    if (peer.picture >= PicturesBeforeTrouble) {
        if (m_mode == Mode::StallStream)
            return;
        if (m_mode == Mode::DropStream) {
            peer.playing = false;
            peer.socket->disconnectFromHost();
            return;
        }
        if (m_mode == Mode::Bye) {
            peer.playing = false;
            sendRtcp(peer, true);
            return;
        }
    }
    if (m_times == Times::SenderReport && peer.picture % 10 == 0)
        sendRtcp(peer, false);
    const auto &pictures = m_streams[peer.path];
    const auto nals = nalsOf(pictures.at(peer.picture % pictures.size()).data);
    const bool lossy = m_mode == Mode::LosePackets && peer.picture == 3;
    for (const QByteArray &nal : nals) {
        const bool last = &nal == &nals.last();
        if (nal.size() <= MaxPayload) {
            sendPacket(peer, nal, last, lossy && last);
            continue;
        }
        for (qsizetype at = 1; at < nal.size(); at += MaxPayload) {
            const bool end = at + MaxPayload >= nal.size();
            const char header = char((at == 1 ? 0x80 : 0) | (end ? 0x40 : 0) | (nal[0] & 0x1F));
            sendPacket(peer, char((nal[0] & 0xE0) | 28) + QByteArray(1, header) + nal.mid(at, MaxPayload), last && end,
                       lossy && last && end);
        }
    }
    ++peer.picture;
}

quint64 TestRtspServer::ntpOf(int picture) const
{
    const qint64 ms = firstCaptureMs() + picture * 40;
    return quint64(ms / 1000 + UnixToNtp) << 32 | quint64(ms % 1000) * (quint64(1) << 32) / 1000;
}

void TestRtspServer::sendPacket(Peer &peer, const QByteArray &payload, bool marker, bool leaveOut)
{
    QByteArray packet;
    packet += char(m_times == Times::Extension ? 0x90 : 0x80);
    packet += char(96 | (marker ? 0x80 : 0));
    packet += bigEndian<quint16>(peer.sequence++);
    packet += bigEndian<quint32>(quint32(peer.picture) * 3600) + bigEndian<quint32>(0x1234);
    if (m_times == Times::Extension)
        packet += QByteArray::fromHex("abac0003") + bigEndian<quint64>(ntpOf(peer.picture)) + QByteArray(4, 0);
    packet += payload;
    if (!leaveOut)
        peer.socket->write(QByteArray("$\0", 2) + bigEndian<quint16>(quint16(packet.size())) + packet);
}

void TestRtspServer::sendRtcp(Peer &peer, bool bye)
{
    QByteArray packet = QByteArray::fromHex("80c8000600001234") + bigEndian<quint64>(ntpOf(peer.picture))
        + bigEndian<quint32>(quint32(peer.picture) * 3600) + QByteArray(8, 0);
    if (bye)
        packet += QByteArray::fromHex("81cb000100001234");
    peer.socket->write(QByteArray("$\1", 2) + bigEndian<quint16>(quint16(packet.size())) + packet);
}

} // namespace orrin
