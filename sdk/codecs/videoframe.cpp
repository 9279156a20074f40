// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/codecs/videoframe.h>

#include "codecs/framepool.h"
#include "codecs/imageconverter.h"

#include <libyuv/planar_functions.h>

namespace orrin {

VideoFrame::VideoFrame(const Image &image, std::uint64_t id, std::uint16_t streamId)
    : m_image(image)
    , m_id(id)
    , m_streamId(streamId)
{
}

bool VideoFrame::isValidImage() const
{
    return m_image.planes().y && m_image.width() > 0 && m_image.height() > 0;
}

QImage VideoFrame::convertToQImage(orrincodecs::PixelFormat format, int x, int y, int width, int height) const
{
    if (!isValidImage())
        return {};
    const QRect whole(0, 0, this->width(), this->height());
    if (x > whole.right() || y > whole.bottom())
        return {};
    // In 64 bits: the part may be given far beyond the picture.
    const qint64 endX = width < 0 ? whole.width() : qMin<qint64>(qint64(x) + width, whole.width());
    const qint64 endY = height < 0 ? whole.height() : qMin<qint64>(qint64(y) + height, whole.height());
    const int left = qMax(x, 0);
    const int top = qMax(y, 0);
    if (endX <= left || endY <= top)
        return {};
    return convertPicture(m_image, QRect(left, top, int(endX - left), int(endY - top)), format);
}

VideoFrame::WritablePlanes VideoFrame::detachPlanes()
{
    if (!isValidImage())
        return {};
    const PlaneLayout layout(width(), height());
    FramePool::Buffer buffer = FramePool::shared().acquire(layout);
    if (!buffer.owner)
        return {};
    const Image::Planes &from = m_image.planes();
    libyuv::CopyPlane(from.y, from.strideY, buffer.planes.y, buffer.planes.strideY, layout.width, layout.height);
    if (layout.chromaWidth() > 0 && layout.chromaHeight() > 0) {
        libyuv::CopyPlane(from.u, from.strideUV, buffer.planes.u, buffer.planes.strideUV, layout.chromaWidth(),
                          layout.chromaHeight());
        libyuv::CopyPlane(from.v, from.strideUV, buffer.planes.v, buffer.planes.strideUV, layout.chromaWidth(),
                          layout.chromaHeight());
    }
    m_image.setPlanes({buffer.planes.y, buffer.planes.u, buffer.planes.v, buffer.planes.strideY, buffer.planes.strideUV},
                      buffer.owner);
    return buffer.planes;
}

} // namespace orrin
