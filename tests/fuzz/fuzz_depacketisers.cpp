// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/h264depacketiser.h"
#include "core/stream/rtp/h265depacketiser.h"
#include "core/stream/rtp/mjpegdepacketiser.h"
#include "core/stream/rtp/rtpreceiver.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace orrin::rtp;

namespace {

struct CheckingSink : AccessUnitSink
{
    void accessUnitReady(const AccessUnit &unit) override
    {
        if (unit.data.size() > AccessUnit::MaxBytes)
            std::abort();
    }
};

std::unique_ptr<Depacketiser> depacketiser(int kind, AccessUnitSink &sink)
{
    if (kind == 0)
        return std::make_unique<H264Depacketiser>(sink);
    if (kind == 1)
        return std::make_unique<H265Depacketiser>(sink);
    return std::make_unique<MjpegDepacketiser>(sink);
}

} // namespace

// A codec, then packets: length, a byte of flags (marker, loss, new time), payload.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 1)
        return 0;
    CheckingSink sink;
    RtpReceiver receiver(depacketiser(data[0] % 3, sink), 96);
    std::uint16_t sequence = 0;
    std::uint8_t time = 0;
    std::size_t at = 1;
    while (at + 2 <= size) {
        const std::size_t length = std::min<std::size_t>(data[at], size - at - 2);
        const std::uint8_t flags = data[at + 1];
        sequence = std::uint16_t(sequence + 1 + ((flags & 2) ? 1 : 0) - ((flags & 8) ? 3 : 0));
        time = std::uint8_t(time + ((flags & 4) ? 1 : 0));
        const std::array<std::uint8_t, 12> header{
            0x80, std::uint8_t(96 | ((flags & 1) ? 0x80 : 0)), std::uint8_t(sequence >> 8), std::uint8_t(sequence), 0, 0, 0, time,
            0,    0, 0, 1};
        std::vector<std::uint8_t> packet(header.begin(), header.end());
        packet.insert(packet.end(), data + at + 2, data + at + 2 + length);
        receiver.packet(packet);
        at += 2 + length;
    }
    return 0;
}
