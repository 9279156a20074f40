// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <optional>

namespace orrin::rtsp {

/*! One medium of a session description. */
struct MediaDescription
{
    enum class Kind { Video, Audio, Application, Other };

    Kind kind = Kind::Other;
    int payloadType = -1;   //!< the first one offered
    QByteArray encoding;    //!< in upper case, e.g. "H264"; from rtpmap or the static payload type
    int clockRate = 0;
    int channels = 1;
    QByteArray control;     //!< as it stands; empty without one
    QByteArray fmtp;        //!< parameters of the payload type
    QByteArray track;       //!< the token of the recording's track; empty outside recordings
};

/*! A session description (SDP) as cameras and recorders send it. Tolerant: unknown and missing lines do no harm. */
struct ORRINSDK_CORE_EXPORT SessionDescription
{
    static constexpr qsizetype MaxBytes = 64 * 1024;
    static constexpr int MaxMedia = 32;

    QByteArray control; //!< of the whole session
    QByteArray range;
    QList<MediaDescription> media;

    /*! Nothing for texts that are too large or have no medium. */
    static std::optional<SessionDescription> parse(QByteArrayView text);
};

} // namespace orrin::rtsp
