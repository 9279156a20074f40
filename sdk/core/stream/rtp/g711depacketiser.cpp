// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/g711depacketiser.h"

namespace orrin::rtp {

bool G711Depacketiser::take(const RtpPacket &packet, bool)
{
    if (packet.payload.empty() || packet.payload.size() > MaxBytes)
        return false;
    emitUnit(packet, packet.payload, packet.timestamp, true);
    return true;
}

} // namespace orrin::rtp
