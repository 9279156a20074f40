// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

namespace orrin {

/*! Where the three planes of a picture lie in one block of memory: luma, then the two chroma planes, whose sizes are
    cut to whole samples; each line rounded up to 4 bytes. Plain arithmetic. */
struct PlaneLayout
{
    /*! Neither side of a picture may be longer. */
    static constexpr int MaxSide = 16384;

    int width = 0;
    int height = 0;

    constexpr PlaneLayout(int width, int height) : width(width), height(height) {}

    constexpr bool isValid() const { return width > 0 && height > 0 && width <= MaxSide && height <= MaxSide; }
    constexpr int chromaWidth() const { return width / 2; }
    constexpr int chromaHeight() const { return height / 2; }
    constexpr int strideY() const { return (width + 3) & ~3; }
    constexpr int strideUV() const { return (chromaWidth() + 3) & ~3; }
    constexpr std::size_t bytesY() const { return std::size_t(strideY()) * std::size_t(height); }
    constexpr std::size_t bytesUV() const { return std::size_t(strideUV()) * std::size_t(chromaHeight()); }
    constexpr std::size_t bytes() const { return bytesY() + 2 * bytesUV(); }
};

} // namespace orrin
