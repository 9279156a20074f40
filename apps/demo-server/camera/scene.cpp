// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/scene.h"

#include <cmath>

namespace orrin::demo {

Scene::~Scene() = default;

double Scene::phase(std::int64_t timeMs, std::int64_t periodMs, double offset)
{
    const double value = double(timeMs % periodMs) / double(periodMs) + offset;
    return value - std::floor(value);
}

double Scene::swing(double phase)
{
    return phase < 0.5 ? phase * 2.0 : 2.0 - phase * 2.0;
}

} // namespace orrin::demo
