// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/codecs/pixelformat.h>
#include <contract/util/image.h>

#include <QImage>
#include <QRect>

namespace orrin {

/*! The pixels of \a part, which lies inside the picture of \a image, in \a format, BT.601 limited range. A null image for a format that
    is none of Grey8, Rgb24, Rgba32, Rgb32, or without memory. Any thread. */
QImage convertPicture(const Image &image, const QRect &part, orrincodecs::PixelFormat format);

} // namespace orrin
