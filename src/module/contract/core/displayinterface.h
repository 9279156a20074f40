// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace orrin {

class PlaybackError;
class VideoFrame;

/*! The side of a display that the core drives, on whichever thread it likes. */
class DisplayInterface
{
public:
    virtual ~DisplayInterface() = default;

    virtual void setVideoFrame(const VideoFrame &frame) = 0;
    virtual void setDelay(long long delayMs) = 0;
    virtual void setError(const PlaybackError &error, int mark) = 0;
    virtual QObject *qObject() = 0;
};

} // namespace orrin
