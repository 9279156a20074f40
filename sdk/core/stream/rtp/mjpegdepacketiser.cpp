// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/mjpegdepacketiser.h"

namespace orrin::rtp {

namespace {

constexpr std::size_t MainHeaderBytes = 8;
constexpr std::size_t RestartHeaderBytes = 4;
constexpr std::size_t TableHeaderBytes = 4;
constexpr std::uint8_t RestartTypes = 64;
constexpr std::uint8_t InBandTables = 128;
constexpr std::uint8_t TablesInEachPicture = 255;

bool readTable(bool wide, Bytes *bytes, QuantisationTables::Table *table)
{
    const std::size_t size = wide ? 128 : 64;
    if (bytes->size() < size)
        return false;
    for (std::size_t i = 0; i < table->size(); ++i)
        (*table)[i] = wide ? read16(bytes->data() + 2 * i) : (*bytes)[i];
    *bytes = bytes->subspan(size);
    return true;
}

} // namespace

void MjpegDepacketiser::begin()
{
    m_started = false;
    m_whole = true;
    m_scanBytes = 0;
}

void MjpegDepacketiser::interrupted()
{
    m_whole = false;
}

bool MjpegDepacketiser::finish()
{
    constexpr std::array<std::uint8_t, 2> EndOfImage{0xFF, 0xD9};
    unit().key = true;
    if (!m_started || !m_whole)
        return false;
    const auto &data = unit().data;
    const bool ended = data.size() >= 2 && data[data.size() - 2] == EndOfImage[0] && data.back() == EndOfImage[1];
    return ended || put(EndOfImage);
}

bool MjpegDepacketiser::append(Bytes payload)
{
    if (payload.size() < MainHeaderBytes || !m_whole)
        return m_whole = false;
    const std::size_t offset = read32(payload.data()) & 0xFFFFFF;
    std::uint8_t type = payload[4];
    const std::uint8_t quality = payload[5];
    JpegHeader header;
    header.width = payload[6] * 8;
    header.height = payload[7] * 8;
    payload = payload.subspan(MainHeaderBytes);
    if (type >= RestartTypes && type < 2 * RestartTypes) {
        if (payload.size() < RestartHeaderBytes)
            return m_whole = false;
        header.restartInterval = read16(payload.data());
        payload = payload.subspan(RestartHeaderBytes);
        type -= RestartTypes;
    }
    header.halfChromaLines = type == 1;
    if (type > 1 || offset != m_scanBytes)
        return m_whole = false;
    if (offset == 0 && !startPicture(header, quality, &payload))
        return m_whole = false;
    m_scanBytes += payload.size();
    return m_whole = put(payload);
}

bool MjpegDepacketiser::startPicture(const JpegHeader &header, std::uint8_t quality, Bytes *payload)
{
    if (m_started || header.width == 0 || header.height == 0 || !readTables(quality, payload))
        return false;
    m_started = true;
    return put(header.serialise(m_tables));
}

bool MjpegDepacketiser::readTables(std::uint8_t quality, Bytes *payload)
{
    if (quality < InBandTables) {
        if (quality == 0 || quality > 99)
            return false;
        if (m_tablesQuality != quality)
            m_tables = QuantisationTables::forQuality(quality);
        m_tablesQuality = quality;
        return true;
    }
    if (payload->size() < TableHeaderBytes)
        return false;
    const std::uint8_t precision = (*payload)[1];
    const std::size_t length = read16(payload->data() + 2);
    *payload = payload->subspan(TableHeaderBytes);
    if (length > payload->size())
        return false;
    Bytes tables = payload->first(length);
    *payload = payload->subspan(length);
    // No tables means: those that came with this quality before.
    if (length == 0)
        return quality != TablesInEachPicture && m_tablesQuality == quality;

    m_tablesQuality = -1;
    if (!readTable(precision & 1, &tables, &m_tables.luma))
        return false;
    if (tables.empty())
        m_tables.chroma = m_tables.luma;
    else if (!readTable(precision & 2, &tables, &m_tables.chroma))
        return false;
    m_tablesQuality = quality;
    return true;
}

} // namespace orrin::rtp
