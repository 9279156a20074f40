// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/bytereader.h"

#include <contract/core/export.h>

#include <array>
#include <vector>

namespace orrin::rtp {

/*! Two quantisation tables, for luma and chroma, in zigzag order; 16-bit entries. */
struct ORRINSDK_CORE_EXPORT QuantisationTables
{
    using Table = std::array<std::uint16_t, 64>;
    Table luma{};
    Table chroma{};

    /*! The standard tables scaled by \a quality, 1 to 99. */
    static QuantisationTables forQuality(int quality);
};

/*! What stands in a JPEG file before the scan. */
struct ORRINSDK_CORE_EXPORT JpegHeader
{
    int width = 0;
    int height = 0;
    /*! Lines of chroma: halved (4:2:0) or not (4:2:2); columns always are. */
    bool halfChromaLines = false;
    std::uint16_t restartInterval = 0;

    /*! The file up to the scan, without Huffman tables: a decoder then takes the standard ones. */
    std::vector<std::uint8_t> serialise(const QuantisationTables &tables) const;
};

} // namespace orrin::rtp
