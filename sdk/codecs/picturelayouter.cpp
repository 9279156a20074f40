// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/picturelayouter.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <libyuv/convert.h>
#include <libyuv/planar_functions.h>

#include <cstddef>

namespace orrin {

namespace {

using Status = VideoDecoder::Status;

// Full range to limited range, as fractions of 256: 219/255 for luma, 224/255 for chroma.
constexpr int LumaScale = 220;
constexpr int ChromaScale = 225;
constexpr int RangeBias = 16;

bool isFullRange(const AVFrame *frame)
{
    return frame->color_range == AVCOL_RANGE_JPEG || frame->format == AV_PIX_FMT_YUVJ420P
        || frame->format == AV_PIX_FMT_YUVJ422P || frame->format == AV_PIX_FMT_YUVJ444P;
}

bool isPlanar420(const AVFrame *frame)
{
    return frame->format == AV_PIX_FMT_YUV420P || frame->format == AV_PIX_FMT_YUVJ420P;
}

bool fitsLayout(const AVFrame *frame, const PlaneLayout &layout)
{
    return frame->linesize[0] == layout.strideY() && frame->linesize[1] == layout.strideUV()
        && frame->linesize[2] == layout.strideUV();
}

void limitRange(std::uint8_t *plane, int stride, int width, int height, int scale)
{
    if (width > 0 && height > 0)
        libyuv::Convert8To8Plane(plane, stride, plane, stride, scale, RangeBias, width, height);
}

void limitRange(const FramePool::Buffer &buffer, const PlaneLayout &layout)
{
    limitRange(buffer.planes.y, layout.strideY(), layout.width, layout.height, LumaScale);
    limitRange(buffer.planes.u, layout.strideUV(), layout.chromaWidth(), layout.chromaHeight(), ChromaScale);
    limitRange(buffer.planes.v, layout.strideUV(), layout.chromaWidth(), layout.chromaHeight(), ChromaScale);
}

void copyPlane(const AVFrame *frame, int plane, std::uint8_t *to, int stride, int width, int height)
{
    if (width > 0 && height > 0)
        libyuv::CopyPlane(frame->data[plane], frame->linesize[plane], to, stride, width, height);
}

} // namespace

Status PictureLayouter::layOut(AVFrame *frame, Image *image)
{
    const PlaneLayout layout(frame->width, frame->height);
    if (!layout.isValid())
        return Status::TooLarge;
    if (!frame->data[0])
        return Status::Corrupt;

    if (isPlanar420(frame) && !isFullRange(frame) && fitsLayout(frame, layout)) {
        AVFrame *held = av_frame_alloc();
        if (!held)
            return Status::NoMemory;
        av_frame_move_ref(held, frame);
        std::shared_ptr<void> owner(held, [](void *data) {
            AVFrame *old = static_cast<AVFrame *>(data);
            av_frame_free(&old);
        });
        *image = Image::fromPlanes(layout.width, layout.height,
                                   {held->data[0], held->data[1], held->data[2], layout.strideY(), layout.strideUV()},
                                   std::move(owner));
        return Status::Ok;
    }

    FramePool::Buffer buffer = m_pool.acquire(layout);
    if (!buffer.owner)
        return Status::NoMemory;
    const Status status = convert(frame, buffer, layout);
    if (status != Status::Ok)
        return status;
    if (isFullRange(frame))
        limitRange(buffer, layout);
    const auto &planes = buffer.planes;
    *image = Image::fromPlanes(layout.width, layout.height,
                               {planes.y, planes.u, planes.v, planes.strideY, planes.strideUV}, buffer.owner);
    return Status::Ok;
}

// Chroma of odd pictures is cut, not rounded up: for them libyuv is told the even size, and luma is copied whole.
Status PictureLayouter::convert(const AVFrame *frame, const FramePool::Buffer &buffer, const PlaneLayout &layout)
{
    if (!isPlanar420(frame))
        return convertPacked(frame, buffer, layout);
    copyPlane(frame, 0, buffer.planes.y, layout.strideY(), layout.width, layout.height);
    copyPlane(frame, 1, buffer.planes.u, layout.strideUV(), layout.chromaWidth(), layout.chromaHeight());
    copyPlane(frame, 2, buffer.planes.v, layout.strideUV(), layout.chromaWidth(), layout.chromaHeight());
    return Status::Ok;
}

Status PictureLayouter::convertPacked(const AVFrame *frame, const FramePool::Buffer &buffer, const PlaneLayout &layout)
{
    const int width = layout.width & ~1;
    const int height = layout.height & ~1;
    const auto &to = buffer.planes;
    const auto planar = [&](auto function) {
        return function(frame->data[0], frame->linesize[0], frame->data[1], frame->linesize[1], frame->data[2],
                        frame->linesize[2], to.y, to.strideY, to.u, to.strideUV, to.v, to.strideUV, width, height);
    };
    int failed = -1;
    bool eightBit = true;
    switch (frame->format) {
    case AV_PIX_FMT_YUV422P:
    case AV_PIX_FMT_YUVJ422P:
        failed = planar(libyuv::I422ToI420);
        break;
    case AV_PIX_FMT_YUV444P:
    case AV_PIX_FMT_YUVJ444P:
        failed = planar(libyuv::I444ToI420);
        break;
    case AV_PIX_FMT_GRAY8:
        failed = libyuv::I400ToI420(frame->data[0], frame->linesize[0], to.y, to.strideY, to.u, to.strideUV, to.v,
                                    to.strideUV, width, height);
        break;
    case AV_PIX_FMT_NV12:
        failed = libyuv::NV12ToI420(frame->data[0], frame->linesize[0], frame->data[1], frame->linesize[1], to.y,
                                    to.strideY, to.u, to.strideUV, to.v, to.strideUV, width, height);
        break;
    case AV_PIX_FMT_YUV420P10:
        eightBit = false;
        failed = libyuv::I010ToI420(reinterpret_cast<const std::uint16_t *>(frame->data[0]), frame->linesize[0] / 2,
                                    reinterpret_cast<const std::uint16_t *>(frame->data[1]), frame->linesize[1] / 2,
                                    reinterpret_cast<const std::uint16_t *>(frame->data[2]), frame->linesize[2] / 2, to.y,
                                    to.strideY, to.u, to.strideUV, to.v, to.strideUV, width, height);
        break;
    default:
        return Status::Unsupported;
    }
    const bool odd = width != layout.width || height != layout.height;
    if (odd && !eightBit)
        return Status::Unsupported;
    if (odd)
        copyPlane(frame, 0, to.y, to.strideY, layout.width, layout.height);
    // A picture of one line or column has no chroma for libyuv to convert.
    return failed == 0 || width == 0 || height == 0 ? Status::Ok : Status::Unsupported;
}

} // namespace orrin
