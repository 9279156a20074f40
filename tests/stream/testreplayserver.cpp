// SPDX-License-Identifier: GPL-3.0-or-later
#include "testreplayserver.h"

#include <QDateTime>
#include <QTimeZone>
#include <QTimer>
#include <QtEndian>

#include <chrono>

namespace orrin {

using namespace std::chrono_literals;

namespace {

constexpr qint64 UnixToNtp = 2208988800;
constexpr qint64 MaxUnsent = 128 * 1024;
constexpr int MaxPayload = 1200;
constexpr int FramesBeforeBreak = 10;
constexpr qint64 HourMs = 3'600'000;

template <typename Number>
QByteArray bigEndian(Number value)
{
    QByteArray bytes(sizeof(Number), Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

qint64 clockMs(const QByteArray &text)
{
    QString digits = QString::fromLatin1(text);
    digits.remove(u'Z');
    const bool fraction = digits.contains(u'.');
    QDateTime time = QDateTime::fromString(digits, fraction ? QStringLiteral("yyyyMMddTHHmmss.zzz") : QStringLiteral("yyyyMMddTHHmmss"));
    time.setTimeZone(QTimeZone::utc());
    return time.toMSecsSinceEpoch();
}

QList<QByteArray> nalsOf(const QByteArray &annexB)
{
    QList<QByteArray> nals;
    const QByteArray mark = QByteArray::fromHex("000001");
    qsizetype at = annexB.indexOf(mark);
    while (at >= 0) {
        const qsizetype next = annexB.indexOf(mark, at + 3);
        QByteArray nal = annexB.mid(at + 3, next < 0 ? -1 : next - at - 3);
        while (next >= 0 && nal.endsWith('\0'))
            nal.chop(1);
        nals.append(nal);
        at = next;
    }
    return nals;
}

} // namespace

TestReplayServer::TestReplayServer(QObject *parent) : QObject(parent)
{
    connect(&m_server, &QTcpServer::pendingConnectionAvailable, this, &TestReplayServer::accept);
    m_server.listen(QHostAddress::LocalHost);
}

TestReplayServer::~TestReplayServer()
{
    closeAll();
}

QUrl TestReplayServer::url() const
{
    return QUrl(QStringLiteral("rtsp://127.0.0.1:%1/recording").arg(m_server.serverPort()));
}

void TestReplayServer::closeAll()
{
    for (const auto &peer : m_peers) {
        disconnect(peer->socket, nullptr, this, nullptr);
        peer->socket->abort();
        peer->socket->deleteLater();
    }
    m_peers.clear();
    open = 0;
}

void TestReplayServer::accept()
{
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        ++open;
        // What the system takes in for a client that does not read is not what the client takes.
        socket->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, MaxUnsent);
        auto peer = std::make_unique<Peer>();
        peer->socket = socket;
        Peer *raw = peer.get();
        m_peers.push_back(std::move(peer));
        connect(socket, &QIODevice::readyRead, this, [this, raw] { read(*raw); });
        connect(socket, &QIODevice::bytesWritten, this, [this, raw] { pump(*raw); });
        connect(socket, &QAbstractSocket::disconnected, this, [this, raw] {
            --open;
            raw->socket->deleteLater();
            std::erase_if(m_peers, [raw](const auto &each) { return each.get() == raw; });
        });
        if (socket->bytesAvailable() > 0)
            read(*raw);
    }
}

void TestReplayServer::read(Peer &peer)
{
    peer.parser.feed(peer.socket->readAll());
    while (peer.parser.next() == rtsp::MessageParser::Event::Message)
        answer(peer, peer.parser.message());
}

void TestReplayServer::answer(Peer &peer, const rtsp::Message &request)
{
    requests.append(request.method);
    const QByteArray tail = "CSeq: " + request.header("cseq") + "\r\n";
    QByteArray answer = "RTSP/1.0 200 OK\r\n" + tail;
    if (request.method == "DESCRIBE") {
        if (m_mode == Mode::RefuseDescribe) {
            peer.socket->write("RTSP/1.0 551 Option not supported\r\n" + tail + "\r\n");
            return;
        }
        const QByteArray body = "v=0\r\ns=test\r\na=control:*\r\nm=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/90000\r\n"
                                "a=fmtp:96 packetization-mode=1\r\na=x-onvif-track:VIDEO001\r\na=control:track1\r\n";
        answer += "Content-Base: " + request.uri + "/\r\nContent-Type: application/sdp\r\nContent-Length: "
            + QByteArray::number(body.size()) + "\r\n\r\n" + body;
    } else if (request.method == "SETUP") {
        answer += "Session: 777;timeout=60\r\nTransport: RTP/AVP/TCP;unicast;interleaved=0-1\r\n\r\n";
    } else if (request.method == "PLAY") {
        play(peer, request);
        return;
    } else {
        if (request.method == "PAUSE" || request.method == "TEARDOWN")
            peer.playing = false;
        answer += "Session: 777\r\n\r\n";
    }
    peer.socket->write(answer);
}

void TestReplayServer::play(Peer &peer, const rtsp::Message &request)
{
    const QByteArray tail = "CSeq: " + request.header("cseq") + "\r\n";
    const QByteArray range = request.header("range");
    ranges.append(range);
    switch (m_mode) {
    case Mode::RefusePlay:
        peer.socket->write("RTSP/1.0 403 Forbidden\r\n" + tail + "\r\n");
        return;
    case Mode::RangeNotFound:
        peer.socket->write("RTSP/1.0 457 Invalid Range\r\n" + tail + "\r\n");
        return;
    case Mode::SessionGone:
        peer.socket->write("RTSP/1.0 454 Session Not Found\r\n" + tail + "\r\n");
        return;
    case Mode::NoAnswer:
        return;
    default:
        break;
    }
    const QList<QByteArray> ends = range.mid(range.indexOf('=') + 1).split('-');
    peer.fromMs = clockMs(ends.value(0));
    peer.toMs = clockMs(ends.value(1));
    if (m_mode == Mode::OtherRange) {
        peer.fromMs -= HourMs;
        peer.toMs -= HourMs;
    }
    peer.backward = request.header("scale").startsWith('-');
    const QByteArray wanted = request.header("frames");
    peer.keysOnly = wanted.startsWith("intra");
    peer.keyIntervalMs = wanted.mid(6).toLongLong();
    peer.cseq = quint8(request.cseq());
    const auto reply = [this, &peer, tail] {
        for (const QByteArray &packet : std::exchange(peer.old, {})) {
            if (m_mode == Mode::OldPackets)
                peer.socket->write(packet);
        }
        peer.socket->write("RTSP/1.0 200 OK\r\n" + tail + "Session: 777\r\nRTP-Info: url=track1;seq="
                           + QByteArray::number(peer.sequence) + ";rtptime=0\r\n\r\n");
        begin(peer);
        pump(peer);
    };
    if (m_mode == Mode::LateAnswers)
        QTimer::singleShot(300ms, peer.socket, reply);
    else
        reply();
}

qint64 TestReplayServer::groupHolding(qint64 ms) const
{
    return ms - ms % recording.groupMs();
}

void TestReplayServer::begin(Peer &peer)
{
    peer.playing = true;
    peer.sent = 0;
    peer.index = 0;
    peer.lastKeyMs = 0;
    peer.gapBefore = true;
    if (!peer.backward) {
        const auto first = recording.frameAt(peer.fromMs);
        peer.groupMs = first ? groupHolding(*first) : recording.endMs();
        if (m_mode == Mode::NextKeyFrame && peer.groupMs < peer.fromMs)
            moveOn(peer);
        return;
    }
    const auto last = recording.frameBefore(peer.fromMs + 1);
    peer.groupMs = last ? groupHolding(*last) : -1;
}

// To the next group in the direction of play.
void TestReplayServer::moveOn(Peer &peer)
{
    peer.index = 0;
    if (!peer.backward) {
        const qint64 next = peer.groupMs + recording.groupMs();
        const auto frame = recording.frameAt(next);
        peer.gapBefore = frame && *frame != next;
        peer.groupMs = frame ? groupHolding(*frame) : recording.endMs();
        return;
    }
    const auto frame = recording.frameBefore(peer.groupMs);
    peer.gapBefore = true;
    peer.groupMs = frame ? groupHolding(*frame) : -1;
}

void TestReplayServer::pump(Peer &peer)
{
    const QPointer<QTcpSocket> socket = peer.socket;
    while (socket && peer.playing && socket->bytesToWrite() < MaxUnsent) {
        if (!sendNext(peer))
            return;
    }
}

// False when nothing more is to be sent.
bool TestReplayServer::sendNext(Peer &peer)
{
    for (;;) {
        const bool over = peer.backward ? peer.groupMs < 0 || peer.groupMs + recording.groupMs() <= peer.toMs
                                        : peer.groupMs >= recording.endMs() || (peer.groupMs >= peer.toMs && m_mode != Mode::NoEnd);
        if (over) {
            peer.playing = false;
            if (m_mode != Mode::NoEndMark)
                sendBye(peer);
            return false;
        }
        if (peer.keysOnly && peer.lastKeyMs != 0 && qAbs(peer.groupMs - peer.lastKeyMs) < peer.keyIntervalMs) {
            moveOn(peer);
            continue;
        }
        const QList<TestRecording::Frame> &group = recording.group(peer.groupMs, peer.keysOnly ? TestRecording::Part::KeyFrame : TestRecording::Part::Whole);
        if (peer.index >= group.size() || (peer.keysOnly && peer.index > 0)) {
            moveOn(peer);
            continue;
        }
        const TestRecording::Frame frame = group.at(peer.index);
        const TestRecording::Span *span = recording.spanAt(frame.ms);
        const bool behind = !span || (peer.backward ? frame.ms > peer.fromMs : frame.ms >= peer.toMs && m_mode != Mode::NoEnd);
        ++peer.index;
        if (behind) {
            peer.index = group.size();
            continue;
        }
        peer.lastKeyMs = frame.ms;
        if (m_mode == Mode::Break && ++peer.sent > FramesBeforeBreak) {
            peer.playing = false;
            QMetaObject::invokeMethod(peer.socket, [socket = peer.socket] { socket->disconnectFromHost(); }, Qt::QueuedConnection);
            return false;
        }
        sendFrame(peer, frame, frame.key && std::exchange(peer.gapBefore, false), frame.ms + recording.intervalMs() >= span->endMs);
        return true;
    }
}

void TestReplayServer::sendFrame(Peer &peer, const TestRecording::Frame &frame, bool discontinuity, bool end)
{
    ++frames;
    const quint8 flags = quint8((frame.key ? 0x80 : 0) | (end ? 0x40 : 0) | (discontinuity ? 0x20 : 0));
    QByteArray data = frame.data;
    if (m_mode == Mode::Damage) {
        // Behind the start code and the first type, so that not even the parameters of the stream are there.
        for (qsizetype i = 5; i < data.size(); ++i)
            data[i] = char(i * 37 + 5);
    }
    const auto nals = nalsOf(data);
    for (const QByteArray &nal : nals) {
        const bool last = &nal == &nals.last();
        if (nal.size() <= MaxPayload) {
            sendPacket(peer, nal, last, frame.ms, flags);
            continue;
        }
        for (qsizetype at = 1; at < nal.size(); at += MaxPayload) {
            const bool final = at + MaxPayload >= nal.size();
            const char header = char((at == 1 ? 0x80 : 0) | (final ? 0x40 : 0) | (nal[0] & 0x1F));
            sendPacket(peer, char((nal[0] & 0xE0) | 28) + QByteArray(1, header) + nal.mid(at, MaxPayload), last && final, frame.ms, flags);
        }
    }
}

void TestReplayServer::sendPacket(Peer &peer, const QByteArray &payload, bool marker, qint64 ms, quint8 flags)
{
    const quint64 ntp = quint64(ms / 1000 + UnixToNtp) << 32 | quint64(ms % 1000) * (quint64(1) << 32) / 1000;
    QByteArray packet = QByteArray::fromHex("90") + char(96 | (marker ? 0x80 : 0));
    packet += bigEndian<quint16>(peer.sequence++) + bigEndian<quint32>(quint32(ms * 90)) + bigEndian<quint32>(0x4321);
    packet += QByteArray::fromHex("abac0003") + bigEndian<quint64>(ntp) + char(flags) + char(peer.cseq) + QByteArray(2, 0) + payload;
    const QByteArray framed = QByteArray("$\0", 2) + bigEndian<quint16>(quint16(packet.size())) + packet;
    if (m_mode == Mode::OldPackets) {
        peer.old.append(framed);
        if (peer.old.size() > 40)
            peer.old.removeFirst();
    }
    if (m_mode == Mode::Shuffle && peer.sequence % 7 == 0 && peer.held.isEmpty()) {
        peer.held = framed;
        return;
    }
    peer.socket->write(framed);
    if (!peer.held.isEmpty())
        peer.socket->write(std::exchange(peer.held, {}));
}

void TestReplayServer::sendBye(Peer &peer)
{
    const QByteArray packet = QByteArray::fromHex("80c8000600004321") + QByteArray(20, 0) + QByteArray::fromHex("81cb000100004321");
    peer.socket->write(QByteArray("$\1", 2) + bigEndian<quint16>(quint16(packet.size())) + packet);
}

} // namespace orrin
