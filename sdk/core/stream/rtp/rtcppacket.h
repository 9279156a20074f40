// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/bytereader.h"

#include <contract/core/export.h>

#include <optional>

namespace orrin::rtp {

/*! What the client wants of a compound RTCP packet. */
struct ORRINSDK_CORE_EXPORT RtcpPacket
{
    /*! The moment that an RTP time stands for. */
    struct SenderReport
    {
        std::uint32_t ssrc = 0;
        std::uint64_t ntp = 0; //!< 0 when the sender has no clock
        std::uint32_t rtpTime = 0;
    };

    std::optional<SenderReport> senderReport;
    bool bye = false;

    /*! Reads as far as the bytes are RTCP of version 2; what follows is ignored. */
    static RtcpPacket parse(Bytes bytes);
};

} // namespace orrin::rtp
