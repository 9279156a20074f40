// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtspprobe.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QRegularExpression>
#include <QTimeZone>
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

int RtspProbe::setUp(bool withAudio, const QList<QPair<QByteArray, QByteArray>> &headers)
{
    const QByteArray url = m_url.toEncoded();
    const Response answer =
        request("DESCRIBE", url, QList<QPair<QByteArray, QByteArray>>{{"Accept", "application/sdp"}} + headers);
    if (answer.status != 200)
        return answer.status;
    m_description = QString::fromUtf8(answer.body);
    const QString picture = m_description.section(u"m=video"_s, 1).section(u"m=audio"_s, 0, 0);
    static const QRegularExpression rtpmap(u"a=rtpmap:\\d+ ([A-Za-z0-9]+)/"_s);
    static const QRegularExpression control(u"a=control:(\\S+)"_s);
    m_codec = picture.startsWith(" 0 RTP/AVP 26"_L1) ? "JPEG" : rtpmap.match(picture).captured(1).toLatin1();
    QStringList parts{picture};
    if (withAudio)
        parts.append(m_description.section(u"m=audio"_s, 1));
    for (qsizetype i = 0; i < parts.size(); ++i) {
        QByteArray track = control.match(parts.at(i)).captured(1).toLatin1();
        if (track.isEmpty())
            return -1;
        if (!track.startsWith("rtsp"))
            track = url + '/' + track;
        const QByteArray channels = QByteArray::number(2 * i) + '-' + QByteArray::number(2 * i + 1);
        const Response setup =
            request("SETUP", track,
                    QList<QPair<QByteArray, QByteArray>>{
                        {"Transport", "RTP/AVP/TCP;unicast;interleaved=" + channels}} +
                        headers);
        if (setup.status != 200)
            return setup.status;
        m_session = setup.headers.value("session").split(';').constFirst();
    }
    return 200;
}

int RtspProbe::play(bool withAudio)
{
    const int status = setUp(withAudio);
    return status == 200 ? request("PLAY", m_url.toEncoded(), {{"Range", "npt=0.000-"}}).status : status;
}

RtspProbe::Response RtspProbe::replay(qint64 fromMs, qint64 untilMs, const QByteArray &scale,
                                      const QByteArray &frames)
{
    const auto clock = [](qint64 timeMs) {
        return QDateTime::fromMSecsSinceEpoch(timeMs, QTimeZone::UTC)
            .toString(u"yyyyMMdd'T'HHmmss.zzz'Z'"_s)
            .toLatin1();
    };
    m_units.clear();
    m_audio.clear();
    m_current = {};
    QList<QPair<QByteArray, QByteArray>> headers{{"Require", "onvif-replay"},
                                                 {"Rate-Control", "no"},
                                                 {"Immediate", "yes"},
                                                 {"Range", "clock=" + clock(fromMs) + '-' + clock(untilMs)},
                                                 {"Scale", scale}};
    if (!frames.isEmpty())
        headers.append({"Frames", frames});
    return request("PLAY", m_url.toEncoded(), headers);
}

std::optional<AccessUnit> RtspProbe::next(int timeoutMs)
{
    return take(m_units, timeoutMs);
}

std::optional<AccessUnit> RtspProbe::nextAudio(int timeoutMs)
{
    return take(m_audio, timeoutMs);
}

std::optional<AccessUnit> RtspProbe::take(QList<AccessUnit> &units, int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (units.isEmpty()) {
        if (takeMessage(nullptr))
            continue;
        if (!m_error.isEmpty() || deadline.hasExpired() || !readMore(int(deadline.remainingTime())))
            return std::nullopt;
    }
    return units.takeFirst();
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
        else if (m_input.at(1) == 2)
            takeAudio(QByteArrayView(m_input).sliced(4, size));
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

/*! Where the payload begins, -1 when it is no RTP. */
qsizetype RtspProbe::readHeader(QByteArrayView packet, AccessUnit &unit)
{
    if (packet.size() < 12 || (quint8(packet[0]) >> 6) != 2) {
        m_error = u"a frame that is not RTP"_s;
        return -1;
    }
    unit.rtpTime = be32(packet, 4);
    qsizetype at = 12 + (quint8(packet[0]) & 15) * 4;
    if (quint8(packet[0]) & 0x10) {
        const int words = be16(packet, at + 2);
        if (be16(packet, at) == 0xABAC && words >= 3) {
            const quint64 fraction = be32(packet, at + 8);
            unit.timeMs = (qint64(be32(packet, at + 4)) - NtpEpochOffset) * 1000 +
                          qint64((fraction * 1000 + (1ULL << 31)) >> 32);
            unit.flags |= quint8(packet[at + 12]);
        }
        at += 4 + words * 4;
    }
    return at;
}

void RtspProbe::takeRtp(QByteArrayView packet)
{
    const qsizetype at = readHeader(packet, m_current);
    if (at < 0)
        return;
    takePayload(packet.sliced(at));
    if (quint8(packet[1]) & 0x80) {
        m_units.append(m_current);
        m_current = {};
    }
}

void RtspProbe::takeAudio(QByteArrayView packet)
{
    AccessUnit unit;
    const qsizetype at = readHeader(packet, unit);
    if (at < 0)
        return;
    unit.data = packet.sliced(at).toByteArray();
    m_audio.append(unit);
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
