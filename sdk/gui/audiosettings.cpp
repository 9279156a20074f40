// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/gui/audiosettings.h>

#include <algorithm>
#include <atomic>
#include <cmath>

namespace orrin {

namespace {
std::atomic<double> currentVolume{1.0};
std::atomic<bool> currentlyMuted{false};
} // namespace

void AudioSettings::setVolume(double volume)
{
    currentVolume = std::isfinite(volume) ? std::clamp(volume, 0.0, 1.0) : 1.0;
}

double AudioSettings::volume()
{
    return currentVolume;
}

void AudioSettings::setMuted(bool muted)
{
    currentlyMuted = muted;
}

bool AudioSettings::isMuted()
{
    return currentlyMuted;
}

} // namespace orrin
