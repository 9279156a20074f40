// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrincodecs {

/*! Pixel formats that frames are converted to. */
enum class PixelFormat : int {
    Unknown = 0,
    I420 = 1,
    Grey8 = 2,
    Rgb24 = 3,
    Rgba32 = 4,
    Rgb32 = 5, //!< QImage::Format_RGB32, the one snapshots use
};

} // namespace orrincodecs
