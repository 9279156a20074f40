// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/accessunit.h"
#include "core/stream/rtp/rtcppacket.h"

#include <contract/core/export.h>

namespace orrin::rtp {

/*! Gives each access unit its moment of capture: the time that came with it, else the one that the newest sender report
    gives for its RTP time, else the moment of its arrival by the device's clock. */
class ORRINSDK_CORE_EXPORT CaptureClock
{
public:
    explicit CaptureClock(std::uint32_t clockRate = 90000) : m_clockRate(clockRate ? clockRate : 90000) {}

    void senderReport(const RtcpPacket::SenderReport &report);

    /*! \a arrival is by the device's clock. */
    CaptureTime timeOf(const AccessUnit &unit, CaptureTime arrival) const;

private:
    std::uint32_t m_clockRate;
    std::optional<RtcpPacket::SenderReport> m_report;
};

} // namespace orrin::rtp
