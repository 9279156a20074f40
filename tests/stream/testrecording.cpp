// SPDX-License-Identifier: GPL-3.0-or-later
#include "testrecording.h"

#include "../../apps/demo-server/timestrip.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/log.h>
#include <libavutil/opt.h>
}

#include <QHash>

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

namespace orrin {

namespace {

struct Free
{
    void operator()(AVCodecContext *context) const { avcodec_free_context(&context); }
    void operator()(AVFrame *frame) const { av_frame_free(&frame); }
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};

void paint(AVFrame *frame, qint64 ms)
{
    timestrip::Fields fields;
    fields.timeMs = std::uint64_t(ms);
    for (int y = 0; y < frame->height; ++y)
        std::memset(frame->data[0] + std::ptrdiff_t(y) * frame->linesize[0], int(60 + (ms / 100) % 120), std::size_t(frame->width));
    for (int plane = 1; plane < 3; ++plane) {
        for (int y = 0; y < frame->height / 2; ++y)
            std::memset(frame->data[plane] + std::ptrdiff_t(y) * frame->linesize[plane], 128, std::size_t(frame->width / 2));
    }
    timestrip::draw(frame->data[0], frame->linesize[0], frame->width, frame->height, fields);
}

/*! One encoder for all groups: to open one costs more than to encode a group. At a constant quantiser nothing of a group depends on what was
    encoded before. */
class GroupEncoder
{
public:
    GroupEncoder()
    {
        av_log_set_level(AV_LOG_ERROR);
        const AVCodec *codec = avcodec_find_encoder_by_name("libx264");
        m_context.reset(avcodec_alloc_context3(codec));
        m_context->width = TestRecording::Width;
        m_context->height = TestRecording::Height;
        m_context->pix_fmt = AV_PIX_FMT_YUV420P;
        m_context->time_base = {1, 25};
        m_context->gop_size = 1000;
        m_context->max_b_frames = 0;
        m_context->thread_count = 1;
        av_opt_set(m_context->priv_data, "preset", "ultrafast", 0);
        av_opt_set(m_context->priv_data, "tune", "zerolatency", 0);
        av_opt_set(m_context->priv_data, "qp", "14", 0);
        av_opt_set(m_context->priv_data, "forced-idr", "1", 0);
        av_opt_set(m_context->priv_data, "x264-params", "scenecut=0:repeat-headers=1", 0);
        m_valid = avcodec_open2(m_context.get(), codec, nullptr) >= 0;
        m_frame->format = m_context->pix_fmt;
        m_frame->width = TestRecording::Width;
        m_frame->height = TestRecording::Height;
        av_frame_get_buffer(m_frame.get(), 0);
    }

    /*! The frame of this moment; empty when it cannot be encoded. */
    QByteArray encode(qint64 ms, bool key)
    {
        if (!m_valid || av_frame_make_writable(m_frame.get()) < 0)
            return {};
        paint(m_frame.get(), ms);
        m_frame->pts = m_count++;
        m_frame->pict_type = key ? AV_PICTURE_TYPE_I : AV_PICTURE_TYPE_NONE;
        if (avcodec_send_frame(m_context.get(), m_frame.get()) < 0 || avcodec_receive_packet(m_context.get(), m_packet.get()) < 0)
            return {};
        const QByteArray data(reinterpret_cast<const char *>(m_packet->data), m_packet->size);
        av_packet_unref(m_packet.get());
        return data;
    }

private:
    std::unique_ptr<AVCodecContext, Free> m_context;
    const std::unique_ptr<AVFrame, Free> m_frame{av_frame_alloc()};
    const std::unique_ptr<AVPacket, Free> m_packet{av_packet_alloc()};
    qint64 m_count = 0;
    bool m_valid = false;
};

} // namespace

TestRecording::TestRecording(int intervalMs, int framesInGroup) : m_intervalMs(intervalMs), m_framesInGroup(framesInGroup) {}
TestRecording::~TestRecording() = default;

const TestRecording::Span *TestRecording::spanAt(qint64 ms) const
{
    for (const Span &span : spans) {
        if (ms >= span.beginMs && ms < span.endMs)
            return &span;
    }
    return nullptr;
}

std::optional<qint64> TestRecording::frameAt(qint64 ms) const
{
    for (const Span &span : spans) {
        if (ms < span.beginMs)
            return span.beginMs;
        if (ms < span.endMs)
            return ms - ms % m_intervalMs;
    }
    return std::nullopt;
}

std::optional<qint64> TestRecording::frameBefore(qint64 ms) const
{
    std::optional<qint64> found;
    for (const Span &span : spans) {
        if (span.beginMs < ms)
            found = std::min(ms, span.endMs) - m_intervalMs;
    }
    return found;
}

std::optional<qint64> TestRecording::frameAfter(qint64 ms) const
{
    return frameAt(ms + m_intervalMs);
}

const QList<TestRecording::Frame> &TestRecording::group(qint64 ms, Part part)
{
    // What a frame shows depends on its moment alone, so that recordings alike share what is encoded.
    static std::map<std::pair<int, int>, QHash<qint64, QList<Frame>>> known;
    QList<Frame> &frames = known[{m_intervalMs, m_framesInGroup}][ms];
    const int wanted = part == Part::KeyFrame ? 1 : m_framesInGroup;
    if (frames.size() >= wanted)
        return frames;
    static GroupEncoder encoder;
    frames.clear();
    for (int i = 0; i < wanted; ++i) {
        const qint64 at = ms + i * m_intervalMs;
        frames.append({at, i == 0, encoder.encode(at, i == 0)});
    }
    return frames;
}

void TestRecording::prepare(qint64 fromMs, qint64 toMs, Part part)
{
    for (qint64 ms = fromMs - fromMs % groupMs(); ms < toMs; ms += groupMs())
        group(ms, part);
}

std::optional<qint64> TestRecording::readTime(const Image &image)
{
    const auto fields = timestrip::read(image.planes().y, image.planes().strideY, image.width(), image.height());
    return fields ? std::optional(qint64(fields->timeMs)) : std::nullopt;
}

} // namespace orrin
