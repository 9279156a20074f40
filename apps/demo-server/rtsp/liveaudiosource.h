// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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
    Feeds the sound of one active live media, beside its LiveSource and by the same clock: each packet is
   pushed when its last sample was heard, with the time of its first one. It has a thread of its own, from
   construction to destruction. The first packet is pushed at once, so that the media can be described; the
   others follow once a client plays. A packet is left out when the media does not take it.
*/
class LiveAudioSource
{
public:
    /*! \a stalled holds packets back while it is true. */
    LiveAudioSource(const Camera &camera, DeviceClock clock,
                    std::shared_ptr<const std::atomic<bool>> stalled, GstAppSrc *source);
    ~LiveAudioSource();
    LiveAudioSource(const LiveAudioSource &) = delete;
    LiveAudioSource &operator=(const LiveAudioSource &) = delete;

    /*! A client starts to play. Thread-safe. */
    void play();

private:
    void run();
    bool waitUntil(std::int64_t timeNs);
    void push(std::int64_t number, class AudioEncoder &encoder);

    const Camera m_camera;
    const DeviceClock m_clock;
    const std::shared_ptr<const std::atomic<bool>> m_stalled;
    GstAppSrc *const m_source;

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_playing = false;
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace orrin::demo
