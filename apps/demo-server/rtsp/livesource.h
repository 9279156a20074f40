// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/view.h"
#include "site/deviceclock.h"
#include "site/site.h"

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

typedef struct _GstAppSrc GstAppSrc;

namespace orrin::demo {

/*!
    Feeds one active live media: draws the frames of a camera as their time comes, encodes them and pushes
   them into the media's source element. It has a thread of its own, from construction to destruction; all its
   clients share it.

    A buffer's presentation time is the frame's capture time itself (Unix time in ns, by the system's clock),
   because the media's pipeline runs on the real-time clock with a base time of 0. The first frame is pushed
   at once, so that the media can be described; the others follow once a client plays. A frame is left out
   before the encoder, never after it, when the media does not keep up.
*/
class LiveSource
{
public:
    /*! \a stalled holds frames back while it is true. */
    LiveSource(const Camera &camera, const Profile &profile, const QByteArray &timeZone, DeviceClock clock,
               std::shared_ptr<const std::atomic<bool>> stalled, GstAppSrc *source);
    ~LiveSource();
    LiveSource(const LiveSource &) = delete;
    LiveSource &operator=(const LiveSource &) = delete;

    /*! A client starts to play: frames flow, beginning with a key frame. Thread-safe. */
    void play();

private:
    void run();
    bool waitUntil(std::int64_t timeMs);
    void push(std::int64_t timeMs, struct Worker &worker, bool key);

    const Camera m_camera;
    const Profile m_profile;
    const QByteArray m_timeZone;
    const DeviceClock m_clock;
    const std::shared_ptr<const std::atomic<bool>> m_stalled;
    GstAppSrc *const m_source;

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_playing = false;
    bool m_stopping = false;
    std::atomic<bool> m_keyWanted = false;
    std::thread m_thread;
};

} // namespace orrin::demo
