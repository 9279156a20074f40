// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/audioencoder.h"

#include "camera/audiosignal.h"
#include "camera/encoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/channel_layout.h>
}

#include <algorithm>
#include <vector>

namespace orrin::demo {

namespace {

constexpr int AacBitrate = 48000;
// AAC packets overlap: this many before the wanted one are encoded as well.
constexpr std::int64_t AacLeadIn = 2;
constexpr std::int64_t AacLookAhead = 4;

/*! G.711, mu-law: sign, exponent, mantissa of the biased magnitude, all bits inverted. */
char mulaw(int sample)
{
    constexpr int Bias = 132;
    constexpr int Limit = 32635;
    const int sign = sample < 0 ? 0x80 : 0;
    const int magnitude = std::min(sample < 0 ? -sample : sample, Limit) + Bias;
    int exponent = 7;
    while (exponent > 0 && !(magnitude & (0x80 << exponent)))
        --exponent;
    const int mantissa = (magnitude >> (exponent + 3)) & 0x0f;
    return char(~(sign | (exponent << 4) | mantissa));
}

/*! G.711, A-law: sign, exponent, mantissa of the magnitude, every second bit inverted. */
char alaw(int sample)
{
    const int sign = sample < 0 ? 0 : 0x80;
    const int magnitude = std::min(sample < 0 ? -sample - 1 : sample, 32767);
    int exponent = 7;
    while (exponent > 0 && !(magnitude & (0x80 << exponent)))
        --exponent;
    const int mantissa = (magnitude >> (exponent > 0 ? exponent + 3 : 4)) & 0x0f;
    return char((sign | (exponent << 4) | mantissa) ^ 0x55);
}

} // namespace

AudioEncoder::AudioEncoder(AudioCodec codec, int camera) : m_codec(codec), m_camera(camera)
{
    m_valid = codec == AudioCodec::Aac ? openAac() : codec != AudioCodec::None;
}

AudioEncoder::~AudioEncoder()
{
    av_frame_free(&m_frame);
    avcodec_free_context(&m_context);
}

std::int64_t AudioEncoder::packetAt(AudioCodec codec, std::int64_t timeMs)
{
    return timeMs * rate(codec) / 1000 / packetSamples(codec);
}

std::int64_t AudioEncoder::timeNsOf(AudioCodec codec, std::int64_t number)
{
    // In two steps: the product of samples and nanoseconds does not fit.
    const std::int64_t samples = number * packetSamples(codec);
    const std::int64_t seconds = samples / rate(codec);
    return seconds * 1'000'000'000 + samples % rate(codec) * 1'000'000'000 / rate(codec);
}

bool AudioEncoder::openAac()
{
    av_frame_free(&m_frame);
    avcodec_free_context(&m_context);
    m_ready.clear();
    m_fed = -1;
    const AVCodec *codec = avcodec_find_encoder(AV_CODEC_ID_AAC);
    if (!codec)
        return false;
    m_context = avcodec_alloc_context3(codec);
    m_context->sample_rate = rate(m_codec);
    m_context->sample_fmt = AV_SAMPLE_FMT_FLTP;
    m_context->bit_rate = AacBitrate;
    m_context->time_base = {1, rate(m_codec)};
    m_context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    m_context->thread_count = 1;
    av_channel_layout_default(&m_context->ch_layout, 1);
    if (avcodec_open2(m_context, codec, nullptr) < 0 || m_context->frame_size != packetSamples(m_codec))
        return false;
    m_config = QByteArray(reinterpret_cast<const char *>(m_context->extradata), m_context->extradata_size);
    m_frame = av_frame_alloc();
    m_frame->format = m_context->sample_fmt;
    m_frame->sample_rate = m_context->sample_rate;
    m_frame->nb_samples = m_context->frame_size;
    return av_channel_layout_copy(&m_frame->ch_layout, &m_context->ch_layout) == 0 &&
           av_frame_get_buffer(m_frame, 0) == 0;
}

std::optional<QByteArray> AudioEncoder::packet(std::int64_t number)
{
    if (!m_valid || number < 0)
        return std::nullopt;
    if (m_codec == AudioCodec::Aac)
        return aacPacket(number);
    std::vector<std::int16_t> samples(std::size_t(packetSamples(m_codec)));
    audiosignal::fill(samples, number * packetSamples(m_codec), rate(m_codec), m_camera);
    QByteArray data;
    data.reserve(qsizetype(samples.size()));
    for (const std::int16_t sample : samples)
        data += m_codec == AudioCodec::Mulaw ? mulaw(sample) : alaw(sample);
    return data;
}

bool AudioEncoder::feedAac(std::int64_t number)
{
    if (av_frame_make_writable(m_frame) < 0)
        return false;
    const int count = packetSamples(m_codec);
    std::vector<std::int16_t> samples(static_cast<std::size_t>(count));
    audiosignal::fill(samples, number * count, rate(m_codec), m_camera);
    auto *target = reinterpret_cast<float *>(m_frame->data[0]);
    for (int i = 0; i < count; ++i)
        target[i] = float(samples[std::size_t(i)]) / 32768.0F;
    m_frame->pts = number * count;
    if (avcodec_send_frame(m_context, m_frame) < 0)
        return false;
    m_fed = number;
    const PacketPointer packet(av_packet_alloc());
    while (packet && avcodec_receive_packet(m_context, packet.get()) == 0) {
        if (packet->pts >= 0)
            m_ready[packet->pts / count] =
                QByteArray(reinterpret_cast<const char *>(packet->data), packet->size);
        av_packet_unref(packet.get());
    }
    return true;
}

std::optional<QByteArray> AudioEncoder::aacPacket(std::int64_t number)
{
    m_ready.erase(m_ready.begin(), m_ready.lower_bound(number));
    const bool follows = m_ready.contains(number) || (m_fed >= number - 1 && m_fed <= number + 1);
    if (!follows) {
        m_valid = openAac();
        if (!m_valid)
            return std::nullopt;
    }
    std::int64_t next = follows ? m_fed + 1 : std::max<std::int64_t>(0, number - AacLeadIn);
    while (!m_ready.contains(number)) {
        if (next > number + AacLookAhead || !feedAac(next++))
            return std::nullopt;
    }
    return m_ready.at(number);
}

} // namespace orrin::demo
