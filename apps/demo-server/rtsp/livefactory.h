// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "site/deviceclock.h"
#include "site/site.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

typedef struct _GstRTSPMedia GstRTSPMedia;
typedef struct _GstRTSPMediaFactory GstRTSPMediaFactory;

namespace orrin::demo {

/*! Counts the sources that are alive. Thread-safe. */
class LiveSources
{
public:
    void add();
    void remove();

    /*! Waits until there is none. False when that takes longer than \a time. */
    bool waitForNone(std::chrono::milliseconds time);

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_count = 0;
};

/*! What a live media of one camera profile is made from; it has the camera's sound as well, if there is any. */
struct LiveSettings
{
    Camera camera;
    Profile profile;
    QByteArray timeZone;
    DeviceClock clock;
    std::shared_ptr<const std::atomic<bool>> stalled;
    std::shared_ptr<LiveSources> sources;
};

/*!
    A media factory for the live picture of one camera profile. Its media is shared by all clients, runs on
   the real-time clock with a base time of 0 and is fed by a LiveSource, which exists as long as the media is
   prepared. The caller owns the reference.
*/
GstRTSPMediaFactory *newLiveFactory(const LiveSettings &settings);

/*! A client starts to play \a media, which came from such a factory; others are left alone. */
void startLiveMedia(GstRTSPMedia *media);

} // namespace orrin::demo
