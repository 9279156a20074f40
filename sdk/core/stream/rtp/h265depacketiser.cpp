// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/h265depacketiser.h"

#include <array>

namespace orrin::rtp {

namespace {

enum NalType : std::uint8_t { FirstIrap = 16, LastIrap = 21, LastSlice = 31, Sps = 33, LastNal = 47, Aggregate = 48, Fragment = 49 };

constexpr std::size_t HeaderBytes = 2;

constexpr std::uint8_t typeOf(std::uint8_t header0)
{
    return (header0 >> 1) & 0x3F;
}

} // namespace

void H265Depacketiser::begin()
{
    m_inFragment = false;
    m_hasNal = false;
    m_hasParameterSets = false;
    m_startsWhole = false;
}

void H265Depacketiser::interrupted()
{
    m_inFragment = false;
}

bool H265Depacketiser::finish()
{
    return m_startsWhole && !m_inFragment;
}

bool H265Depacketiser::append(Bytes payload)
{
    if (payload.size() <= HeaderBytes)
        return false;
    const std::uint8_t type = typeOf(payload[0]);
    if (type == Fragment)
        return appendFragment(payload);
    const bool complete = !std::exchange(m_inFragment, false);
    if (type == Aggregate)
        return appendAggregate(payload.subspan(HeaderBytes)) && complete;
    return type <= LastNal && appendNal(payload) && complete;
}

bool H265Depacketiser::appendAggregate(Bytes payload)
{
    while (!payload.empty()) {
        if (payload.size() < 2)
            return false;
        const std::size_t length = read16(payload.data());
        payload = payload.subspan(2);
        if (length > payload.size() || !appendNal(payload.first(length)))
            return false;
        payload = payload.subspan(length);
    }
    return true;
}

bool H265Depacketiser::appendFragment(Bytes payload)
{
    if (payload.size() < HeaderBytes + 2)
        return false;
    const std::uint8_t fragmentHeader = payload[2];
    const bool start = fragmentHeader & 0x80;
    const bool end = fragmentHeader & 0x40;
    const Bytes body = payload.subspan(HeaderBytes + 1);
    bool complete = true;
    if (start) {
        complete = !m_inFragment;
        const auto header0 = std::uint8_t((payload[0] & 0x81) | ((fragmentHeader & 0x3F) << 1));
        if (!beginNal(header0, payload[1], body))
            return false;
    } else if (!m_inFragment) {
        return false;
    }
    m_inFragment = !end;
    return put(body) && complete;
}

bool H265Depacketiser::appendNal(Bytes nal)
{
    if (nal.size() <= HeaderBytes)
        return false;
    const Bytes body = nal.subspan(HeaderBytes);
    return beginNal(nal[0], nal[1], body) && put(body);
}

bool H265Depacketiser::beginNal(std::uint8_t header0, std::uint8_t header1, Bytes body)
{
    const std::uint8_t type = typeOf(header0);
    // The first bit of a slice header is first_slice_segment_in_pic_flag.
    if (!std::exchange(m_hasNal, true))
        m_startsWhole = type > LastSlice || (!body.empty() && (body[0] & 0x80));
    m_hasParameterSets |= type == Sps;
    const bool random = type >= FirstIrap && type <= LastIrap;
    unit().key |= random;
    if (random && !std::exchange(m_hasParameterSets, true) && !put(m_parameterSets))
        return false;
    const std::array<std::uint8_t, 6> prefix{0, 0, 0, 1, header0, header1};
    return put(prefix);
}

} // namespace orrin::rtp
