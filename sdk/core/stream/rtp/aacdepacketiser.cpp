// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/aacdepacketiser.h"

namespace orrin::rtp {

namespace {

/*! Reads numbers of up to 32 bits; beyond the end it gives zeros. */
class BitReader
{
public:
    explicit BitReader(Bytes bytes) : m_bytes(bytes) {}

    std::uint32_t read(int count)
    {
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i, ++m_at) {
            const std::size_t byte = m_at / 8;
            const bool bit = byte < m_bytes.size() && (m_bytes[byte] >> (7 - m_at % 8)) & 1;
            value = value << 1 | (bit ? 1U : 0U);
        }
        return value;
    }

private:
    Bytes m_bytes;
    std::size_t m_at = 0;
};

} // namespace

AacDepacketiser::AacDepacketiser(AccessUnitSink &sink, std::uint8_t payloadType, const Layout &layout)
    : AudioDepacketiser(sink, payloadType)
    , m_layout(layout)
{
}

std::optional<AacDepacketiser::Layout> AacDepacketiser::layoutOf(const rtsp::ParameterList &parameters)
{
    for (const char *name : {"ctsdeltalength", "dtsdeltalength", "randomaccessindication", "streamstateindication",
                             "auxiliarydatasizelength"}) {
        if (parameters.value(name).toInt() != 0)
            return std::nullopt;
    }
    Layout layout;
    bool valid = false;
    layout.sizeLength = parameters.value("sizelength").toInt(&valid);
    if (!valid || layout.sizeLength < 1 || layout.sizeLength > 16)
        return std::nullopt;
    layout.indexLength = parameters.value("indexlength").toInt();
    layout.indexDeltaLength = parameters.value("indexdeltalength").toInt();
    for (const int length : {layout.indexLength, layout.indexDeltaLength}) {
        if (length < 0 || length > 16)
            return std::nullopt;
    }
    const int duration = parameters.value("constantduration").toInt();
    if (duration > 0 && duration <= 8192)
        layout.frameSamples = std::uint32_t(duration);
    return layout;
}

void AacDepacketiser::forget()
{
    m_fragments.clear();
    m_fragmentedSize = 0;
}

bool AacDepacketiser::readHeaders(Bytes *payload)
{
    if (payload->size() < 2)
        return false;
    const std::size_t bits = read16(payload->data());
    const std::size_t bytes = (bits + 7) / 8;
    if (payload->size() < 2 + bytes)
        return false;
    BitReader reader(payload->subspan(2, bytes));
    *payload = payload->subspan(2 + bytes);
    m_headers.clear();
    std::size_t at = 0;
    std::uint32_t index = 0;
    for (;;) {
        const bool first = m_headers.empty();
        const int indexBits = first ? m_layout.indexLength : m_layout.indexDeltaLength;
        const auto length = std::size_t(m_layout.sizeLength + indexBits);
        if (at + length > bits)
            break;
        at += length;
        const std::size_t size = reader.read(m_layout.sizeLength);
        const std::uint32_t delta = reader.read(indexBits);
        if (!first)
            index += 1 + delta;
        if (size == 0 || size > MaxFrameBytes || m_headers.size() >= MaxFrames)
            return false;
        m_headers.push_back({size, index});
    }
    return !m_headers.empty();
}

bool AacDepacketiser::take(const RtpPacket &packet, bool lost)
{
    Bytes payload = packet.payload;
    if (!readHeaders(&payload))
        return false;
    if (m_headers.size() == 1 && m_headers[0].size > payload.size())
        return takeFragment(packet, payload, lost);
    // The last part of a frame comes with the size of the whole.
    if (m_fragmentedSize > 0 && m_headers.size() == 1 && packet.timestamp == m_fragmentTime)
        return takeFragment(packet, payload, lost);
    forget();
    for (const FrameHeader &header : m_headers) {
        if (header.size > payload.size())
            return false;
        emitUnit(packet, payload.first(header.size), packet.timestamp + header.index * m_layout.frameSamples,
                 header.index == 0);
        payload = payload.subspan(header.size);
    }
    return true;
}

bool AacDepacketiser::takeFragment(const RtpPacket &packet, Bytes payload, bool lost)
{
    const std::size_t size = m_headers[0].size;
    const bool continues = m_fragmentedSize == size && m_fragmentTime == packet.timestamp;
    if (!continues) {
        forget();
        m_fragmentedSize = size;
        m_fragmentTime = packet.timestamp;
    } else if (lost) {
        return false;
    }
    if (payload.size() > size - m_fragments.size())
        return false;
    m_fragments.insert(m_fragments.end(), payload.begin(), payload.end());
    if (m_fragments.size() < size)
        return !packet.marker;
    emitUnit(packet, m_fragments, packet.timestamp, true);
    forget();
    return true;
}

} // namespace orrin::rtp
