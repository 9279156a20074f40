// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace orrin::demo {

/*! How far the picture of a replay media has come, for its sound to keep beside it. Thread-safe. */
class ReplayPosition
{
public:
    void set(std::int64_t timeMs)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_timeMs = timeMs;
        }
        m_changed.notify_all();
    }

    /*! Waits until the picture has come to \a timeMs, but not longer than \a patience. */
    void waitFor(std::int64_t timeMs, std::chrono::milliseconds patience)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, patience, [&] { return m_timeMs >= timeMs; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::int64_t m_timeMs = 0;
};

} // namespace orrin::demo
