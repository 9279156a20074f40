// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtsp/sessiondescription.h"

#include <cstdint>
#include <span>

namespace orrin {

/*! The sound of a stream: takes the packets of the second track of its RTSP session, live or recorded. On the stream's thread; owned by the
    stream's worker.

    The worker says when sound may be heard: live, and in play forward at the rate of 1. Elsewhere packets come too and
    are to be dropped. */
class AudioTrack
{
public:
    virtual ~AudioTrack() = default;

    /*! Whether \a medium can be played; what follows is of that medium. */
    virtual bool open(const rtsp::MediaDescription &medium) = 0;
    /*! The bytes are lent for the call. */
    virtual void rtpPacket(std::span<const std::uint8_t> bytes) = 0;
    virtual void rtcpPacket(std::span<const std::uint8_t> bytes) = 0;
    /*! What comes next does not follow from what came before, as behind a seek. */
    virtual void reset() = 0;
    virtual void setAudible(bool audible) = 0;

    /*! The first medium of \a description that \a track opens; -1 without one or when \a track is null. */
    static int choose(AudioTrack *track, const rtsp::SessionDescription &description)
    {
        for (int i = 0; track && i < description.media.size(); ++i) {
            if (description.media.at(i).kind == rtsp::MediaDescription::Kind::Audio && track->open(description.media.at(i)))
                return i;
        }
        return -1;
    }
};

} // namespace orrin
