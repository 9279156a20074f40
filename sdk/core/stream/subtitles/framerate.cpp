// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/subtitles/framerate.h"

#include <algorithm>
#include <cstdlib>

namespace orrin {

namespace {

constexpr Time300 UnitsPerSecond = 300;
constexpr Time300 LongestStep = 10 * UnitsPerSecond;

} // namespace

void FrameRate::add(Time300 time)
{
    if (m_count > 0) {
        const Time300 newest = m_times[(m_next + m_times.size() - 1) % m_times.size()];
        const Time300 before = m_times[(m_next + m_times.size() - 2) % m_times.size()];
        const Time300 step = time - newest;
        const bool turned = m_count > 1 && (step < 0) != (newest - before < 0);
        if (step == 0 || std::abs(step) > LongestStep || turned)
            m_count = 0;
    }
    m_times[m_next] = time;
    m_next = (m_next + 1) % m_times.size();
    m_count = std::min(m_count + 1, m_times.size());
}

double FrameRate::perSecond() const
{
    if (m_count < 2)
        return 0;
    const Time300 newest = m_times[(m_next + m_times.size() - 1) % m_times.size()];
    const Time300 oldest = m_times[(m_next + m_times.size() - m_count) % m_times.size()];
    return double(m_count - 1) * double(UnitsPerSecond) / double(std::abs(newest - oldest));
}

} // namespace orrin
