// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace orrin::rtp {

using Bytes = std::span<const std::uint8_t>;

/*! Numbers in network byte order; the caller has checked that the bytes are there. */
constexpr std::uint16_t read16(const std::uint8_t *at)
{
    return std::uint16_t(at[0] << 8 | at[1]);
}

constexpr std::uint32_t read32(const std::uint8_t *at)
{
    return std::uint32_t(read16(at)) << 16 | read16(at + 2);
}

constexpr std::uint64_t read64(const std::uint8_t *at)
{
    return std::uint64_t(read32(at)) << 32 | read32(at + 4);
}

} // namespace orrin::rtp
