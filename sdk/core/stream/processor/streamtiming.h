// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace orrin {

/*! The waits of a stream, shorter in tests. */
struct StreamTiming
{
    using Milliseconds = std::chrono::milliseconds;

    Milliseconds backOffBase{1000};
    Milliseconds requestTimeout{5000};
    Milliseconds silenceTimeout{10000};
    /*! A stretch of a recording that was asked for and goes silent for that long is over. */
    Milliseconds rangeSilence{1500};
    /*! A scrub that no other one follows for that long is over, and play goes on. */
    Milliseconds scrubEnd{500};
    /*! Between two questions whether a recording has grown, the first time; twice as much each time up to five times. */
    Milliseconds growthPoll{1000};
};

} // namespace orrin
