// SPDX-License-Identifier: GPL-3.0-or-later
#include "streamencoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/opt.h>
}

#include <cstring>
#include <memory>

namespace orrin {

namespace {

struct Free
{
    void operator()(AVCodecContext *context) const { avcodec_free_context(&context); }
    void operator()(AVFrame *frame) const { av_frame_free(&frame); }
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};

void paint(AVFrame *frame, int luma)
{
    for (int y = 0; y < frame->height; ++y)
        std::memset(frame->data[0] + y * frame->linesize[0], luma, std::size_t(frame->width));
    for (int plane = 1; plane < 3; ++plane) {
        for (int y = 0; y < (frame->height + 1) / 2; ++y)
            std::memset(frame->data[plane] + y * frame->linesize[plane], plane == 1 ? 100 : 150,
                        std::size_t((frame->width + 1) / 2));
    }
}

} // namespace

StreamEncoder::StreamEncoder(const char *name, int width, int height) : m_name(name), m_width(width), m_height(height) {}

QList<StreamEncoder::Picture> StreamEncoder::encode(const QList<int> &lumas, int interval) const
{
    QList<Picture> pictures;
    const AVCodec *codec = avcodec_find_encoder_by_name(m_name);
    if (!codec)
        return pictures;
    const std::unique_ptr<AVCodecContext, Free> context(avcodec_alloc_context3(codec));
    const bool jpeg = codec->id == AV_CODEC_ID_MJPEG;
    context->width = m_width;
    context->height = m_height;
    context->pix_fmt = jpeg ? AV_PIX_FMT_YUVJ420P : AV_PIX_FMT_YUV420P;
    context->time_base = {1, 25};
    context->gop_size = interval;
    context->max_b_frames = 0;
    context->thread_count = 1;
    av_opt_set(context->priv_data, "preset", "ultrafast", 0);
    av_opt_set(context->priv_data, "tune", "zerolatency", 0);
    av_opt_set(context->priv_data, "x264-params", "scenecut=0:repeat-headers=1", 0);
    av_opt_set(context->priv_data, "x265-params", "log-level=none:scenecut=0:repeat-headers=1", 0);
    av_opt_set(context->priv_data, "huffman", "default", 0);
    if (avcodec_open2(context.get(), codec, nullptr) < 0)
        return pictures;

    const std::unique_ptr<AVFrame, Free> frame(av_frame_alloc());
    const std::unique_ptr<AVPacket, Free> packet(av_packet_alloc());
    frame->format = context->pix_fmt;
    frame->width = m_width;
    frame->height = m_height;
    av_frame_get_buffer(frame.get(), 0);
    const auto drain = [&] {
        while (avcodec_receive_packet(context.get(), packet.get()) >= 0) {
            pictures.append({QByteArray(reinterpret_cast<const char *>(packet->data), packet->size),
                             bool(packet->flags & AV_PKT_FLAG_KEY)});
            av_packet_unref(packet.get());
        }
    };
    for (int i = 0; i < lumas.size(); ++i) {
        av_frame_make_writable(frame.get());
        paint(frame.get(), lumas[i]);
        frame->pts = i;
        avcodec_send_frame(context.get(), frame.get());
        drain();
    }
    avcodec_send_frame(context.get(), nullptr);
    drain();
    return pictures;
}

} // namespace orrin
