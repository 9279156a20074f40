// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/settingshints.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orrin::settingshints {

namespace {

constexpr double SmallestScaleUnit = 10.0;

int truncated(double value)
{
    if (std::isnan(value))
        return 0;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, lowest, highest));
}

} // namespace

int scaleUnit(double dotsPerInch)
{
    // The constant stands first: std::max then answers with it for a density that is no number.
    return truncated(std::max(SmallestScaleUnit, dotsPerInch * 0.35));
}

double fontPixelSize(double percentage, int scaleUnit)
{
    return 0.9 * percentage / 100.0 * scaleUnit / 2.0;
}

int controlHeight(int percentage, int scaleUnit)
{
    return truncated(percentage / 100.0 * scaleUnit);
}

int controlMargins(int percentage, int scaleUnit)
{
    return truncated(percentage / 100.0 * scaleUnit / 6.0);
}

int controlRadius(int percentage, int scaleUnit)
{
    return truncated(percentage / 100.0 * scaleUnit / 6.0);
}

int borderWidth(int percentage, int scaleUnit)
{
    return truncated(percentage / 100.0 * scaleUnit / 15.0);
}

int borderActiveWidth(int percentage, int scaleUnit)
{
    return truncated(percentage / 100.0 * scaleUnit / 7.0);
}

} // namespace orrin::settingshints
