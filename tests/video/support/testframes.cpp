// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testframes.h"

#include <vector>

namespace orrin {

namespace {

constexpr std::uint8_t Padding = 77;

int strideOf(int width)
{
    return (width + 3) / 4 * 4;
}

struct PlaneMemory
{
    explicit PlaneMemory(QSize size)
        : y(std::size_t(strideOf(size.width())) * std::size_t(size.height()), Padding)
        , u(std::size_t(strideOf(size.width() / 2)) * std::size_t(size.height() / 2), Padding)
        , v(u)
    {
    }

    std::vector<std::uint8_t> y;
    std::vector<std::uint8_t> u;
    std::vector<std::uint8_t> v;
};

} // namespace

VideoFrame makeFrame(QSize size, const std::function<Yuv(int, int)> &colour, const Image &header,
                     std::uint64_t id, std::uint16_t streamId)
{
    const auto memory = std::make_shared<PlaneMemory>(size);
    const auto strideY = std::size_t(strideOf(size.width()));
    const auto strideUV = std::size_t(strideOf(size.width() / 2));
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            memory->y[std::size_t(y) * strideY + std::size_t(x)] = colour(x, y).y;
    }
    for (int y = 0; y < size.height() / 2; ++y) {
        for (int x = 0; x < size.width() / 2; ++x) {
            const Yuv value = colour(2 * x, 2 * y);
            memory->u[std::size_t(y) * strideUV + std::size_t(x)] = value.u;
            memory->v[std::size_t(y) * strideUV + std::size_t(x)] = value.v;
        }
    }
    Image image = Image::fromPlanes(
        size.width(), size.height(),
        {memory->y.data(), memory->u.data(), memory->v.data(), int(strideY), int(strideUV)}, memory);
    image.setTime(header.time());
    image.setTimeZone(header.frameQTimeZone());
    image.setExtension(ImageHeaderExtension::PrivacyMask,
                       header.extension(ImageHeaderExtension::PrivacyMask));
    return VideoFrame(image, id, streamId);
}

VideoFrame makeFrame(QSize size, Yuv colour)
{
    return makeFrame(size, [colour](int, int) { return colour; });
}

VideoFrame makeFrame(QSize size, Yuv colour, Time300 time, const QTimeZone &zone)
{
    Image header;
    header.setTime(time);
    header.setTimeZone(zone);
    return makeFrame(size, [colour](int, int) { return colour; }, header);
}

} // namespace orrin
