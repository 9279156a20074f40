// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/captureclock.h"
#include "core/stream/rtp/rtcppacket.h"
#include "core/stream/rtp/rtppacket.h"

#include <cstdint>
#include <cstdlib>

using namespace orrin::rtp;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Bytes bytes(data, size);
    AccessUnit unit;
    if (const auto packet = RtpPacket::parse(bytes)) {
        if (!packet->payload.empty()
            && (packet->payload.data() < data || packet->payload.data() + packet->payload.size() > data + size))
            std::abort();
        unit.rtpTime = packet->timestamp;
        if (packet->replay)
            unit.time = fromNtp(packet->replay->ntp);
    }
    CaptureClock clock;
    const RtcpPacket control = RtcpPacket::parse(bytes);
    if (control.senderReport)
        clock.senderReport(*control.senderReport);
    toTime300(clock.timeOf(unit, {}));
    return 0;
}
