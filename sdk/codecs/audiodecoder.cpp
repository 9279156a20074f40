// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/audiodecoder.h"

#include "codecs/audioresampler.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/channel_layout.h>
}

#include <algorithm>

namespace orrin {

namespace {

template <auto Free>
struct Freer
{
    template <typename Type>
    void operator()(Type *object) const
    {
        Free(&object);
    }
};

using Context = std::unique_ptr<AVCodecContext, Freer<avcodec_free_context>>;
using Packet = std::unique_ptr<AVPacket, Freer<av_packet_free>>;
using Frame = std::unique_ptr<AVFrame, Freer<av_frame_free>>;

// No unit of sound is larger.
constexpr std::size_t MaxUnitBytes = 64 * 1024;

AVCodecID codecIdOf(AudioCodec codec)
{
    switch (codec) {
    case AudioCodec::MuLaw:
        return AV_CODEC_ID_PCM_MULAW;
    case AudioCodec::ALaw:
        return AV_CODEC_ID_PCM_ALAW;
    case AudioCodec::Aac:
        return AV_CODEC_ID_AAC;
    case AudioCodec::Unknown:
        break;
    }
    return AV_CODEC_ID_NONE;
}

bool setConfig(AVCodecContext *context, const QByteArray &config)
{
    if (config.isEmpty())
        return true;
    context->extradata =
        static_cast<std::uint8_t *>(av_mallocz(std::size_t(config.size()) + AV_INPUT_BUFFER_PADDING_SIZE));
    if (!context->extradata)
        return false;
    std::copy(config.cbegin(), config.cend(), context->extradata);
    context->extradata_size = int(config.size());
    return true;
}

} // namespace

struct AudioDecoder::Private
{
    Context context;
    Packet packet{av_packet_alloc()};
    Frame frame{av_frame_alloc()};
    AudioResampler resampler;
    int rate = 0;
    int channels = 0;

    bool append(QByteArray *samples);
};

AudioDecoder::AudioDecoder() : d(std::make_unique<Private>()) {}
AudioDecoder::~AudioDecoder() = default;

bool AudioDecoder::isOpen() const
{
    return d->context != nullptr;
}

AudioDecoder::Status AudioDecoder::open(const AudioFormat &format)
{
    d->context.reset();
    if (!d->packet || !d->frame)
        return Status::NoMemory;
    const AVCodec *codec = avcodec_find_decoder(codecIdOf(format.codec));
    if (!codec || format.sampleRate < 1 || format.sampleRate > MaxSampleRate || format.channels < 1 || format.channels > 8)
        return Status::Unsupported;
    Context context(avcodec_alloc_context3(codec));
    if (!context || !setConfig(context.get(), format.config))
        return Status::NoMemory;
    context->sample_rate = format.sampleRate;
    context->thread_count = 1;
    av_channel_layout_default(&context->ch_layout, format.channels);
    if (avcodec_open2(context.get(), codec, nullptr) < 0)
        return Status::Unsupported;
    d->context = std::move(context);
    return Status::Ok;
}

void AudioDecoder::flush()
{
    if (d->context)
        avcodec_flush_buffers(d->context.get());
}

AudioDecoder::Status AudioDecoder::decode(std::span<const std::uint8_t> unit, Image *image)
{
    *image = Image();
    if (!d->context)
        return Status::Unsupported;
    if (unit.empty() || unit.size() > MaxUnitBytes)
        return Status::Corrupt;
    av_packet_unref(d->packet.get());
    if (av_new_packet(d->packet.get(), int(unit.size())) < 0)
        return Status::NoMemory;
    std::copy(unit.begin(), unit.end(), d->packet->data);
    if (avcodec_send_packet(d->context.get(), d->packet.get()) < 0)
        return Status::Corrupt;
    QByteArray samples;
    int result = 0;
    while ((result = avcodec_receive_frame(d->context.get(), d->frame.get())) == 0) {
        if (!d->append(&samples))
            return Status::Corrupt;
    }
    if (result != AVERROR(EAGAIN))
        return Status::Corrupt;
    if (!samples.isEmpty())
        *image = Image::fromAudio(ImageKind::AudioPcm16, samples, d->rate, d->channels);
    return Status::Ok;
}

bool AudioDecoder::Private::append(QByteArray *samples)
{
    const int frameChannels = frame->ch_layout.nb_channels;
    rate = frame->sample_rate > 0 ? frame->sample_rate : context->sample_rate;
    channels = std::min(2, frameChannels);
    if (rate < 1 || rate > MaxSampleRate || frameChannels < 1 || frameChannels > 8)
        return false;
    const AudioResampler::Format from{rate, frameChannels, frame->format};
    const AudioResampler::Format to{rate, channels, AV_SAMPLE_FMT_S16};
    return resampler.setFormats(from, to) && resampler.convert(frame->extended_data, frame->nb_samples, samples);
}

} // namespace orrin
