// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/framepool.h"
#include "codecs/videodecoder.h"

struct AVFrame;

namespace orrin {

/*! Brings decoded pictures of libavcodec into the layout of Image: by reference where they have it already, else by one conversion into memory of the pool.
    Used on the thread of its decoder. */
class PictureLayouter
{
public:
    explicit PictureLayouter(FramePool &pool) : m_pool(pool) {}

    /*! \a frame is in system memory; its content may be moved away. */
    VideoDecoder::Status layOut(AVFrame *frame, Image *image);

private:
    VideoDecoder::Status convert(const AVFrame *frame, const FramePool::Buffer &buffer, const PlaneLayout &layout);
    VideoDecoder::Status convertPacked(const AVFrame *frame, const FramePool::Buffer &buffer, const PlaneLayout &layout);

    FramePool &m_pool;
};

} // namespace orrin
