// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>

namespace orrin::demo {

/*! How the replay of one recorder misbehaves. Shared by all its media; thread-safe. */
struct ReplayControl
{
    std::atomic<int> lateMs = 0;           //!< each PLAY is answered so much later
    std::atomic<bool> silent = false;      //!< after the first frames of a PLAY nothing comes
    std::atomic<bool> wrongRange = false;  //!< each PLAY gives the pictures of the hour before

    static constexpr std::int64_t WrongByMs = 3'600'000;
    static constexpr int FramesBeforeSilence = 4;
};

} // namespace orrin::demo
