// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/framepool.h"

#include <contract/codecs/videoframe.h>

#include <cstring>

namespace orrin {

/*! A picture in one colour, in memory of its own. */
inline Image testPicture(int width, int height, int y, int u, int v)
{
    const PlaneLayout layout(width, height);
    const FramePool::Buffer buffer = FramePool::shared().acquire(layout);
    std::memset(buffer.planes.y, y, layout.bytesY());
    std::memset(buffer.planes.u, u, layout.bytesUV());
    std::memset(buffer.planes.v, v, layout.bytesUV());
    const auto &planes = buffer.planes;
    return Image::fromPlanes(width, height, {planes.y, planes.u, planes.v, planes.strideY, planes.strideUV}, buffer.owner);
}

} // namespace orrin
