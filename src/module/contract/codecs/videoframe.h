// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/codecs/export.h>
#include <contract/codecs/pixelformat.h>
#include <contract/util/image.h>

#include <QImage>
#include <QMetaType>

#include <cstdint>

namespace orrin {

/*! A decoded frame: an Image with the numbers of its stream and its own.

    A handle; copies share the pixels and are cheap. Copies may be read on several threads at once. Pixels are not changed
    once a frame was handed on, except through detachPlanes(). */
class ORRINSDK_CODECS_EXPORT VideoFrame
{
public:
    VideoFrame() = default;
    explicit VideoFrame(const Image &image, std::uint64_t id = 0, std::uint16_t streamId = 0);

    /*! True when the frame holds a picture or a piece of sound. */
    bool isValid() const { return !m_image.isNull(); }
    /*! True when the frame holds a picture. */
    bool isValidImage() const;

    /*! In pixels; 0 without a picture. */
    int width() const { return m_image.width(); }
    int height() const { return m_image.height(); }

    /*! The planes, 8-bit, 4:2:0; each line is the plane's width rounded up to a multiple of 4 bytes. The chroma planes have
        width / 2 by height / 2 samples, cut to whole ones. Null without a picture. Valid while a copy of the frame lives. */
    const std::uint8_t *bitsY() const { return m_image.planes().y; }
    const std::uint8_t *bitsU() const { return m_image.planes().u; }
    const std::uint8_t *bitsV() const { return m_image.planes().v; }

    /*! Counts the frames of the stream from 1. */
    std::uint64_t id() const { return m_id; }
    std::uint16_t streamId() const { return m_streamId; }

    Image image() const { return m_image; }
    const Image &imageRef() const { return m_image; }

    /*! The part of the picture from (\a x, \a y), \a width by \a height pixels, as an image of \a format (Grey8, Rgb24, Rgba32 or Rgb32),
        BT.601 limited range. -1 for width or height means up to the edge; the part is cut to the picture. A null
        image without a picture, for an empty part or another format. */
    QImage convertToQImage(orrincodecs::PixelFormat format, int x, int y, int width, int height) const;

    /*! Copies the pixels, so that this frame alone holds them, and gives the writable planes. Null planes when there is no
        picture or no memory. */
    struct WritablePlanes
    {
        std::uint8_t *y = nullptr;
        std::uint8_t *u = nullptr;
        std::uint8_t *v = nullptr;
        int strideY = 0;
        int strideUV = 0;
    };
    WritablePlanes detachPlanes();

private:
    Image m_image;
    std::uint64_t m_id = 0;
    std::uint16_t m_streamId = 0;
};

} // namespace orrin

Q_DECLARE_METATYPE(orrin::VideoFrame)
