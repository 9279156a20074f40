// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace orrin::demo {

/*! Where a camera looks: pan and tilt from -1 to 1 (right and up are positive), zoom from 0 to 1. */
struct View
{
    double pan = 0.0;
    double tilt = 0.0;
    double zoom = 0.0;
    double focus = Sharp; //!< from 0, near, to 1, far

    /*! Where the whole scene is sharp. */
    static constexpr double Sharp = 0.5;

    friend bool operator==(const View &, const View &) = default;

    /*! Pan or tilt as the time strip writes it. */
    static std::uint8_t stripAxis(double value)
    {
        return std::uint8_t(std::lround(std::clamp((value + 1.0) / 2.0, 0.0, 1.0) * 255.0));
    }

    /*! Zoom as the time strip writes it. */
    static std::uint8_t stripZoom(double value)
    {
        return std::uint8_t(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
    }
};

} // namespace orrin::demo
