// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/rtcppacket.h"

namespace orrin::rtp {

namespace {

constexpr std::uint8_t SenderReportType = 200;
constexpr std::uint8_t ByeType = 203;
constexpr std::size_t SenderReportBytes = 28;

} // namespace

RtcpPacket RtcpPacket::parse(Bytes bytes)
{
    RtcpPacket packet;
    while (bytes.size() >= 4 && (bytes[0] >> 6) == 2) {
        const std::size_t length = 4U * (std::size_t(read16(&bytes[2])) + 1);
        if (length > bytes.size())
            break;
        if (bytes[1] == SenderReportType && length >= SenderReportBytes)
            packet.senderReport = SenderReport{read32(&bytes[4]), read64(&bytes[8]), read32(&bytes[16])};
        else if (bytes[1] == ByeType)
            packet.bye = true;
        bytes = bytes.subspan(length);
    }
    return packet;
}

} // namespace orrin::rtp
