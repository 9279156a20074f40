// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "timestrip.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <QByteArray>
#include <QSize>

#include <algorithm>
#include <optional>

namespace orrin::test {

/*! Decodes one stream and reads the strip of each picture. */
class StripDecoder
{
public:
    explicit StripDecoder(AVCodecID id)
        : m_context(avcodec_alloc_context3(avcodec_find_decoder(id)))
        , m_frame(av_frame_alloc())
        , m_packet(av_packet_alloc())
    {
        m_context->thread_count = 1;
        m_context->flags |= AV_CODEC_FLAG_LOW_DELAY;
        avcodec_open2(m_context, nullptr, nullptr);
    }

    ~StripDecoder()
    {
        av_packet_free(&m_packet);
        av_frame_free(&m_frame);
        avcodec_free_context(&m_context);
    }

    StripDecoder(const StripDecoder &) = delete;
    StripDecoder &operator=(const StripDecoder &) = delete;

    std::optional<timestrip::Fields> decode(const QByteArray &data)
    {
        av_packet_unref(m_packet);
        if (av_new_packet(m_packet, int(data.size())) < 0)
            return std::nullopt;
        std::copy(data.cbegin(), data.cend(), m_packet->data);
        if (avcodec_send_packet(m_context, m_packet) < 0 || avcodec_receive_frame(m_context, m_frame) < 0)
            return std::nullopt;
        return timestrip::read(m_frame->data[0], m_frame->linesize[0], m_frame->width, m_frame->height);
    }

    QSize size() const { return {m_frame->width, m_frame->height}; }

    /*! The luma of the last picture, line by line. */
    QByteArray luma() const
    {
        QByteArray lines;
        for (int y = 0; y < m_frame->height; ++y)
            lines.append(reinterpret_cast<const char *>(m_frame->data[0]) + qsizetype(y) * m_frame->linesize[0],
                         m_frame->width);
        return lines;
    }

private:
    AVCodecContext *m_context;
    AVFrame *m_frame;
    AVPacket *m_packet;
};

} // namespace orrin::test
