// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/audiodepacketiser.h"

#include <utility>

namespace orrin::rtp {

AudioDepacketiser::~AudioDepacketiser() = default;

void AudioDepacketiser::packet(Bytes bytes)
{
    const auto packet = RtpPacket::parse(bytes);
    bool lost = false;
    if (!packet || packet->payloadType != m_payloadType || !isInOrder(*packet, &lost))
        return;
    m_lost |= lost;
    if (!take(*packet, lost)) {
        forget();
        m_lost = true;
    }
}

void AudioDepacketiser::reset()
{
    m_started = false;
    m_lost = false;
    m_staleRun = 0;
    forget();
}

bool AudioDepacketiser::isInOrder(const RtpPacket &packet, bool *lost)
{
    const bool first = !std::exchange(m_started, true);
    const bool otherSource = std::exchange(m_ssrc, packet.ssrc) != packet.ssrc && !first;
    const auto distance = std::int16_t(std::uint16_t(packet.sequence - m_next));
    if (!first && !otherSource && distance < 0 && ++m_staleRun < MaxStale)
        return false;
    m_staleRun = 0;
    *lost = !first && (otherSource || distance != 0);
    m_next = std::uint16_t(packet.sequence + 1);
    return true;
}

void AudioDepacketiser::emitUnit(const RtpPacket &packet, Bytes data, std::uint32_t rtpTime, bool first)
{
    m_unit.reset();
    m_unit.data.assign(data.begin(), data.end());
    m_unit.rtpTime = rtpTime;
    m_unit.firstSequence = packet.sequence;
    m_unit.key = true;
    m_unit.lost = std::exchange(m_lost, false);
    if (packet.replay) {
        m_unit.end = packet.replay->end;
        m_unit.terminal = packet.replay->terminal;
        m_unit.cseq = packet.replay->cseq;
        m_unit.discontinuity = first && packet.replay->discontinuity;
        if (first)
            m_unit.time = fromNtp(packet.replay->ntp);
    }
    m_sink.accessUnitReady(m_unit);
}

} // namespace orrin::rtp
