// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/rtppacket.h"

namespace orrin::rtp {

namespace {

constexpr std::size_t FixedHeader = 12;
constexpr std::uint16_t ReplayProfile = 0xABAC;
constexpr std::size_t ReplayExtensionBytes = 12;

std::optional<ReplayExtension> readReplayExtension(Bytes body)
{
    if (body.size() < ReplayExtensionBytes)
        return std::nullopt;
    ReplayExtension extension;
    extension.ntp = read64(body.data());
    extension.cleanPoint = body[8] & 0x80;
    extension.end = body[8] & 0x40;
    extension.discontinuity = body[8] & 0x20;
    extension.terminal = body[8] & 0x10;
    extension.cseq = body[9];
    return extension;
}

} // namespace

std::optional<RtpPacket> RtpPacket::parse(Bytes bytes)
{
    if (bytes.size() < FixedHeader || (bytes[0] >> 6) != 2)
        return std::nullopt;
    RtpPacket packet;
    packet.marker = bytes[1] & 0x80;
    packet.payloadType = bytes[1] & 0x7F;
    packet.sequence = read16(&bytes[2]);
    packet.timestamp = read32(&bytes[4]);
    packet.ssrc = read32(&bytes[8]);

    const bool padded = bytes[0] & 0x20;
    const bool extended = bytes[0] & 0x10;
    std::size_t offset = FixedHeader + 4U * (bytes[0] & 0x0F);
    if (extended) {
        if (bytes.size() < offset + 4)
            return std::nullopt;
        const std::uint16_t profile = read16(&bytes[offset]);
        const std::size_t length = 4U * read16(&bytes[offset + 2]);
        offset += 4;
        if (bytes.size() < offset + length)
            return std::nullopt;
        if (profile == ReplayProfile)
            packet.replay = readReplayExtension(bytes.subspan(offset, length));
        offset += length;
    }
    if (offset > bytes.size())
        return std::nullopt;
    std::size_t end = bytes.size();
    if (padded) {
        const std::size_t padding = bytes.back();
        if (padding == 0 || padding > end - offset)
            return std::nullopt;
        end -= padding;
    }
    packet.payload = bytes.subspan(offset, end - offset);
    return packet;
}

} // namespace orrin::rtp
