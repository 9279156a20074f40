// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QList>
#include <QString>
#include <QStringList>

namespace orrin {

/*! The tags of a subtitle template; docs/subtitle-tags.md tells what each gives. */
enum class SubtitleTag {
    Literal, //!< text of the template itself
    ServerName,
    CameraName,
    SortId,
    ServerId,
    ChannelId,
    Date,
    DateYear,
    DateLiteral,
    Time,
    TimeAgo,
    Live,
    Play,
    Paused,
    Step,
    Wind,
    SeekSpeed,
    Recording,
    ClientVideoTime,
    ServerVideoTime,
    ArrivalDelay,
    ElapsedSinceLoad,
    DecodingDuration,
    FrameRate,
    MegaPixels,
    Width,
    Height,
    ScaleWidth,
    ScaleHeight,
    FrameType,
    PixelFormat,
};

/*! A subtitle template, cut into its tags and the text between them. A value. */
class ORRINSDK_CORE_EXPORT SubtitleTemplate
{
public:
    struct Piece
    {
        SubtitleTag tag = SubtitleTag::Literal;
        QString argument; //!< what stands behind the colon; the text itself of a literal
        bool hasArgument = false;
        friend bool operator==(const Piece &, const Piece &) = default;
    };

    /*! Cuts \a text. A tag is a known name in angle brackets, alone or with a colon and an argument up to the
       closing bracket. Anything else stays text: other tags, an open bracket without end, an argument to a
       tag that takes none. */
    static SubtitleTemplate parse(const QString &text);

    const QList<Piece> &pieces() const { return m_pieces; }
    bool contains(SubtitleTag tag) const;

    /*! The names of all tags, as a template spells them. */
    static QStringList tagNames();

private:
    void addLiteral(QStringView text);

    QList<Piece> m_pieces;
};

} // namespace orrin
