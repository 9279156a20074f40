// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/depacketiser.h"

#include <contract/core/export.h>

#include <memory>

namespace orrin::rtp {

/*! Takes the packets of one RTP stream, watches their sequence, and hands them to a depacketiser. One thread at a time.

    Packets come over TCP, so one out of order is one that the sender repeats or mixes up: it is dropped. After MaxStale of them in
    a row the stream is taken to have begun anew. */
class ORRINSDK_CORE_EXPORT RtpReceiver
{
public:
    static constexpr int MaxStale = 16;

    RtpReceiver(std::unique_ptr<Depacketiser> depacketiser, std::uint8_t payloadType);
    ~RtpReceiver();

    void packet(Bytes bytes);
    /*! Forgets the unit under way and the sequence, as before a seek. */
    void reset();

    /*! Packets that are missing, that came out of order, and that were no RTP packet of this stream. */
    quint64 lostPackets() const { return m_lost; }
    quint64 stalePackets() const { return m_stale; }
    quint64 foreignPackets() const { return m_foreign; }

private:
    enum class Order { Next, Gap, Stale };
    Order orderOf(const RtpPacket &packet);

    std::unique_ptr<Depacketiser> m_depacketiser;
    std::uint8_t m_payloadType;
    bool m_started = false;
    std::uint16_t m_next = 0;
    std::uint32_t m_ssrc = 0;
    int m_staleRun = 0;
    quint64 m_lost = 0;
    quint64 m_stale = 0;
    quint64 m_foreign = 0;
};

} // namespace orrin::rtp
