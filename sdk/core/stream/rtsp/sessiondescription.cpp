// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/sessiondescription.h"

namespace orrin::rtsp {

namespace {

void applyStaticType(MediaDescription *medium)
{
    struct StaticType
    {
        int payloadType;
        const char *encoding;
        int clockRate;
    };
    constexpr StaticType Types[]{{0, "PCMU", 8000}, {8, "PCMA", 8000}, {26, "JPEG", 90000}};
    for (const StaticType &type : Types) {
        if (medium->payloadType == type.payloadType) {
            medium->encoding = type.encoding;
            medium->clockRate = type.clockRate;
        }
    }
}

// "video 0 RTP/AVP 96 97"
MediaDescription readMedium(QByteArrayView value)
{
    MediaDescription medium;
    const QList<QByteArray> words = value.toByteArray().simplified().split(' ');
    if (words[0] == "video")
        medium.kind = MediaDescription::Kind::Video;
    else if (words[0] == "audio")
        medium.kind = MediaDescription::Kind::Audio;
    else if (words[0] == "application")
        medium.kind = MediaDescription::Kind::Application;
    bool ok = false;
    const int type = words.size() > 3 ? words[3].toInt(&ok) : -1;
    if (ok && type >= 0 && type < 128)
        medium.payloadType = type;
    applyStaticType(&medium);
    return medium;
}

// Splits "96 rest" and says whether the number is the medium's payload type.
bool isForPayloadType(const MediaDescription &medium, QByteArrayView value, QByteArrayView *rest)
{
    const qsizetype space = value.indexOf(' ');
    if (space < 0)
        return false;
    *rest = value.sliced(space + 1).trimmed();
    bool ok = false;
    return value.first(space).toInt(&ok) == medium.payloadType && ok;
}

// "H264/90000" or "PCMU/8000/2"
void readEncoding(MediaDescription *medium, QByteArrayView value)
{
    const QList<QByteArray> parts = value.toByteArray().split('/');
    medium->encoding = parts[0].trimmed().toUpper();
    if (parts.size() > 1)
        medium->clockRate = qMax(0, parts[1].toInt());
    if (parts.size() > 2)
        medium->channels = qBound(1, parts[2].toInt(), 16);
}

void readAttribute(SessionDescription *session, QByteArrayView value)
{
    const qsizetype colon = value.indexOf(':');
    if (colon < 0)
        return;
    const QByteArrayView name = value.first(colon);
    const QByteArrayView content = value.sliced(colon + 1).trimmed();
    if (session->media.isEmpty()) {
        if (name == "control")
            session->control = content.toByteArray();
        else if (name == "range")
            session->range = content.toByteArray();
        return;
    }
    MediaDescription &medium = session->media.last();
    QByteArrayView rest;
    if (name == "control")
        medium.control = content.toByteArray();
    else if (name == "x-onvif-track")
        medium.track = content.toByteArray();
    else if (name == "rtpmap" && isForPayloadType(medium, content, &rest))
        readEncoding(&medium, rest);
    else if (name == "fmtp" && isForPayloadType(medium, content, &rest))
        medium.fmtp = rest.toByteArray();
}

} // namespace

std::optional<SessionDescription> SessionDescription::parse(QByteArrayView text)
{
    if (text.size() > MaxBytes)
        return std::nullopt;
    SessionDescription session;
    while (!text.isEmpty()) {
        const qsizetype lineEnd = text.indexOf('\n');
        const QByteArrayView line = (lineEnd < 0 ? text : text.first(lineEnd)).trimmed();
        text = lineEnd < 0 ? QByteArrayView() : text.sliced(lineEnd + 1);
        if (line.size() < 2 || line[1] != '=')
            continue;
        if (line[0] == 'm') {
            if (session.media.size() >= MaxMedia)
                break;
            session.media.append(readMedium(line.sliced(2)));
        } else if (line[0] == 'a') {
            readAttribute(&session, line.sliced(2));
        }
    }
    if (session.media.isEmpty())
        return std::nullopt;
    return session;
}

} // namespace orrin::rtsp
