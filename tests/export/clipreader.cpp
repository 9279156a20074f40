// SPDX-License-Identifier: GPL-3.0-or-later
#include "clipreader.h"

#include <QFile>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace orrin::test {

namespace {

void collect(AVCodecContext *decoder, AVFrame *frame, const AVStream *stream, ClipContents &clip)
{
    while (avcodec_receive_frame(decoder, frame) >= 0) {
        ClipContents::Picture picture;
        picture.timeMs = av_rescale_q(frame->pts, stream->time_base, AVRational{1, 1000});
        picture.key = frame->flags & AV_FRAME_FLAG_KEY;
        for (int y = 0; y < frame->height; ++y)
            picture.luma.append(reinterpret_cast<const char *>(frame->data[0]) + y * frame->linesize[0], frame->width);
        clip.pictures.append(picture);
    }
}

} // namespace

ClipContents readClip(const QString &fileName)
{
    ClipContents clip;
    AVFormatContext *format = nullptr;
    if (avformat_open_input(&format, QFile::encodeName(fileName).constData(), nullptr, nullptr) < 0)
        return clip;
    if (avformat_find_stream_info(format, nullptr) >= 0 && format->nb_streams == 1) {
        const AVStream *stream = format->streams[0];
        const AVCodec *codec = avcodec_find_decoder(stream->codecpar->codec_id);
        AVCodecContext *decoder = avcodec_alloc_context3(codec);
        avcodec_parameters_to_context(decoder, stream->codecpar);
        if (codec && avcodec_open2(decoder, codec, nullptr) >= 0) {
            clip.readable = true;
            clip.codec = codec->name;
            clip.width = stream->codecpar->width;
            clip.height = stream->codecpar->height;
            clip.durationMs = format->duration / 1000;
            if (const AVDictionaryEntry *created = av_dict_get(format->metadata, "creation_time", nullptr, 0))
                clip.createdText = QString::fromUtf8(created->value);
            AVPacket *packet = av_packet_alloc();
            AVFrame *frame = av_frame_alloc();
            while (av_read_frame(format, packet) >= 0) {
                avcodec_send_packet(decoder, packet);
                collect(decoder, frame, stream, clip);
                av_packet_unref(packet);
            }
            avcodec_send_packet(decoder, nullptr);
            collect(decoder, frame, stream, clip);
            av_frame_free(&frame);
            av_packet_free(&packet);
        }
        avcodec_free_context(&decoder);
    }
    avformat_close_input(&format);
    return clip;
}

} // namespace orrin::test
