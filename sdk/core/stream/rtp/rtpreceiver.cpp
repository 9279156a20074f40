// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/rtpreceiver.h"

#include <utility>

namespace orrin::rtp {

RtpReceiver::RtpReceiver(std::unique_ptr<Depacketiser> depacketiser, std::uint8_t payloadType)
    : m_depacketiser(std::move(depacketiser))
    , m_payloadType(payloadType)
{
}

RtpReceiver::~RtpReceiver() = default;

void RtpReceiver::packet(Bytes bytes)
{
    const auto packet = RtpPacket::parse(bytes);
    if (!packet || packet->payloadType != m_payloadType) {
        ++m_foreign;
        return;
    }
    const Order order = orderOf(*packet);
    if (order == Order::Stale) {
        ++m_stale;
        return;
    }
    m_next = std::uint16_t(packet->sequence + 1);
    m_depacketiser->push(*packet, order == Order::Gap);
}

void RtpReceiver::reset()
{
    m_started = false;
    m_staleRun = 0;
    m_depacketiser->reset();
}

RtpReceiver::Order RtpReceiver::orderOf(const RtpPacket &packet)
{
    const bool otherSource = m_started && packet.ssrc != m_ssrc;
    m_ssrc = packet.ssrc;
    if (!std::exchange(m_started, true))
        return Order::Next;
    if (otherSource) {
        m_staleRun = 0;
        return Order::Gap;
    }
    const auto distance = std::int16_t(std::uint16_t(packet.sequence - m_next));
    if (distance < 0 && ++m_staleRun < MaxStale)
        return Order::Stale;
    m_staleRun = 0;
    if (distance == 0)
        return Order::Next;
    if (distance > 0)
        m_lost += quint64(distance);
    return Order::Gap;
}

} // namespace orrin::rtp
