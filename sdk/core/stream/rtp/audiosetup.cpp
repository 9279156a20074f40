// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/audiosetup.h"

#include "core/stream/rtp/aacdepacketiser.h"
#include "core/stream/rtp/g711depacketiser.h"

namespace orrin::rtp {

namespace {

// An AudioSpecificConfig has a few bytes; those with a program configuration some dozens.
constexpr qsizetype MaxConfigBytes = 256;

} // namespace

AudioFormat audioFormatOf(const rtsp::MediaDescription &medium)
{
    AudioFormat format;
    if (medium.kind != rtsp::MediaDescription::Kind::Audio || medium.payloadType < 0)
        return format;
    format.sampleRate = medium.clockRate;
    format.channels = medium.channels;
    if (medium.encoding == "PCMU") {
        format.codec = AudioCodec::MuLaw;
    } else if (medium.encoding == "PCMA") {
        format.codec = AudioCodec::ALaw;
    } else if (medium.encoding == "MPEG4-GENERIC") {
        const rtsp::ParameterList parameters(medium.fmtp, ';');
        format.config = QByteArray::fromHex(parameters.value("config"));
        const bool playable = !format.config.isEmpty() && format.config.size() <= MaxConfigBytes &&
                              AacDepacketiser::layoutOf(parameters).has_value();
        format.codec = playable ? AudioCodec::Aac : AudioCodec::Unknown;
    }
    if (format.sampleRate < 1)
        format.codec = AudioCodec::Unknown;
    return format;
}

std::unique_ptr<AudioDepacketiser> createAudioDepacketiser(const rtsp::MediaDescription &medium, AccessUnitSink &sink)
{
    const auto payloadType = std::uint8_t(medium.payloadType);
    switch (audioFormatOf(medium).codec) {
    case AudioCodec::MuLaw:
    case AudioCodec::ALaw:
        return std::make_unique<G711Depacketiser>(sink, payloadType);
    case AudioCodec::Aac:
        if (const auto layout = AacDepacketiser::layoutOf(rtsp::ParameterList(medium.fmtp, ';')))
            return std::make_unique<AacDepacketiser>(sink, payloadType, *layout);
        break;
    case AudioCodec::Unknown:
        break;
    }
    return nullptr;
}

} // namespace orrin::rtp
