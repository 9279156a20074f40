// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/videodecoder.h"

#include "codecs/picturelayouter.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/hwcontext.h>
}

#include <climits>

namespace orrin {

namespace {

using Status = VideoDecoder::Status;

// Hides the decoder's own complaints about damaged data: they are told by status.
constexpr int QuietLogOffset = 64;

AVCodecID codecId(VideoCodec codec)
{
    switch (codec) {
    case VideoCodec::H264:
        return AV_CODEC_ID_H264;
    case VideoCodec::H265:
        return AV_CODEC_ID_HEVC;
    case VideoCodec::Mjpeg:
        return AV_CODEC_ID_MJPEG;
    case VideoCodec::Unknown:
        break;
    }
    return AV_CODEC_ID_NONE;
}

Status statusOf(int error)
{
    if (error == AVERROR(EAGAIN) || error == AVERROR_EOF)
        return Status::NeedsMore;
    if (error == AVERROR(ENOMEM))
        return Status::NoMemory;
    return error == AVERROR_PATCHWELCOME ? Status::Unsupported : Status::Corrupt;
}

struct ContextDeleter
{
    void operator()(AVCodecContext *context) const { avcodec_free_context(&context); }
};
struct FrameDeleter
{
    void operator()(AVFrame *frame) const { av_frame_free(&frame); }
};
struct PacketDeleter
{
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};
struct BufferDeleter
{
    void operator()(AVBufferRef *buffer) const { av_buffer_unref(&buffer); }
};

AVPixelFormat chooseFormat(AVCodecContext *context, const AVPixelFormat *formats)
{
    const auto wanted = AVPixelFormat(reinterpret_cast<std::intptr_t>(context->opaque));
    for (const AVPixelFormat *format = formats; *format != AV_PIX_FMT_NONE; ++format) {
        if (*format == wanted)
            return *format;
    }
    return avcodec_default_get_format(context, formats);
}

} // namespace

QByteArray videoCodecName(VideoCodec codec)
{
    switch (codec) {
    case VideoCodec::H264:
        return QByteArrayLiteral("H264");
    case VideoCodec::H265:
        return QByteArrayLiteral("H265");
    case VideoCodec::Mjpeg:
        return QByteArrayLiteral("MJPEG");
    case VideoCodec::Unknown:
        break;
    }
    return {};
}

struct VideoDecoder::Private
{
    std::unique_ptr<AVCodecContext, ContextDeleter> context;
    std::unique_ptr<AVFrame, FrameDeleter> frame{av_frame_alloc()};
    std::unique_ptr<AVFrame, FrameDeleter> systemFrame{av_frame_alloc()};
    std::unique_ptr<AVPacket, PacketDeleter> packet{av_packet_alloc()};
    std::unique_ptr<AVBufferRef, BufferDeleter> device;
    VideoCodec codec = VideoCodec::Unknown;
    PictureLayouter layouter{FramePool::shared()};

    void findDevice(const AVCodec *decoder);
};

void VideoDecoder::Private::findDevice(const AVCodec *decoder)
{
    for (int i = 0; const AVCodecHWConfig *config = avcodec_get_hw_config(decoder, i); ++i) {
        if (!(config->methods & AV_CODEC_HW_CONFIG_METHOD_HW_DEVICE_CTX))
            continue;
        AVBufferRef *found = nullptr;
        if (av_hwdevice_ctx_create(&found, config->device_type, nullptr, nullptr, 0) < 0)
            continue;
        device.reset(found);
        context->hw_device_ctx = av_buffer_ref(found);
        context->opaque = reinterpret_cast<void *>(std::intptr_t(config->pix_fmt));
        context->get_format = chooseFormat;
        return;
    }
}

VideoDecoder::VideoDecoder() : d(std::make_unique<Private>()) {}
VideoDecoder::~VideoDecoder() = default;

Status VideoDecoder::open(VideoCodec codec, VideoDecoderOptions options)
{
    d->context.reset();
    d->device.reset();
    d->codec = VideoCodec::Unknown;
    const AVCodec *decoder = avcodec_find_decoder(codecId(codec));
    if (!decoder)
        return Status::Unsupported;
    d->context.reset(avcodec_alloc_context3(decoder));
    if (!d->context || !d->frame || !d->systemFrame || !d->packet)
        return Status::NoMemory;
    d->context->thread_count = 1;
    d->context->flags |= AV_CODEC_FLAG_LOW_DELAY;
    d->context->max_pixels = std::int64_t(PlaneLayout::MaxSide) * PlaneLayout::MaxSide;
    d->context->log_level_offset = QuietLogOffset;
    if (options.hardware)
        d->findDevice(decoder);
    const int error = avcodec_open2(d->context.get(), decoder, nullptr);
    if (error < 0) {
        d->context.reset();
        return error == AVERROR(ENOMEM) ? Status::NoMemory : Status::Unsupported;
    }
    d->codec = codec;
    return Status::Ok;
}

bool VideoDecoder::isOpen() const
{
    return d->context != nullptr;
}

VideoCodec VideoDecoder::codec() const
{
    return d->codec;
}

bool VideoDecoder::isHardware() const
{
    return d->device != nullptr;
}

Status VideoDecoder::send(std::span<const std::uint8_t> accessUnit, std::int64_t tag)
{
    if (!d->context)
        return Status::Unsupported;
    if (accessUnit.empty())
        return Status::Ok;
    if (accessUnit.size() > std::size_t(INT_MAX) - AV_INPUT_BUFFER_PADDING_SIZE)
        return Status::TooLarge;
    // The decoder makes its own padded copy of a packet that has no buffer reference; it does not write here.
    av_packet_unref(d->packet.get());
    d->packet->data = const_cast<std::uint8_t *>(accessUnit.data());
    d->packet->size = int(accessUnit.size());
    d->packet->pts = tag;
    const int error = avcodec_send_packet(d->context.get(), d->packet.get());
    av_packet_unref(d->packet.get());
    return error < 0 ? statusOf(error) : Status::Ok;
}

Status VideoDecoder::receive(Image *image, std::int64_t *tag)
{
    if (!d->context)
        return Status::Unsupported;
    const int error = avcodec_receive_frame(d->context.get(), d->frame.get());
    if (error < 0)
        return statusOf(error);
    AVFrame *frame = d->frame.get();
    if (tag)
        *tag = frame->pts;
    if (frame->hw_frames_ctx) {
        av_frame_unref(d->systemFrame.get());
        if (av_hwframe_transfer_data(d->systemFrame.get(), frame, 0) < 0)
            return Status::Corrupt;
        d->systemFrame->color_range = frame->color_range;
        frame = d->systemFrame.get();
    }
    const Status status = d->layouter.layOut(frame, image);
    av_frame_unref(d->frame.get());
    return status;
}

void VideoDecoder::flush()
{
    if (d->context)
        avcodec_flush_buffers(d->context.get());
}

} // namespace orrin
