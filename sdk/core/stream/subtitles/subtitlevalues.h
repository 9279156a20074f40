// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/framefacts.h"
#include "core/stream/subtitles/subtitletemplate.h"

#include <contract/core/playmode.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QString>

#include <optional>

namespace orrin {

class VideoFrame;

/*! What a subtitle may tell of one frame, and how it is put into words. A value. */
class SubtitleValues
{
    Q_DECLARE_TR_FUNCTIONS(orrin::SubtitleValues)

public:
    /*! Whose picture it is; numbers below 0 are not known. */
    struct Origin
    {
        QString serverName;
        QString cameraName;
        int sortId = -1;
        int serverId = -1;
        int channelId = -1;
        bool recording = false; //!< the server records the camera now
    };
    struct Moment
    {
        long long serverTimeMs = 0;
        long long clientTimeMs = 0;
        StreamState state = StreamState::Stopped;
        int seekSpeed = 0;
    };

    SubtitleValues() = default;
    /*! Reads \a frame and keeps nothing of its pixels. */
    SubtitleValues(const VideoFrame &frame, const Origin &origin, const Moment &moment);

    /*! What \a piece gives; empty when it is not known or does not hold. Names come as they are, free of
       markup only with
        \a escaped. */
    QString text(const SubtitleTemplate::Piece &piece, bool escaped) const;

private:
    QString nameText(SubtitleTag tag, bool escaped) const;
    QString dateText(const SubtitleTemplate::Piece &piece) const;
    QString timeAgo() const;
    QString stateText(const SubtitleTemplate::Piece &piece) const;
    QString seekSpeedText() const;
    QString timingText(SubtitleTag tag) const;
    QString pictureText(SubtitleTag tag) const;
    QString frameType() const;
    QString pixelFormat() const;
    bool hasTime() const { return m_time.isValid(); }

    Origin m_origin;
    Moment m_moment;
    QDateTime m_time; // in the server's zone; invalid without a time
    std::optional<FrameFacts> m_facts;
    QString m_codec;
    int m_width = 0;
    int m_height = 0;
    quint8 m_flags = 0;
    bool m_valid = false;
};

} // namespace orrin
