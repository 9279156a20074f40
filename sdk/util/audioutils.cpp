// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/audioutils.h>

#include <array>
#include <cstring>

namespace orrin {

namespace {

constexpr std::uint8_t KindMask = 0x0F;

constexpr std::int16_t fromULaw(std::uint8_t code)
{
    constexpr int Bias = 0x84;
    const int inverted = ~code & 0xFF;
    const int exponent = (inverted >> 4) & 7;
    const int mantissa = inverted & 15;
    const int magnitude = (((mantissa << 3) + Bias) << exponent) - Bias;
    return std::int16_t((inverted & 0x80) ? -magnitude : magnitude);
}

constexpr std::int16_t fromALaw(std::uint8_t code)
{
    const int toggled = code ^ 0x55;
    const int exponent = (toggled >> 4) & 7;
    const int mantissa = toggled & 15;
    const int magnitude = exponent == 0 ? (mantissa << 4) + 8 : ((mantissa << 4) + 0x108) << (exponent - 1);
    return std::int16_t((toggled & 0x80) ? magnitude : -magnitude);
}

template <typename Function>
constexpr std::array<std::int16_t, 256> table(Function function)
{
    std::array<std::int16_t, 256> values{};
    for (int i = 0; i < 256; ++i)
        values[std::size_t(i)] = function(std::uint8_t(i));
    return values;
}

constexpr auto ULawTable = table(fromULaw);
constexpr auto ALawTable = table(fromALaw);

QByteArray expand(const QByteArray &coded, const std::array<std::int16_t, 256> &values)
{
    QByteArray samples(coded.size() * qsizetype(sizeof(std::int16_t)), Qt::Uninitialized);
    char *out = samples.data();
    for (const char code : coded) {
        const std::int16_t sample = values[std::uint8_t(code)];
        std::memcpy(out, &sample, sizeof sample);
        out += sizeof sample;
    }
    return samples;
}

} // namespace

Image AudioUtils::decode(const Image &image)
{
    if (image.isNull())
        return {};
    const auto kind = ImageKind(image.flags() & KindMask);
    if (kind == ImageKind::AudioPcm16 || kind == ImageKind::AudioFloat)
        return image;
    if (kind != ImageKind::AudioULaw && kind != ImageKind::AudioALaw)
        return {};
    const auto &values = kind == ImageKind::AudioULaw ? ULawTable : ALawTable;
    Image decoded = Image::fromAudio(ImageKind::AudioPcm16, expand(image.audioPayload(), values), image.sampleRate(),
                                     image.channels());
    decoded.setTime(image.time());
    decoded.setTimeZone(image.frameQTimeZone());
    return decoded;
}

} // namespace orrin
