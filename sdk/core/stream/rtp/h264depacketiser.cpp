// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/h264depacketiser.h"

#include <array>

namespace orrin::rtp {

namespace {

enum NalType : std::uint8_t { Slice = 1, IdrSlice = 5, Sei = 6, Sps = 7, LastNal = 23, StapA = 24, FuA = 28 };

constexpr std::array<std::uint8_t, 4> StartCode{0, 0, 0, 1};
constexpr std::uint8_t TypeMask = 0x1F;

// first_mb_in_slice is 0 exactly when the first bit of the slice header is set.
bool isFirstSlice(Bytes body)
{
    return !body.empty() && (body[0] & 0x80);
}

// Streams that refresh gradually or with open GOPs have no IDR pictures; a recovery point is where they can be entered.
bool hasRecoveryPoint(Bytes sei)
{
    constexpr unsigned RecoveryPoint = 6;
    std::size_t at = 0;
    const auto readNumber = [&] {
        unsigned value = 0;
        while (at < sei.size() && sei[at] == 0xFF) {
            value += 0xFF;
            ++at;
        }
        return at < sei.size() ? value + sei[at++] : value;
    };
    while (at + 2 < sei.size()) {
        if (readNumber() == RecoveryPoint)
            return true;
        at += readNumber();
    }
    return false;
}

} // namespace

void H264Depacketiser::begin()
{
    m_inFragment = false;
    m_hasNal = false;
    m_hasParameterSets = false;
    m_startsWhole = false;
}

void H264Depacketiser::interrupted()
{
    m_inFragment = false;
}

bool H264Depacketiser::finish()
{
    return m_startsWhole && !m_inFragment;
}

bool H264Depacketiser::append(Bytes payload)
{
    const std::uint8_t type = payload[0] & TypeMask;
    if (type == FuA)
        return appendFragment(payload);
    const bool complete = !std::exchange(m_inFragment, false);
    if (type == StapA)
        return appendAggregate(payload.subspan(1)) && complete;
    if (type == 0 || type > LastNal)
        return false;
    const Bytes body = payload.subspan(1);
    return beginNal(payload[0], body) && put(body) && complete;
}

bool H264Depacketiser::appendAggregate(Bytes payload)
{
    while (!payload.empty()) {
        if (payload.size() < 2)
            return false;
        const std::size_t length = read16(payload.data());
        payload = payload.subspan(2);
        if (length == 0 || length > payload.size())
            return false;
        const Bytes body = payload.subspan(1, length - 1);
        if (!beginNal(payload[0], body) || !put(body))
            return false;
        payload = payload.subspan(length);
    }
    return true;
}

bool H264Depacketiser::appendFragment(Bytes payload)
{
    if (payload.size() < 2)
        return false;
    const bool start = payload[1] & 0x80;
    const bool end = payload[1] & 0x40;
    const Bytes body = payload.subspan(2);
    bool complete = true;
    if (start) {
        complete = !m_inFragment;
        const auto header = std::uint8_t((payload[0] & ~TypeMask) | (payload[1] & TypeMask));
        if (!beginNal(header, body))
            return false;
    } else if (!m_inFragment) {
        return false;
    }
    m_inFragment = !end;
    return put(body) && complete;
}

bool H264Depacketiser::beginNal(std::uint8_t header, Bytes body)
{
    const std::uint8_t type = header & TypeMask;
    if (!std::exchange(m_hasNal, true))
        m_startsWhole = type > IdrSlice || isFirstSlice(body);
    m_hasParameterSets |= type == Sps;
    const bool random = type == IdrSlice || (type == Sei && hasRecoveryPoint(body));
    unit().key |= random;
    if (random && !std::exchange(m_hasParameterSets, true) && !put(m_parameterSets))
        return false;
    return put(StartCode) && put({&header, 1});
}

} // namespace orrin::rtp
