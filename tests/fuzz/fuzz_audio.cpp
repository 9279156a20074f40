// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/aacdepacketiser.h"
#include "core/stream/rtp/g711depacketiser.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

using namespace orrin::rtp;

namespace {

struct CheckingSink : AccessUnitSink
{
    void accessUnitReady(const AccessUnit &unit) override
    {
        if (unit.data.empty() || unit.data.size() > AacDepacketiser::MaxFrameBytes)
            std::abort();
    }
};

std::unique_ptr<AudioDepacketiser> depacketiser(std::uint8_t kind, AccessUnitSink &sink)
{
    if (kind % 4 == 0)
        return std::make_unique<G711Depacketiser>(sink, 96);
    AacDepacketiser::Layout layout;
    if (kind % 4 == 2)
        layout = {6, 2, 2, 960};
    if (kind % 4 == 3)
        layout = {16, 0, 16, 1024};
    return std::make_unique<AacDepacketiser>(sink, 96, layout);
}

} // namespace

// A codec, then packets: length, a byte of flags (marker, loss, new time, one out of order), payload.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 1)
        return 0;
    CheckingSink sink;
    const auto receiver = depacketiser(data[0], sink);
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
        receiver->packet(packet);
        if (flags & 16)
            receiver->reset();
        at += 2 + length;
    }
    return 0;
}
