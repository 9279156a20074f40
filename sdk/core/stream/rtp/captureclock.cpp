// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/captureclock.h"

namespace orrin::rtp {

void CaptureClock::senderReport(const RtcpPacket::SenderReport &report)
{
    // Senders without a clock say 0.
    if (report.ntp != 0)
        m_report = report;
}

CaptureTime CaptureClock::timeOf(const AccessUnit &unit, CaptureTime arrival) const
{
    if (unit.time)
        return *unit.time;
    if (!m_report)
        return arrival;
    // The difference wraps with the RTP time; a signed one reaches half of its range either way.
    const std::int64_t ticks = std::int32_t(unit.rtpTime - m_report->rtpTime);
    return fromNtp(m_report->ntp) + CaptureTime(ticks * 1'000'000'000 / m_clockRate);
}

} // namespace orrin::rtp
