// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/subtitles/subtitletemplate.h"

#include <algorithm>
#include <iterator>

namespace orrin {

namespace {

enum class Argument { None, Optional };

struct TagName
{
    QLatin1StringView name;
    SubtitleTag tag;
    Argument argument = Argument::None;
};

constexpr TagName TagNames[] = {
    {QLatin1StringView("ServerName"), SubtitleTag::ServerName},
    {QLatin1StringView("CameraName"), SubtitleTag::CameraName},
    {QLatin1StringView("SortID"), SubtitleTag::SortId},
    {QLatin1StringView("SID"), SubtitleTag::ServerId},
    {QLatin1StringView("CID"), SubtitleTag::ChannelId},
    {QLatin1StringView("Date1a"), SubtitleTag::Date, Argument::Optional},
    {QLatin1StringView("D3a"), SubtitleTag::DateYear, Argument::Optional},
    {QLatin1StringView("D1a"), SubtitleTag::DateLiteral, Argument::Optional},
    {QLatin1StringView("Time"), SubtitleTag::Time, Argument::Optional},
    {QLatin1StringView("TimeAgo"), SubtitleTag::TimeAgo, Argument::Optional},
    {QLatin1StringView("Live"), SubtitleTag::Live, Argument::Optional},
    {QLatin1StringView("Play"), SubtitleTag::Play, Argument::Optional},
    {QLatin1StringView("Paused"), SubtitleTag::Paused, Argument::Optional},
    {QLatin1StringView("Frame2"), SubtitleTag::Step, Argument::Optional},
    {QLatin1StringView("FwdRew"), SubtitleTag::Wind},
    {QLatin1StringView("SeekSpeedAbs"), SubtitleTag::SeekSpeed},
    {QLatin1StringView("Rec"), SubtitleTag::Recording, Argument::Optional},
    {QLatin1StringView("ClientVideoTime"), SubtitleTag::ClientVideoTime},
    {QLatin1StringView("ServerVideoTime"), SubtitleTag::ServerVideoTime},
    {QLatin1StringView("ImageEntryTimeMinusServerVideoTime"), SubtitleTag::ArrivalDelay},
    {QLatin1StringView("ElapsedMSecsSinceImageLoad"), SubtitleTag::ElapsedSinceLoad},
    {QLatin1StringView("DecodingDurationMSecs2"), SubtitleTag::DecodingDuration},
    {QLatin1StringView("FrameRateHuman"), SubtitleTag::FrameRate},
    {QLatin1StringView("MegaPixels"), SubtitleTag::MegaPixels},
    {QLatin1StringView("Width"), SubtitleTag::Width},
    {QLatin1StringView("Height"), SubtitleTag::Height},
    {QLatin1StringView("ScaleWidth"), SubtitleTag::ScaleWidth},
    {QLatin1StringView("ScaleHeight"), SubtitleTag::ScaleHeight},
    {QLatin1StringView("Type"), SubtitleTag::FrameType},
    {QLatin1StringView("PixelFormat"), SubtitleTag::PixelFormat},
};

/*! The tag that \a content, what stands between the brackets, spells; a literal when it spells none. */
SubtitleTemplate::Piece readTag(QStringView content)
{
    const qsizetype colon = content.indexOf(u':');
    const bool hasArgument = colon >= 0;
    const QStringView name = hasArgument ? content.first(colon) : content;
    const auto found =
        std::ranges::find_if(TagNames, [name](const TagName &entry) { return name == entry.name; });
    if (found == std::end(TagNames) || (hasArgument && found->argument == Argument::None))
        return {};
    return {found->tag, hasArgument ? content.sliced(colon + 1).toString() : QString(), hasArgument};
}

} // namespace

SubtitleTemplate SubtitleTemplate::parse(const QString &text)
{
    SubtitleTemplate result;
    const QStringView view(text);
    qsizetype literal = 0;
    qsizetype open = view.indexOf(u'<');
    while (open >= 0) {
        const qsizetype close = view.indexOf(u'>', open + 1);
        if (close < 0)
            break;
        const Piece piece = readTag(view.sliced(open + 1, close - open - 1));
        if (piece.tag == SubtitleTag::Literal) {
            open = view.indexOf(u'<', open + 1);
            continue;
        }
        result.addLiteral(view.sliced(literal, open - literal));
        result.m_pieces.append(piece);
        literal = close + 1;
        open = view.indexOf(u'<', literal);
    }
    result.addLiteral(view.sliced(literal));
    return result;
}

void SubtitleTemplate::addLiteral(QStringView text)
{
    if (!text.isEmpty())
        m_pieces.append({SubtitleTag::Literal, text.toString(), false});
}

bool SubtitleTemplate::contains(SubtitleTag tag) const
{
    return std::ranges::find(m_pieces, tag, &Piece::tag) != m_pieces.end();
}

QStringList SubtitleTemplate::tagNames()
{
    QStringList names;
    for (const TagName &entry : TagNames)
        names.append(entry.name);
    return names;
}

} // namespace orrin
