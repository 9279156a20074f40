// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/audiosignal.h"

#include <cmath>
#include <numbers>

namespace orrin::demo::audiosignal {

namespace {
constexpr double BeepAmplitude = 12000;
constexpr double HumAmplitude = 60;
constexpr double HumFrequency = 100;
} // namespace

void fill(std::span<std::int16_t> samples, std::int64_t first, int rate, int camera)
{
    const double basePitch = 600 + 100 * (camera % 8);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::int64_t number = first + std::int64_t(i);
        const std::int64_t second = number / rate;
        const std::int64_t inSecond = number % rate;
        const double angle = 2 * std::numbers::pi * double(inSecond) / rate;
        const double pitch = second % 10 == 0 ? 2 * basePitch : basePitch;
        // A cosine: the first sample of the second is the loudest.
        const bool beeps = inSecond * 1000 < std::int64_t(BeepMs) * rate;
        const double value = (beeps ? BeepAmplitude * std::cos(angle * pitch) : 0) +
                             HumAmplitude * std::sin(angle * HumFrequency);
        samples[i] = std::int16_t(std::lround(value));
    }
}

} // namespace orrin::demo::audiosignal
