// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

/*!
    The machine-readable strip in the top left corner of every picture of the demo server.

    Cells are squares with an edge of a 48th of the picture's width, 24 columns by 4 rows, so that the strip
   covers half of the width. A cell holds one bit: luma 30 is 0, luma 220 is 1; the colour below is neutral
   (128). The 96 bits are read row by row from the left, each number with its most significant bit first:

    | Bits | Content |
    |---|---|
    | 48 | capture time, milliseconds since 1970-01-01 UTC |
    | 12 | number of the camera |
    | 8, 8, 8 | pan, tilt, zoom: 0 to 255 over the camera's range |
    | 12 | CRC over the 84 bits before (polynomial 0x80F, start value 0xFFF) |

    The reader takes fractions of the picture, so that it reads a decoded plane and a scaled screenshot alike.
   No dependency but the standard library; every function is pure.
*/
namespace orrin::timestrip {

inline constexpr int Columns = 24;
inline constexpr int Rows = 4;
inline constexpr int CellsPerWidth = 48;
inline constexpr std::uint8_t LumaZero = 30;
inline constexpr std::uint8_t LumaOne = 220;
inline constexpr int LumaThreshold = 125;

/*! What the strip says. */
struct Fields
{
    std::uint64_t timeMs = 0; //!< Unix time in milliseconds, 48 bits
    std::uint16_t camera = 0; //!< number of the camera, 12 bits
    std::uint8_t pan = 128;   //!< 0 left, 128 home, 255 right
    std::uint8_t tilt = 128;  //!< 0 down, 128 home, 255 up
    std::uint8_t zoom = 0;    //!< 0 wide, 255 tele

    friend bool operator==(const Fields &, const Fields &) = default;
};

using Bits = std::array<bool, Columns * Rows>;

/*! The check value over the first \a count bits. */
inline std::uint16_t crc12(const Bits &bits, int count)
{
    std::uint16_t crc = 0xFFF;
    for (int i = 0; i < count; ++i) {
        const bool carry = ((crc >> 11) & 1) != (bits[std::size_t(i)] ? 1 : 0);
        crc = std::uint16_t((crc << 1) & 0xFFF);
        if (carry)
            crc ^= 0x80F;
    }
    return crc;
}

/*! The 96 bits that stand for \a fields; values that are too large lose their upper bits. */
inline Bits encode(const Fields &fields)
{
    Bits bits{};
    int at = 0;
    const auto put = [&bits, &at](std::uint64_t value, int count) {
        for (int i = count - 1; i >= 0; --i)
            bits[std::size_t(at++)] = ((value >> i) & 1) != 0;
    };
    put(fields.timeMs, 48);
    put(fields.camera, 12);
    put(fields.pan, 8);
    put(fields.tilt, 8);
    put(fields.zoom, 8);
    put(crc12(bits, at), 12);
    return bits;
}

/*! The fields that \a bits stand for; nothing when the check value is wrong. */
inline std::optional<Fields> decode(const Bits &bits)
{
    int at = 0;
    const auto take = [&bits, &at](int count) {
        std::uint64_t value = 0;
        for (int i = 0; i < count; ++i)
            value = (value << 1) | (bits[std::size_t(at++)] ? 1U : 0U);
        return value;
    };
    Fields fields;
    fields.timeMs = take(48);
    fields.camera = std::uint16_t(take(12));
    fields.pan = std::uint8_t(take(8));
    fields.tilt = std::uint8_t(take(8));
    fields.zoom = std::uint8_t(take(8));
    const std::uint16_t expected = crc12(bits, at);
    if (take(12) != expected)
        return std::nullopt;
    return fields;
}

/*! Height of the strip in lines, for a picture of \a width; its width is half of the picture's. */
inline int stripHeight(int width)
{
    return Rows * width / CellsPerWidth;
}

/*! Draws the strip into a luma plane. Nothing is drawn where the picture is too small for it. */
inline void draw(std::uint8_t *luma, int stride, int width, int height, const Fields &fields)
{
    if (width < CellsPerWidth || height < stripHeight(width))
        return;
    const Bits bits = encode(fields);
    for (int row = 0; row < Rows; ++row) {
        const int top = row * width / CellsPerWidth;
        const int bottom = (row + 1) * width / CellsPerWidth;
        std::uint8_t *line = luma + std::ptrdiff_t(top) * stride;
        for (int column = 0; column < Columns; ++column) {
            const int left = column * width / CellsPerWidth;
            const int right = (column + 1) * width / CellsPerWidth;
            const bool bit = bits[std::size_t(row * Columns + column)];
            std::memset(line + left, bit ? LumaOne : LumaZero, std::size_t(right - left));
        }
        const std::size_t bytes = std::size_t(Columns * width / CellsPerWidth);
        for (int y = top + 1; y < bottom; ++y)
            std::memcpy(luma + std::ptrdiff_t(y) * stride, line, bytes);
    }
}

/*! Makes one chroma plane of a 4:2:0 picture of \a width x \a height neutral below the strip. Call it for
 * both planes. */
inline void drawChroma(std::uint8_t *chroma, int stride, int width, int height)
{
    if (width < CellsPerWidth || height < stripHeight(width))
        return;
    const int columns = (Columns * width / CellsPerWidth + 1) / 2;
    const int lines = (stripHeight(width) + 1) / 2;
    for (int y = 0; y < lines; ++y)
        std::memset(chroma + std::ptrdiff_t(y) * stride, 128, std::size_t(columns));
}

/*!
    Reads the strip through \a luma, a callable (double xFraction, double yFraction) -> int that gives the
   luma, 0 to 255, at a place given in fractions of the picture. \a aspect is the picture's width divided by
   its height. Several places of each cell are averaged, so that noise and blurred edges do no harm. Nothing
   when no valid strip is there.
*/
template <typename Luma> std::optional<Fields> read(Luma &&luma, double aspect = 16.0 / 9.0)
{
    constexpr std::array<double, 3> Offsets{0.32, 0.5, 0.68};
    Bits bits{};
    for (int row = 0; row < Rows; ++row) {
        for (int column = 0; column < Columns; ++column) {
            int sum = 0;
            for (const double dy : Offsets) {
                for (const double dx : Offsets)
                    sum += luma((column + dx) / CellsPerWidth, (row + dy) * aspect / CellsPerWidth);
            }
            bits[std::size_t(row * Columns + column)] =
                sum > LumaThreshold * int(Offsets.size() * Offsets.size());
        }
    }
    return decode(bits);
}

/*! Reads the strip off a luma plane. Nothing when no valid strip is there. */
inline std::optional<Fields> read(const std::uint8_t *luma, int stride, int width, int height)
{
    if (!luma || width < CellsPerWidth || height < stripHeight(width))
        return std::nullopt;
    const auto at = [=](double x, double y) {
        const int column = int(x * width);
        const int line = int(y * height);
        return int(luma[std::ptrdiff_t(line < height ? line : height - 1) * stride +
                        (column < width ? column : width - 1)]);
    };
    return read(at, double(width) / double(height));
}

} // namespace orrin::timestrip
