// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/sprite.h"

#include <libyuv.h>

#include <QImage>

namespace orrin::demo {

Sprite::Sprite(const QImage &image, Picture::Range range)
{
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    m_colour = Picture::fromImage(source, range);
    m_alphaStride = source.width();
    m_alpha.resize(std::size_t(source.width()) * std::size_t(source.height()));
    libyuv::ARGBExtractAlpha(source.constBits(), int(source.bytesPerLine()), m_alpha.data(), m_alphaStride,
                             source.width(), source.height());
}

void Sprite::blendOver(Picture &target, QPoint position) const
{
    // Chroma has one sample for two pixels and lines: both edges stay even.
    const QPoint even(position.x() & ~1, position.y() & ~1);
    const QRect visible = QRect(even, size()) & QRect(QPoint(), target.size());
    const int width = visible.width();
    const int height = visible.height();
    if (width <= 0 || height <= 0)
        return;
    const QPoint from = visible.topLeft() - even;
    const auto at = [](auto &picture, int plane, QPoint point) {
        const QPoint p = plane == 0 ? point : point / 2;
        return picture.plane(plane) + std::ptrdiff_t(p.y()) * picture.stride(plane) + p.x();
    };
    std::array<std::uint8_t *, 3> out{};
    for (int plane = 0; plane < 3; ++plane)
        out[std::size_t(plane)] = at(target, plane, visible.topLeft());
    libyuv::I420Blend(
        at(m_colour, 0, from), m_colour.stride(0), at(m_colour, 1, from), m_colour.stride(1),
        at(m_colour, 2, from), m_colour.stride(2), out[0], target.stride(0), out[1], target.stride(1), out[2],
        target.stride(2), m_alpha.data() + std::ptrdiff_t(from.y()) * m_alphaStride + from.x(), m_alphaStride,
        out[0], target.stride(0), out[1], target.stride(1), out[2], target.stride(2), width, height);
}

} // namespace orrin::demo
