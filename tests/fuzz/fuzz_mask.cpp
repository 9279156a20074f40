// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/framepool.h"

#include <contract/core/mask.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

using namespace orrin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Mask mask(QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size)), MaskType::Privacy);
    for (const Mask::Polygon &polygon : mask.polygons()) {
        for (const QPointF &point : polygon) {
            if (point.x() < 0 || point.x() > 1 || point.y() < 0 || point.y() > 1)
                std::abort();
        }
    }
    const PlaneLayout layout(33, 17);
    const auto buffer = FramePool::shared().acquire(layout);
    std::memset(buffer.planes.y, 200, layout.bytes());
    const auto &planes = buffer.planes;
    VideoFrame frame(
        Image::fromPlanes(33, 17, {planes.y, planes.u, planes.v, planes.strideY, planes.strideUV}, buffer.owner));
    mask.applyMaskToVideoFrame(frame);
    return 0;
}
