// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/encoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/log.h>
#include <libavutil/opt.h>
}

namespace orrin::demo {

namespace {

const char *encoderName(VideoCodec codec)
{
    switch (codec) {
    case VideoCodec::H264:
        return "libx264";
    case VideoCodec::H265:
        return "libx265";
    case VideoCodec::Mjpeg:
        break;
    }
    return "mjpeg";
}

void setOptions(AVCodecContext *context, VideoCodec codec, Encoder::Use use)
{
    void *options = context->priv_data;
    // A constant quantiser knows nothing of the past.
    const char *quality = use == Encoder::Use::Recorded ? "qp" : "crf";
    switch (codec) {
    case VideoCodec::H264:
        av_opt_set(options, "preset", "ultrafast", 0);
        av_opt_set(options, "tune", "zerolatency", 0);
        av_opt_set(options, quality, "24", 0);
        av_opt_set(options, "forced-idr", "1", 0);
        av_opt_set(options, "x264-params", "scenecut=0:sliced-threads=0:sync-lookahead=0", 0);
        break;
    case VideoCodec::H265:
        av_opt_set(options, "preset", "ultrafast", 0);
        av_opt_set(options, "tune", "zerolatency", 0);
        av_opt_set(options, quality, "26", 0);
        av_opt_set(options, "forced-idr", "1", 0);
        av_opt_set(options, "x265-params",
                   "log-level=none:scenecut=0:repeat-headers=1:frame-threads=1:pools=none:wpp=0:info=0", 0);
        break;
    case VideoCodec::Mjpeg:
        // RFC 2435 knows the standard tables only.
        av_opt_set(options, "huffman", "default", 0);
        context->flags |= AV_CODEC_FLAG_QSCALE;
        context->global_quality = 5 * FF_QP2LAMBDA;
        context->color_range = AVCOL_RANGE_JPEG;
        break;
    }
}

} // namespace

void PacketDeleter::operator()(AVPacket *packet) const
{
    av_packet_free(&packet);
}

Encoder::Encoder(VideoCodec codec, const Profile &profile, int keyInterval, Use use)
{
    const AVCodec *encoder = avcodec_find_encoder_by_name(encoderName(codec));
    if (!encoder)
        return;
    m_context = avcodec_alloc_context3(encoder);
    m_context->width = profile.size.width();
    m_context->height = profile.size.height();
    m_context->pix_fmt = codec == VideoCodec::Mjpeg ? AV_PIX_FMT_YUVJ420P : AV_PIX_FMT_YUV420P;
    m_context->time_base = {1, profile.rate};
    m_context->framerate = {profile.rate, 1};
    m_context->gop_size = keyInterval;
    m_context->max_b_frames = 0;
    m_context->thread_count = 1;
    m_context->colorspace = AVCOL_SPC_SMPTE170M;
    m_context->color_range = AVCOL_RANGE_MPEG;
    setOptions(m_context, codec, use);
    av_log_set_level(AV_LOG_ERROR);

    m_frame = av_frame_alloc();
    m_frame->format = m_context->pix_fmt;
    m_frame->width = m_context->width;
    m_frame->height = m_context->height;
    m_frame->pts = 0;
    m_valid = avcodec_open2(m_context, encoder, nullptr) == 0;
}

Encoder::~Encoder()
{
    av_frame_free(&m_frame);
    avcodec_free_context(&m_context);
}

Picture::Range Encoder::range(VideoCodec codec)
{
    return codec == VideoCodec::Mjpeg ? Picture::Range::Full : Picture::Range::Limited;
}

PacketPointer Encoder::encode(const Picture &picture, bool key)
{
    if (!m_valid || picture.size() != QSize(m_context->width, m_context->height))
        return {};
    // libavcodec copies a frame without a buffer of its own, so the picture is only borrowed.
    for (int plane = 0; plane < 3; ++plane) {
        m_frame->data[plane] = const_cast<std::uint8_t *>(picture.plane(plane));
        m_frame->linesize[plane] = picture.stride(plane);
    }
    m_frame->pict_type = key ? AV_PICTURE_TYPE_I : AV_PICTURE_TYPE_NONE;
    m_frame->quality = m_context->global_quality;
    PacketPointer packet(av_packet_alloc());
    if (!packet || avcodec_send_frame(m_context, m_frame) < 0 ||
        avcodec_receive_packet(m_context, packet.get()) < 0)
        return {};
    ++m_frame->pts;
    return packet;
}

} // namespace orrin::demo
