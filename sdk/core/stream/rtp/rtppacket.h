// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/bytereader.h"

#include <contract/core/export.h>

#include <optional>

namespace orrin::rtp {

/*! The header extension 0xABAC of streaming recorders: when the frame was captured and where it stands in the recording. */
struct ReplayExtension
{
    std::uint64_t ntp = 0;
    bool cleanPoint = false;    //!< C: the frame can be decoded without others
    bool end = false;           //!< E: the last frame of a contiguous section
    bool discontinuity = false; //!< D: frames are missing before this one
    bool terminal = false;      //!< T: no further frame follows
    std::uint8_t cseq = 0;      //!< the low byte of the CSeq of the PLAY that asked for the frame
};

/*! One RTP packet, read in place: the payload lies in the bytes given to parse(). */
struct ORRINSDK_CORE_EXPORT RtpPacket
{
    std::uint8_t payloadType = 0;
    bool marker = false;
    std::uint16_t sequence = 0;
    std::uint32_t timestamp = 0;
    std::uint32_t ssrc = 0;
    Bytes payload;
    std::optional<ReplayExtension> replay;

    /*! Nothing for bytes that are no RTP packet of version 2. */
    static std::optional<RtpPacket> parse(Bytes bytes);
};

} // namespace orrin::rtp
