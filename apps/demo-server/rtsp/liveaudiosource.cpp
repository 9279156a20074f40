// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/liveaudiosource.h"

#include "camera/audioencoder.h"

#include <gst/app/gstappsrc.h>

namespace orrin::demo {

namespace {
constexpr guint64 MaximumWaitingBuffers = 16;
}

LiveAudioSource::LiveAudioSource(const Camera &camera, DeviceClock clock,
                                 std::shared_ptr<const std::atomic<bool>> stalled, GstAppSrc *source)
    : m_camera(camera)
    , m_clock(clock)
    , m_stalled(std::move(stalled))
    , m_source(GST_APP_SRC(gst_object_ref(source)))
    , m_thread([this] { run(); })
{
}

LiveAudioSource::~LiveAudioSource()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    m_thread.join();
    gst_object_unref(m_source);
}

void LiveAudioSource::play()
{
    {
        const std::lock_guard lock(m_mutex);
        m_playing = true;
    }
    m_wake.notify_all();
}

bool LiveAudioSource::waitUntil(std::int64_t timeNs)
{
    using namespace std::chrono;
    const system_clock::time_point due{
        duration_cast<system_clock::duration>(nanoseconds(timeNs) - m_clock.offset())};
    std::unique_lock lock(m_mutex);
    m_wake.wait_until(lock, due, [this] { return m_stopping; });
    return !m_stopping;
}

void LiveAudioSource::run()
{
    AudioEncoder encoder(m_camera.audio, m_camera.number);
    if (!encoder.isValid()) {
        qWarning("camera %d: no encoder for its sound", m_camera.number);
        gst_app_src_end_of_stream(m_source);
        return;
    }
    std::int64_t number = AudioEncoder::packetAt(m_camera.audio, m_clock.nowMs());
    push(number, encoder);
    {
        std::unique_lock lock(m_mutex);
        m_wake.wait(lock, [this] { return m_playing || m_stopping; });
        if (m_stopping)
            return;
    }
    const std::int64_t second = AudioEncoder::packetAt(m_camera.audio, 1000);
    for (;;) {
        // After a delay, or when the system's clock was set, go on with what is heard now.
        const std::int64_t current = AudioEncoder::packetAt(m_camera.audio, m_clock.nowMs());
        ++number;
        if (number < current - second || number > current + second)
            number = current;
        if (!waitUntil(AudioEncoder::timeNsOf(m_camera.audio, number + 1)))
            return;
        if (!*m_stalled && gst_app_src_get_current_level_buffers(m_source) <= MaximumWaitingBuffers)
            push(number, encoder);
    }
}

void LiveAudioSource::push(std::int64_t number, AudioEncoder &encoder)
{
    const auto data = encoder.packet(number);
    if (!data)
        return;
    using namespace std::chrono;
    const std::int64_t offsetNs = duration_cast<nanoseconds>(m_clock.offset()).count();
    const std::int64_t timeNs = AudioEncoder::timeNsOf(m_camera.audio, number);
    GstBuffer *buffer = gst_buffer_new_memdup(data->constData(), gsize(data->size()));
    GST_BUFFER_PTS(buffer) = GST_BUFFER_DTS(buffer) = GstClockTime(timeNs - offsetNs);
    GST_BUFFER_DURATION(buffer) = GstClockTime(AudioEncoder::timeNsOf(m_camera.audio, number + 1) - timeNs);
    gst_app_src_push_buffer(m_source, buffer);
}

} // namespace orrin::demo
