// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtspprobe.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QRegularExpression>
#include <QtEndian>

namespace orrin::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int RequestTimeoutMs = 10000;
constexpr qint64 NtpEpochOffset = 2208988800;

QByteArray md5(const QByteArray &data)
{
    return QCryptographicHash::hash(data, QCryptographicHash::Md5).toHex();
}

quint16 be16(QByteArrayView data, qsizetype at)
{
    return qFromBigEndian<quint16>(data.data() + at);
}

quint32 be32(QByteArrayView data, qsizetype at)
{
    return qFromBigEndian<quint32>(data.data() + at);
}

} // namespace

RtspProbe::RtspProbe(const QUrl &url, const QString &user, const QString &password)
    : m_url(url), m_user(user.toUtf8()), m_password(password.toUtf8())
{
    m_socket.setPeerVerifyMode(QSslSocket::VerifyNone);
}

bool RtspProbe::connectToServer()
{
    if (m_url.scheme() == "rtsps"_L1) {
        m_socket.connectToHostEncrypted(m_url.host(), quint16(m_url.port()));
        return m_socket.waitForEncrypted(RequestTimeoutMs);
    }
    m_socket.connectToHost(m_url.host(), quint16(m_url.port()));
    return m_socket.waitForConnected(RequestTimeoutMs);
}

QByteArray RtspProbe::authorization(const QByteArray &method, const QByteArray &url) const
{
    const QByteArray realm = m_challenge.value("realm");
    const QByteArray nonce = m_challenge.value("nonce");
    const QByteArray ha1 = md5(m_user + ':' + realm + ':' + m_password);
    const QByteArray response = md5(ha1 + ':' + nonce + ':' + md5(method + ':' + url));
    return "Digest username=\"" + m_user + "\", realm=\"" + realm + "\", nonce=\"" + nonce + "\", uri=\"" +
           url + "\", response=\"" + response + '"';
}

RtspProbe::Response RtspProbe::request(const QByteArray &method, const QByteArray &url,
                                       const QList<QPair<QByteArray, QByteArray>> &headers)
{
    for (int attempt = 0; attempt < 2; ++attempt) {
        QByteArray message =
            method + ' ' + url + " RTSP/1.0\r\nCSeq: " + QByteArray::number(++m_sequence) + "\r\n";
        if (!m_session.isEmpty())
            message += "Session: " + m_session + "\r\n";
        for (const auto &[name, value] : headers)
            message += name + ": " + value + "\r\n";
        if (!m_challenge.isEmpty())
            message += "Authorization: " + authorization(method, url) + "\r\n";
        m_socket.write(message + "\r\n");
        m_socket.flush();

        std::optional<Response> response;
        QDeadlineTimer deadline(RequestTimeoutMs);
        while (!response) {
            if (takeMessage(&response))
                continue;
            if (!m_error.isEmpty() || deadline.hasExpired() || !readMore(int(deadline.remainingTime())))
                return {};
        }
        if (response->status != 401 || attempt > 0)
            return *response;
        static const QRegularExpression parameter(u"(\\w+)=\"?([^\",]+)\"?"_s);
        m_challenge.clear();
        auto matches =
            parameter.globalMatch(QString::fromLatin1(response->headers.value("www-authenticate")));
        while (matches.hasNext()) {
            const auto match = matches.next();
            m_challenge.insert(match.captured(1).toLatin1(), match.captured(2).toLatin1());
        }
        if (m_user.isEmpty() || m_challenge.isEmpty())
            return *response;
    }
    return {};
}

int RtspProbe::play()
{
    const QByteArray url = m_url.toEncoded();
    const Response description = request("DESCRIBE", url, {{"Accept", "application/sdp"}});
    if (description.status != 200)
        return description.status;
    const QString sdp = QString::fromUtf8(description.body);
    static const QRegularExpression rtpmap(u"a=rtpmap:\\d+ ([A-Za-z0-9]+)/"_s);
    static const QRegularExpression control(u"m=video.*?a=control:(\\S+)"_s,
                                            QRegularExpression::DotMatchesEverythingOption);
    m_codec = sdp.contains("m=video 0 RTP/AVP 26"_L1) ? "JPEG" : rtpmap.match(sdp).captured(1).toLatin1();
    QByteArray track = control.match(sdp).captured(1).toLatin1();
    if (!track.startsWith("rtsp"))
        track = url + '/' + track;
    const Response setup = request("SETUP", track, {{"Transport", "RTP/AVP/TCP;unicast;interleaved=0-1"}});
    if (setup.status != 200)
        return setup.status;
    m_session = setup.headers.value("session").split(';').constFirst();
    return request("PLAY", url, {{"Range", "npt=0.000-"}}).status;
}

std::optional<AccessUnit> RtspProbe::next(int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (m_units.isEmpty()) {
        if (takeMessage(nullptr))
            continue;
        if (!m_error.isEmpty() || deadline.hasExpired() || !readMore(int(deadline.remainingTime())))
            return std::nullopt;
    }
    return m_units.takeFirst();
}

bool RtspProbe::readMore(int timeoutMs)
{
    if (m_socket.bytesAvailable() == 0 && !m_socket.waitForReadyRead(qMax(1, timeoutMs)))
        return false;
    m_input += m_socket.readAll();
    return true;
}

bool RtspProbe::takeMessage(std::optional<Response> *response)
{
    if (m_input.size() < 4)
        return false;
    if (m_input.startsWith('$')) {
        const qsizetype size = be16(m_input, 2);
        if (m_input.size() < 4 + size)
            return false;
        if (m_input.at(1) == 0)
            takeRtp(QByteArrayView(m_input).sliced(4, size));
        m_input.remove(0, 4 + size);
        return true;
    }
    if (!m_input.startsWith("RTSP")) {
        m_error = u"neither a frame nor a response in the stream"_s;
        return false;
    }
    const qsizetype end = m_input.indexOf("\r\n\r\n");
    if (end < 0)
        return false;
    Response parsed;
    const QList<QByteArray> lines = m_input.left(end).split('\n');
    parsed.status = lines.constFirst().split(' ').value(1).toInt();
    for (const QByteArray &line : lines.sliced(1)) {
        const qsizetype colon = line.indexOf(':');
        parsed.headers.insert(line.left(colon).trimmed().toLower(), line.sliced(colon + 1).trimmed());
    }
    const qsizetype bodySize = parsed.headers.value("content-length").toInt();
    if (m_input.size() < end + 4 + bodySize)
        return false;
    parsed.body = m_input.sliced(end + 4, bodySize);
    m_input.remove(0, end + 4 + bodySize);
    if (response)
        *response = parsed;
    return true;
}

void RtspProbe::takeRtp(QByteArrayView packet)
{
    if (packet.size() < 12 || (quint8(packet[0]) >> 6) != 2) {
        m_error = u"a frame that is not RTP"_s;
        return;
    }
    const bool marker = quint8(packet[1]) & 0x80;
    m_current.rtpTime = be32(packet, 4);
    qsizetype at = 12 + (quint8(packet[0]) & 15) * 4;
    if (quint8(packet[0]) & 0x10) {
        const int words = be16(packet, at + 2);
        if (be16(packet, at) == 0xABAC && words >= 3) {
            const quint64 fraction = be32(packet, at + 8);
            m_current.timeMs = (qint64(be32(packet, at + 4)) - NtpEpochOffset) * 1000 +
                               qint64((fraction * 1000 + (1ULL << 31)) >> 32);
        }
        at += 4 + words * 4;
    }
    takePayload(packet.sliced(at));
    if (marker) {
        m_units.append(m_current);
        m_current = {};
    }
}

void RtspProbe::takePayload(QByteArrayView payload)
{
    if (payload.size() < 3)
        return;
    if (m_codec == "H264")
        takeH264(payload);
    else if (m_codec == "H265")
        takeH265(payload);
    else
        m_current.data += payload;
}

void RtspProbe::addNal(QByteArrayView nal)
{
    m_current.data += QByteArray("\0\0\0\1", 4);
    m_current.data += nal;
}

void RtspProbe::takeH264(QByteArrayView payload)
{
    const int type = quint8(payload[0]) & 31;
    if (type == 28) {
        const quint8 header = quint8(payload[1]);
        if (header & 0x80) {
            const char nalHeader = char((quint8(payload[0]) & 0xe0) | (header & 31));
            addNal(QByteArrayView(&nalHeader, 1));
        }
        m_current.data += payload.sliced(2);
    } else if (type == 24) {
        for (qsizetype at = 1; at + 2 <= payload.size();) {
            const qsizetype size = qMin<qsizetype>(be16(payload, at), payload.size() - at - 2);
            addNal(payload.sliced(at + 2, size));
            at += 2 + size;
        }
    } else {
        addNal(payload);
    }
}

void RtspProbe::takeH265(QByteArrayView payload)
{
    const int type = (quint8(payload[0]) >> 1) & 63;
    if (type == 49) {
        const quint8 header = quint8(payload[2]);
        if (header & 0x80) {
            const char nalHeader[2] = {char((quint8(payload[0]) & 0x81) | ((header & 63) << 1)), payload[1]};
            addNal(QByteArrayView(nalHeader, 2));
        }
        m_current.data += payload.sliced(3);
    } else if (type == 48) {
        for (qsizetype at = 2; at + 2 <= payload.size();) {
            const qsizetype size = qMin<qsizetype>(be16(payload, at), payload.size() - at - 2);
            addNal(payload.sliced(at + 2, size));
            at += 2 + size;
        }
    } else {
        addNal(payload);
    }
}

} // namespace orrin::test
