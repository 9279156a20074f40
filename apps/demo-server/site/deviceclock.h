// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>

namespace orrin::demo {

/*! The device's idea of the time: the system's clock, moved by a fixed offset. A plain value, safe in any
 * thread. */
class DeviceClock
{
public:
    explicit DeviceClock(std::chrono::seconds offset = {}) : m_offset(offset) {}

    /*! Unix time in milliseconds, as the device believes it to be. */
    std::int64_t nowMs() const
    {
        using namespace std::chrono;
        return duration_cast<milliseconds>(system_clock::now().time_since_epoch() + m_offset).count();
    }

    std::chrono::seconds offset() const { return m_offset; }

private:
    std::chrono::seconds m_offset;
};

} // namespace orrin::demo
