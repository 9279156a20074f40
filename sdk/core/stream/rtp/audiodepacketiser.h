// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/accessunit.h"
#include "core/stream/rtp/rtppacket.h"

#include <contract/core/export.h>

namespace orrin::rtp {

/*! Takes the packets of one RTP stream of sound and makes access units of them: what one call of the decoder takes.

    Watches the sequence: a packet that comes late or twice is dropped; what is missing shows in the `lost` of the next unit. Anything
    malformed is dropped and counts as lost. One thread at a time. */
class ORRINSDK_CORE_EXPORT AudioDepacketiser
{
public:
    static constexpr int MaxStale = 16;

    AudioDepacketiser(AccessUnitSink &sink, std::uint8_t payloadType) : m_sink(sink), m_payloadType(payloadType) {}
    virtual ~AudioDepacketiser();
    AudioDepacketiser(const AudioDepacketiser &) = delete;
    AudioDepacketiser &operator=(const AudioDepacketiser &) = delete;

    void packet(Bytes bytes);
    /*! Forgets the sequence and what is half put together, as before a seek. */
    void reset();

protected:
    /*! Takes one packet in order; false when it is malformed. \a lost: packets are missing right before it. */
    virtual bool take(const RtpPacket &packet, bool lost) = 0;
    /*! Forgets what is half put together. */
    virtual void forget() {}

    /*! Hands on \a data as the unit at \a rtpTime; \a first says whether the packet's own time is the unit's. */
    void emitUnit(const RtpPacket &packet, Bytes data, std::uint32_t rtpTime, bool first);

private:
    bool isInOrder(const RtpPacket &packet, bool *lost);

    AccessUnitSink &m_sink;
    const std::uint8_t m_payloadType;
    AccessUnit m_unit;
    bool m_started = false;
    bool m_lost = false;
    std::uint16_t m_next = 0;
    std::uint32_t m_ssrc = 0;
    int m_staleRun = 0;
};

} // namespace orrin::rtp
