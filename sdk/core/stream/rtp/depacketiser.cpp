// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/depacketiser.h"

#include <utility>

namespace orrin::rtp {

Depacketiser::~Depacketiser() = default;

void Depacketiser::push(const RtpPacket &packet, bool lostBefore)
{
    const bool otherTime = m_open && packet.timestamp != m_unit.rtpTime;
    if (otherTime) {
        // Its end had no marker: what is missing may be of either unit.
        if (lostBefore)
            m_unit.damaged = m_unit.lost = true;
        endUnit();
    }
    if (!m_open)
        startUnit(packet);
    else if (lostBefore) {
        m_unit.damaged = true;
        interrupted();
    }
    if (lostBefore)
        m_unit.lost = true;
    if (packet.replay)
        noteExtension(*packet.replay);

    if (!m_oversized && !packet.payload.empty() && !append(packet.payload))
        m_unit.damaged = true;
    if (packet.marker)
        endUnit();
}

void Depacketiser::reset()
{
    m_unit.reset();
    m_open = false;
    m_oversized = false;
    m_lostCarry = false;
}

bool Depacketiser::put(Bytes bytes)
{
    if (bytes.size() > AccessUnit::MaxBytes - m_unit.data.size()) {
        m_oversized = true;
        m_unit.data.clear();
        m_unit.damaged = true;
        return false;
    }
    m_unit.data.insert(m_unit.data.end(), bytes.begin(), bytes.end());
    return true;
}

void Depacketiser::startUnit(const RtpPacket &packet)
{
    m_unit.reset();
    m_unit.rtpTime = packet.timestamp;
    m_unit.firstSequence = packet.sequence;
    m_unit.lost = std::exchange(m_lostCarry, false);
    m_open = true;
    m_oversized = false;
    begin();
}

void Depacketiser::endUnit()
{
    m_open = false;
    if (!finish())
        m_unit.damaged = true;
    if (m_unit.data.empty() && !m_unit.terminal) {
        m_lostCarry = m_unit.lost || m_unit.damaged;
        return;
    }
    m_sink.accessUnitReady(m_unit);
}

void Depacketiser::noteExtension(const ReplayExtension &extension)
{
    m_unit.time = fromNtp(extension.ntp);
    m_unit.end |= extension.end;
    m_unit.discontinuity |= extension.discontinuity;
    m_unit.terminal |= extension.terminal;
    m_unit.cseq = extension.cseq;
}

} // namespace orrin::rtp
