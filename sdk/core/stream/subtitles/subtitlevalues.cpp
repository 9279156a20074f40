// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/subtitles/subtitlevalues.h"

#include <contract/codecs/videoframe.h>

#include <QLocale>

#include <cstdlib>
#include <numeric>

namespace orrin {

namespace {

// Below that a picture counts as shown at its time: the way from the camera takes some time, too.
constexpr long long ShownAsBehindMs = 2000;

constexpr quint8 KindMask = 0x0F;
constexpr quint8 KeyFrameFlag = 0x10;

QString numberText(int number)
{
    return number < 0 ? QString() : QString::number(number);
}

/*! Without zeros at the end: "25", "12.5". */
QString shortNumber(double number, int decimals)
{
    QString text = QString::number(number, 'f', decimals);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text;
}

} // namespace

SubtitleValues::SubtitleValues(const VideoFrame &frame, const Origin &origin, const Moment &moment)
    : m_origin(origin), m_moment(moment), m_valid(frame.isValid())
{
    const Image &image = frame.imageRef();
    if (m_origin.cameraName.isEmpty())
        m_origin.cameraName = QString::fromUtf8(image.extension(ImageHeaderExtension::CameraName));
    if (m_valid && image.time() != 0)
        m_time = image.qDateTimeServerTimeZone();
    m_facts = FrameFacts::fromBytes(image.extension(FrameFactsExtension));
    m_codec = QString::fromLatin1(image.extension(ImageHeaderExtension::Codec));
    m_width = frame.width();
    m_height = frame.height();
    m_flags = image.flags();
}

QString SubtitleValues::text(const SubtitleTemplate::Piece &piece, bool escaped) const
{
    switch (piece.tag) {
    case SubtitleTag::Literal:
        return piece.argument;
    case SubtitleTag::ServerName:
    case SubtitleTag::CameraName:
    case SubtitleTag::SortId:
    case SubtitleTag::ServerId:
    case SubtitleTag::ChannelId:
        return nameText(piece.tag, escaped);
    case SubtitleTag::Date:
    case SubtitleTag::DateYear:
    case SubtitleTag::DateLiteral:
    case SubtitleTag::Time:
    case SubtitleTag::TimeAgo:
        return dateText(piece);
    case SubtitleTag::Live:
    case SubtitleTag::Play:
    case SubtitleTag::Paused:
    case SubtitleTag::Step:
    case SubtitleTag::Wind:
    case SubtitleTag::Recording:
        return stateText(piece);
    case SubtitleTag::SeekSpeed:
        return seekSpeedText();
    case SubtitleTag::ClientVideoTime:
    case SubtitleTag::ServerVideoTime:
    case SubtitleTag::ArrivalDelay:
    case SubtitleTag::ElapsedSinceLoad:
    case SubtitleTag::DecodingDuration:
    case SubtitleTag::FrameRate:
        return timingText(piece.tag);
    case SubtitleTag::MegaPixels:
    case SubtitleTag::Width:
    case SubtitleTag::Height:
    case SubtitleTag::ScaleWidth:
    case SubtitleTag::ScaleHeight:
        return pictureText(piece.tag);
    case SubtitleTag::FrameType:
        return escaped ? frameType().toHtmlEscaped() : frameType();
    case SubtitleTag::PixelFormat:
        return pixelFormat();
    }
    return {};
}

QString SubtitleValues::nameText(SubtitleTag tag, bool escaped) const
{
    if (tag == SubtitleTag::SortId)
        return numberText(m_origin.sortId);
    if (tag == SubtitleTag::ServerId)
        return numberText(m_origin.serverId);
    if (tag == SubtitleTag::ChannelId)
        return numberText(m_origin.channelId);
    const QString &name = tag == SubtitleTag::ServerName ? m_origin.serverName : m_origin.cameraName;
    return escaped ? name.toHtmlEscaped() : name;
}

QString SubtitleValues::dateText(const SubtitleTemplate::Piece &piece) const
{
    if (!hasTime())
        return {};
    if (piece.tag == SubtitleTag::DateLiteral)
        return piece.argument;
    if (piece.tag == SubtitleTag::TimeAgo) {
        const QString ago = timeAgo();
        return ago.isEmpty() || !piece.hasArgument ? ago : piece.argument;
    }
    QString format = piece.argument;
    if (format.isEmpty()) {
        format = piece.tag == SubtitleTag::Date       ? QStringLiteral("dd MMM")
                 : piece.tag == SubtitleTag::DateYear ? QStringLiteral("yyyy")
                                                      : QStringLiteral("hh:mm:ss");
    }
    return QLocale().toString(m_time, format);
}

QString SubtitleValues::timeAgo() const
{
    const long long behindMs = m_moment.serverTimeMs - m_time.toMSecsSinceEpoch();
    if (behindMs < ShownAsBehindMs)
        return {};
    const long long seconds = behindMs / 1000;
    const long long days = seconds / 86400;
    const QString time = QStringLiteral("%1:%2:%3")
                             .arg(seconds / 3600 % 24, 2, 10, QLatin1Char('0'))
                             .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
                             .arg(seconds % 60, 2, 10, QLatin1Char('0'));
    if (days == 0)
        return time;
    //: Days and a time of day by which a picture lies behind: "3 d 04:05:06".
    return tr("%1 d %2").arg(days).arg(time);
}

QString SubtitleValues::stateText(const SubtitleTemplate::Piece &piece) const
{
    const auto word = [&piece](bool holds, const QString &usual) {
        if (!holds)
            return QString();
        return piece.hasArgument ? piece.argument : usual;
    };
    switch (piece.tag) {
    case SubtitleTag::Live:
        return word(m_moment.state == StreamState::Live, tr("LIVE"));
    case SubtitleTag::Play:
        return word(m_moment.state == StreamState::Play, tr("PLAY"));
    case SubtitleTag::Paused:
        return word(m_moment.state == StreamState::Paused, tr("PAUSED"));
    case SubtitleTag::Step:
        return word(m_moment.state == StreamState::Step, tr("FRAME"));
    case SubtitleTag::Recording:
        return word(m_origin.recording, tr("REC"));
    default:
        break;
    }
    if (m_moment.state == StreamState::FastForward)
        return tr("FORWARD");
    return m_moment.state == StreamState::Rewind ? tr("REWIND") : QString();
}

QString SubtitleValues::seekSpeedText() const
{
    const long long speed = std::llabs(static_cast<long long>(m_moment.seekSpeed));
    const bool winds = m_moment.state == StreamState::FastForward || m_moment.state == StreamState::Rewind;
    return speed > 1 || (speed == 1 && winds) ? QString::number(speed) : QString();
}

QString SubtitleValues::timingText(SubtitleTag tag) const
{
    const long long offsetMs = m_moment.serverTimeMs - m_moment.clientTimeMs;
    if (tag == SubtitleTag::ServerVideoTime)
        return hasTime() ? QString::number(m_time.toMSecsSinceEpoch()) : QString();
    if (tag == SubtitleTag::ClientVideoTime)
        return hasTime() ? QString::number(m_time.toMSecsSinceEpoch() - offsetMs) : QString();
    if (!m_facts)
        return {};
    switch (tag) {
    case SubtitleTag::ArrivalDelay:
        return hasTime() ? QString::number(m_facts->arrivedMs + offsetMs - m_time.toMSecsSinceEpoch())
                         : QString();
    case SubtitleTag::ElapsedSinceLoad:
        return QString::number(m_moment.clientTimeMs - m_facts->decodedMs);
    case SubtitleTag::DecodingDuration:
        return QString::number(double(m_facts->decodingUs) / 1000.0, 'f', 2);
    default:
        break;
    }
    //: Frames per second: "25 fps".
    return m_facts->framesPerSecond > 0 ? tr("%1 fps").arg(shortNumber(m_facts->framesPerSecond, 1))
                                        : QString();
}

QString SubtitleValues::pictureText(SubtitleTag tag) const
{
    if (m_width <= 0 || m_height <= 0)
        return {};
    const int divisor = std::gcd(m_width, m_height);
    switch (tag) {
    case SubtitleTag::MegaPixels:
        return QString::number(double(m_width) * m_height / 1e6, 'f', 1);
    case SubtitleTag::Width:
        return QString::number(m_width);
    case SubtitleTag::Height:
        return QString::number(m_height);
    case SubtitleTag::ScaleWidth:
        return QString::number(m_width / divisor);
    default:
        return QString::number(m_height / divisor);
    }
}

QString SubtitleValues::frameType() const
{
    if (!m_valid)
        return {};
    QString type = m_codec.isEmpty() ? QString() : m_codec + u' ';
    if (ImageKind(m_flags & KindMask) != ImageKind::Video)
        return type + tr("sound");
    return type + (m_flags & KeyFrameFlag ? tr("key frame") : tr("frame"));
}

QString SubtitleValues::pixelFormat() const
{
    return m_width > 0 ? QStringLiteral("YUV 4:2:0") : QString();
}

} // namespace orrin
