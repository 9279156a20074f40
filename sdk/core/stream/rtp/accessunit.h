// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/ntptime.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace orrin::rtp {

/*! One coded frame as its decoder takes it: Annex B for H.264 and H.265, a JPEG file for MJPEG. */
struct AccessUnit
{
    /*! Larger ones are dropped. */
    static constexpr std::size_t MaxBytes = 8U << 20;

    std::vector<std::uint8_t> data;
    std::uint32_t rtpTime = 0;
    std::uint16_t firstSequence = 0; //!< sequence number of its first packet
    bool key = false;                //!< can be decoded without others
    bool lost = false;               //!< packets are missing before it or inside
    bool damaged = false;            //!< packets of its own are missing, or it is malformed
    bool end = false;                //!< last frame of a contiguous section of a recording
    bool discontinuity = false;      //!< the sender left frames out before it
    bool terminal = false;           //!< no further frame follows
    std::optional<std::uint8_t> cseq; //!< low byte of the CSeq of the PLAY that asked for it
    std::optional<CaptureTime> time;

    /*! Empty again, the memory kept. */
    void reset()
    {
        std::vector<std::uint8_t> memory = std::move(data);
        memory.clear();
        *this = AccessUnit();
        data = std::move(memory);
    }
};

/*! Takes access units as they are complete. */
class AccessUnitSink
{
public:
    virtual ~AccessUnitSink() = default;
    /*! \a unit is lent for the call; its memory is used again for the next. */
    virtual void accessUnitReady(const AccessUnit &unit) = 0;
};

} // namespace orrin::rtp
