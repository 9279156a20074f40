// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/videodecoder.h"

#include "codecs/framefacts.h"
#include "codecs/picturelayouter.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/hwcontext.h>
}

#include <array>
#include <chrono>
#include <climits>
#include <utility>

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
    std::array<qint64, 64> arrivals{}; // of the data by its tag, as long as the decoder may hold it
    std::chrono::nanoseconds busy{};   // spent since the last picture

    void findDevice(const AVCodec *decoder);
    Status receive(Image *image, std::int64_t *tag);
    void describe(Image *image, std::int64_t tag);
};

namespace {

qint64 clientNowMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

/*! Adds the time of its life to a sum. */
class Stopwatch
{
public:
    explicit Stopwatch(std::chrono::nanoseconds &sum) : m_sum(sum) {}
    ~Stopwatch() { m_sum += std::chrono::steady_clock::now() - m_begin; }
    Stopwatch(const Stopwatch &) = delete;
    Stopwatch &operator=(const Stopwatch &) = delete;

private:
    std::chrono::nanoseconds &m_sum;
    const std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
};

} // namespace

void VideoDecoder::Private::describe(Image *image, std::int64_t tag)
{
    FrameFacts facts;
    facts.decodedMs = clientNowMs();
    facts.arrivedMs = tag >= 0 ? arrivals[std::size_t(tag) % arrivals.size()] : facts.decodedMs;
    facts.decodingUs = std::chrono::duration_cast<std::chrono::microseconds>(std::exchange(busy, {})).count();
    image->setExtension(FrameFactsExtension, facts.toBytes());
}

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
    if (tag >= 0)
        d->arrivals[std::size_t(tag) % d->arrivals.size()] = clientNowMs();
    const Stopwatch watch(d->busy);
    const int error = avcodec_send_packet(d->context.get(), d->packet.get());
    av_packet_unref(d->packet.get());
    return error < 0 ? statusOf(error) : Status::Ok;
}

Status VideoDecoder::receive(Image *image, std::int64_t *tag)
{
    if (!d->context)
        return Status::Unsupported;
    std::int64_t pictureTag = -1;
    const Status status = d->receive(image, &pictureTag);
    if (tag && (status == Status::Ok || pictureTag >= 0))
        *tag = pictureTag;
    if (status == Status::Ok)
        d->describe(image, pictureTag);
    return status;
}

Status VideoDecoder::Private::receive(Image *image, std::int64_t *tag)
{
    const Stopwatch watch(busy);
    const int error = avcodec_receive_frame(context.get(), frame.get());
    if (error < 0)
        return statusOf(error);
    AVFrame *picture = frame.get();
    *tag = picture->pts;
    if (picture->hw_frames_ctx) {
        av_frame_unref(systemFrame.get());
        if (av_hwframe_transfer_data(systemFrame.get(), picture, 0) < 0)
            return Status::Corrupt;
        systemFrame->color_range = picture->color_range;
        picture = systemFrame.get();
    }
    const Status status = layouter.layOut(picture, image);
    av_frame_unref(frame.get());
    return status;
}

Status VideoDecoder::drain()
{
    if (!d->context)
        return Status::Unsupported;
    const int error = avcodec_send_packet(d->context.get(), nullptr);
    return error < 0 && error != AVERROR_EOF ? statusOf(error) : Status::Ok;
}

void VideoDecoder::flush()
{
    if (d->context)
        avcodec_flush_buffers(d->context.get());
}

} // namespace orrin
