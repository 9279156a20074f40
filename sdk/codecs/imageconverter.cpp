// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/imageconverter.h"

#include <libyuv/convert_argb.h>
#include <libyuv/convert_from_argb.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace orrin {

namespace {

using orrincodecs::PixelFormat;

QImage::Format imageFormat(PixelFormat format)
{
    switch (format) {
    case PixelFormat::Grey8:
        return QImage::Format_Grayscale8;
    case PixelFormat::Rgb24:
        return QImage::Format_RGB888;
    case PixelFormat::Rgba32:
        return QImage::Format_RGBA8888;
    case PixelFormat::Rgb32:
        return QImage::Format_RGB32;
    case PixelFormat::Unknown:
    case PixelFormat::I420:
        break;
    }
    return QImage::Format_Invalid;
}

// The converter reads a chroma sample for the last column and line of an odd picture, which the planes do not have.
class CompleteChroma
{
public:
    CompleteChroma(const Image &image)
        : m_width((image.width() + 1) / 2)
        , m_height((image.height() + 1) / 2)
    {
        const Image::Planes &planes = image.planes();
        if (image.width() % 2 == 0 && image.height() % 2 == 0) {
            u = planes.u;
            v = planes.v;
            stride = planes.strideUV;
            return;
        }
        const std::size_t bytes = std::size_t(m_width) * std::size_t(m_height);
        m_samples.assign(2 * bytes, 128);
        extend(planes.u, planes.strideUV, image.width() / 2, image.height() / 2, m_samples.data());
        extend(planes.v, planes.strideUV, image.width() / 2, image.height() / 2, m_samples.data() + bytes);
        u = m_samples.data();
        v = u + bytes;
        stride = m_width;
    }

    const std::uint8_t *u = nullptr;
    const std::uint8_t *v = nullptr;
    int stride = 0;

private:
    void extend(const std::uint8_t *from, int fromStride, int width, int height, std::uint8_t *to) const
    {
        if (width < 1 || height < 1)
            return;
        for (int line = 0; line < m_height; ++line) {
            const std::uint8_t *source = from + std::ptrdiff_t(qMin(line, height - 1)) * fromStride;
            std::uint8_t *target = to + std::ptrdiff_t(line) * m_width;
            std::memcpy(target, source, std::size_t(width));
            if (m_width > width)
                target[width] = source[width - 1];
        }
    }

    int m_width;
    int m_height;
    std::vector<std::uint8_t> m_samples;
};

bool convertGrey(const std::uint8_t *y, int strideY, QImage *target)
{
    QImage wide(target->size(), QImage::Format_RGB32);
    if (wide.isNull())
        return false;
    libyuv::I400ToARGB(y, strideY, wide.bits(), int(wide.bytesPerLine()), wide.width(), wide.height());
    return libyuv::ARGBToJ400(wide.constBits(), int(wide.bytesPerLine()), target->bits(), int(target->bytesPerLine()),
                              target->width(), target->height())
        == 0;
}

} // namespace

QImage convertPicture(const Image &image, const QRect &part, PixelFormat format)
{
    if (imageFormat(format) == QImage::Format_Invalid)
        return {};
    // A chroma sample covers two pixels each way: begin at an even place and cut the rest off afterwards.
    const QRect aligned(QPoint(part.left() & ~1, part.top() & ~1), part.bottomRight());
    QImage result(aligned.size(), imageFormat(format));
    if (result.isNull())
        return {};

    const Image::Planes &planes = image.planes();
    const std::uint8_t *y = planes.y + std::ptrdiff_t(aligned.top()) * planes.strideY + aligned.left();
    const int width = aligned.width();
    const int height = aligned.height();
    std::uint8_t *out = result.bits();
    const int outStride = int(result.bytesPerLine());
    bool done = false;
    if (format == PixelFormat::Grey8) {
        done = convertGrey(y, planes.strideY, &result);
    } else {
        const CompleteChroma chroma(image);
        const std::ptrdiff_t offset = std::ptrdiff_t(aligned.top() / 2) * chroma.stride + aligned.left() / 2;
        const auto convert = format == PixelFormat::Rgb24 ? libyuv::I420ToRAW
            : format == PixelFormat::Rgba32               ? libyuv::I420ToABGR
                                                          : libyuv::I420ToARGB;
        done = convert(y, planes.strideY, chroma.u + offset, chroma.stride, chroma.v + offset, chroma.stride, out,
                       outStride, width, height)
            == 0;
    }
    if (!done)
        return {};
    return aligned == part ? result : result.copy(QRect(part.topLeft() - aligned.topLeft(), part.size()));
}

} // namespace orrin
