// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

namespace orrin {

class PlaybackError;
class VideoFrame;

/*! Where the frames of a stream go. Called on the thread of the stream. */
class ORRINSDK_CORE_EXPORT SPAbstractOutput
{
public:
    SPAbstractOutput() = default;
    virtual ~SPAbstractOutput();
    SPAbstractOutput(const SPAbstractOutput &) = delete;
    SPAbstractOutput &operator=(const SPAbstractOutput &) = delete;

    virtual void setVideoFrame(const VideoFrame &frame) = 0;
    /*! \a delayMs is how far the stream lags behind capture. */
    virtual void setDelay(long long delayMs) = 0;
    virtual void setError(const PlaybackError &error, int mark) = 0;
    /*! The stream waits for data, or no longer. */
    virtual void setBusy(bool busy) = 0;
    /*! Main thread: the stream is gone. Lets go of what draws the frames; calls that are still under way on the stream's thread
        do no harm and show nothing. Does nothing here. */
    virtual void close();
};

} // namespace orrin
