// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/picture.h"

#include <libyuv.h>

#include <QImage>

#include <cstring>

namespace orrin::demo {

namespace {
constexpr int alignedUp(int value)
{
    return (value + 31) & ~31;
}
} // namespace

Picture::Picture(QSize size) : m_size(size)
{
    const int chromaHeight = (size.height() + 1) / 2;
    m_strides = {alignedUp(size.width()), alignedUp((size.width() + 1) / 2),
                 alignedUp((size.width() + 1) / 2)};
    m_offsets[1] = std::size_t(m_strides[0]) * std::size_t(size.height());
    m_offsets[2] = m_offsets[1] + std::size_t(m_strides[1]) * std::size_t(chromaHeight);
    m_data.resize(m_offsets[2] + std::size_t(m_strides[2]) * std::size_t(chromaHeight), 0);
}

Picture Picture::fromImage(const QImage &image, Range range)
{
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    Picture result(source.size());
    const auto convert = range == Range::Full ? libyuv::ARGBToJ420 : libyuv::ARGBToI420;
    convert(source.constBits(), int(source.bytesPerLine()), result.plane(0), result.stride(0),
            result.plane(1), result.stride(1), result.plane(2), result.stride(2), source.width(),
            source.height());
    return result;
}

bool Picture::operator==(const Picture &other) const
{
    // Padding differs by the way a picture came about, so only the visible part of each line counts.
    if (m_size != other.m_size)
        return false;
    for (int index = 0; index < 3; ++index) {
        const int columns = index == 0 ? width() : (width() + 1) / 2;
        const int lines = index == 0 ? height() : (height() + 1) / 2;
        for (int y = 0; y < lines; ++y) {
            if (std::memcmp(plane(index) + std::ptrdiff_t(y) * stride(index),
                            other.plane(index) + std::ptrdiff_t(y) * other.stride(index),
                            std::size_t(columns)) != 0)
                return false;
        }
    }
    return true;
}

} // namespace orrin::demo
