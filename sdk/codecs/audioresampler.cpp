// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/audioresampler.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libswresample/swresample.h>
}

namespace orrin {

namespace {

struct SwrFreer
{
    void operator()(SwrContext *context) const { swr_free(&context); }
};

} // namespace

struct AudioResampler::Private
{
    Format from;
    Format to;
    std::unique_ptr<SwrContext, SwrFreer> context;
};

AudioResampler::AudioResampler() : d(std::make_unique<Private>()) {}
AudioResampler::~AudioResampler() = default;

AudioResampler::Format AudioResampler::pcm16(int sampleRate, int channels)
{
    return {sampleRate, channels, AV_SAMPLE_FMT_S16};
}

bool AudioResampler::setFormats(const Format &from, const Format &to)
{
    if (d->context && d->from == from && d->to == to)
        return true;
    d->context.reset();
    d->from = from;
    d->to = to;
    AVChannelLayout fromLayout;
    AVChannelLayout toLayout;
    av_channel_layout_default(&fromLayout, from.channels);
    av_channel_layout_default(&toLayout, to.channels);
    SwrContext *context = nullptr;
    const int result = swr_alloc_set_opts2(&context, &toLayout, AVSampleFormat(to.sampleFormat), to.sampleRate, &fromLayout,
                                           AVSampleFormat(from.sampleFormat), from.sampleRate, 0, nullptr);
    std::unique_ptr<SwrContext, SwrFreer> made(context);
    if (result < 0)
        return false;
    // As loud on two channels as on one.
    constexpr double Same[2] = {1.0, 1.0};
    if (from.channels == 1 && to.channels == 2 && swr_set_matrix(made.get(), Same, 1) < 0)
        return false;
    if (swr_init(made.get()) < 0)
        return false;
    d->context = std::move(made);
    return true;
}

bool AudioResampler::convert(const std::uint8_t *const *planes, int count, QByteArray *out)
{
    if (!d->context || count < 0)
        return false;
    const int room = swr_get_out_samples(d->context.get(), count);
    if (room < 0)
        return false;
    const qsizetype frameBytes = qsizetype(d->to.channels) * av_get_bytes_per_sample(AVSampleFormat(d->to.sampleFormat));
    const qsizetype before = out->size();
    out->resize(before + room * frameBytes);
    auto *target = reinterpret_cast<std::uint8_t *>(out->data() + before);
    const int made = swr_convert(d->context.get(), &target, room, const_cast<const std::uint8_t **>(planes), count);
    out->resize(before + qMax(0, made) * frameBytes);
    return made >= 0;
}

QByteArray AudioResampler::convert(const QByteArray &interleaved)
{
    QByteArray out;
    const int frameBytes = d->from.channels * av_get_bytes_per_sample(AVSampleFormat(d->from.sampleFormat));
    const auto *bytes = reinterpret_cast<const std::uint8_t *>(interleaved.constData());
    if (frameBytes < 1 || !convert(&bytes, int(interleaved.size()) / frameBytes, &out))
        return {};
    return out;
}

} // namespace orrin
