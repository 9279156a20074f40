// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/codecs/videoframe.h>
#include <contract/util/time300.h>

#include <QSize>

#include <cstdint>
#include <functional>

namespace orrin {

struct Yuv
{
    std::uint8_t y;
    std::uint8_t u = 128;
    std::uint8_t v = 128;
};

/*! A picture whose point (x, y) has the colour that \a colour gives; the planes lie as the contract says, and
   what pads their lines is filled with a value of its own. */
VideoFrame makeFrame(QSize size, const std::function<Yuv(int x, int y)> &colour,
                     const Image &header = Image(), std::uint64_t id = 1, std::uint16_t streamId = 1);
/*! A picture of one colour. */
VideoFrame makeFrame(QSize size, Yuv colour);
/*! A picture of one colour with a time and a zone. */
VideoFrame makeFrame(QSize size, Yuv colour, Time300 time, const QTimeZone &zone);

} // namespace orrin
