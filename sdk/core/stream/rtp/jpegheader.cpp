// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/jpegheader.h"

#include <algorithm>

namespace orrin::rtp {

namespace {

// Tables K.1 and K.2 of the JPEG standard, line by line.
constexpr std::array<std::uint8_t, 64> StandardLuma{
    16, 11, 10, 16, 24,  40,  51,  61,  12, 12, 14, 19, 26,  58,  60,  55,
    14, 13, 16, 24, 40,  57,  69,  56,  14, 17, 22, 29, 51,  87,  80,  62,
    18, 22, 37, 56, 68,  109, 103, 77,  24, 35, 55, 64, 81,  104, 113, 92,
    49, 64, 78, 87, 103, 121, 120, 101, 72, 92, 95, 98, 112, 100, 103, 99};
constexpr std::array<std::uint8_t, 64> StandardChroma{
    17, 18, 24, 47, 99, 99, 99, 99, 18, 21, 26, 66, 99, 99, 99, 99,
    24, 26, 56, 99, 99, 99, 99, 99, 47, 66, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99};

constexpr std::array<std::uint8_t, 64> zigzagOrder()
{
    std::array<std::uint8_t, 64> order{};
    int x = 0;
    int y = 0;
    for (std::uint8_t &place : order) {
        place = std::uint8_t(y * 8 + x);
        const bool up = (x + y) % 2 == 0;
        if (up && x == 7)
            ++y;
        else if (!up && y == 7)
            ++x;
        else if (up && y == 0)
            ++x;
        else if (!up && x == 0)
            ++y;
        else {
            x += up ? 1 : -1;
            y += up ? -1 : 1;
        }
    }
    return order;
}

constexpr auto Zigzag = zigzagOrder();

QuantisationTables::Table scaled(const std::array<std::uint8_t, 64> &standard, int factor)
{
    QuantisationTables::Table table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = std::uint16_t(std::clamp((standard[Zigzag[i]] * factor + 50) / 100, 1, 255));
    return table;
}

class Writer
{
public:
    explicit Writer(std::vector<std::uint8_t> &out) : m_out(out) {}
    void put8(int value) { m_out.push_back(std::uint8_t(value)); }
    void put16(int value)
    {
        put8(value >> 8);
        put8(value);
    }

    void putTable(int number, const QuantisationTables::Table &table)
    {
        const bool wide = std::any_of(table.begin(), table.end(), [](std::uint16_t value) { return value > 255; });
        put16(0xFFDB);
        put16(3 + (wide ? 128 : 64));
        put8((wide ? 0x10 : 0) | number);
        for (const std::uint16_t value : table) {
            if (wide)
                put16(value);
            else
                put8(value);
        }
    }

private:
    std::vector<std::uint8_t> &m_out;
};

} // namespace

QuantisationTables QuantisationTables::forQuality(int quality)
{
    const int q = std::clamp(quality, 1, 99);
    const int factor = q < 50 ? 5000 / q : 200 - 2 * q;
    return {scaled(StandardLuma, factor), scaled(StandardChroma, factor)};
}

std::vector<std::uint8_t> JpegHeader::serialise(const QuantisationTables &tables) const
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(320);
    Writer out(bytes);
    out.put16(0xFFD8);
    out.putTable(0, tables.luma);
    out.putTable(1, tables.chroma);
    if (restartInterval > 0) {
        out.put16(0xFFDD);
        out.put16(4);
        out.put16(restartInterval);
    }
    out.put16(0xFFC0);
    out.put16(17);
    out.put8(8);
    out.put16(height);
    out.put16(width);
    out.put8(3);
    for (int component = 0; component < 3; ++component) {
        out.put8(component + 1);
        out.put8(component > 0 ? 0x11 : halfChromaLines ? 0x22 : 0x21);
        out.put8(component > 0 ? 1 : 0);
    }
    out.put16(0xFFDA);
    out.put16(12);
    out.put8(3);
    for (int component = 0; component < 3; ++component) {
        out.put8(component + 1);
        out.put8(component > 0 ? 0x11 : 0x00);
    }
    out.put8(0);
    out.put8(63);
    out.put8(0);
    return bytes;
}

} // namespace orrin::rtp
