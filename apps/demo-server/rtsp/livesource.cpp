// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtsp/livesource.h"

#include "camera/camerapainter.h"
#include "camera/encoder.h"
#include "camera/framegrid.h"

extern "C" {
#include <libavcodec/packet.h>
}

#include <gst/app/gstappsrc.h>

namespace orrin::demo {

namespace {
// More than this waiting in the media means that it does not keep up.
constexpr guint64 MaximumWaitingBuffers = 8;
} // namespace

/*! What the thread works with; made in the thread that uses it. */
struct Worker
{
    CameraPainter painter;
    Encoder encoder;
};

LiveSource::LiveSource(const Camera &camera, const Profile &profile, const QByteArray &timeZone,
                       DeviceClock clock, std::shared_ptr<const std::atomic<bool>> stalled, GstAppSrc *source)
    : m_camera(camera)
    , m_profile(profile)
    , m_timeZone(timeZone)
    , m_clock(clock)
    , m_stalled(std::move(stalled))
    , m_source(GST_APP_SRC(gst_object_ref(source)))
    , m_thread([this] { run(); })
{
}

LiveSource::~LiveSource()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    m_thread.join();
    gst_object_unref(m_source);
}

void LiveSource::play()
{
    m_keyWanted = true;
    {
        const std::lock_guard lock(m_mutex);
        m_playing = true;
    }
    m_wake.notify_all();
}

bool LiveSource::waitUntil(std::int64_t timeMs)
{
    const std::chrono::system_clock::time_point due{std::chrono::milliseconds(timeMs) - m_clock.offset()};
    std::unique_lock lock(m_mutex);
    m_wake.wait_until(lock, due, [this] { return m_stopping; });
    return !m_stopping;
}

void LiveSource::run()
{
    Worker worker{CameraPainter(m_camera, m_timeZone, m_profile.size, Encoder::range(m_camera.codec)),
                  Encoder(m_camera.codec, m_profile, m_profile.rate)};
    if (!worker.encoder.isValid()) {
        qWarning("camera %d: no encoder for profile %s", m_camera.number, qUtf8Printable(m_profile.name));
        gst_app_src_end_of_stream(m_source);
        return;
    }
    std::int64_t number = framegrid::frameAt(m_clock.nowMs(), m_profile.rate);
    push(framegrid::timeOf(number, m_profile.rate), worker, true);
    {
        std::unique_lock lock(m_mutex);
        m_wake.wait(lock, [this] { return m_playing || m_stopping; });
        if (m_stopping)
            return;
    }
    for (;;) {
        // After a delay, or when the system's clock was set, go on with the frame that is due now.
        const std::int64_t current = framegrid::frameAt(m_clock.nowMs(), m_profile.rate);
        ++number;
        if (number < current || number > current + m_profile.rate)
            number = current;
        const std::int64_t timeMs = framegrid::timeOf(number, m_profile.rate);
        if (!waitUntil(timeMs))
            return;
        if (*m_stalled || gst_app_src_get_current_level_buffers(m_source) > MaximumWaitingBuffers)
            continue;
        push(timeMs, worker, m_keyWanted.exchange(false));
    }
}

void LiveSource::push(std::int64_t timeMs, Worker &worker, bool key)
{
    PacketPointer packet = worker.encoder.encode(worker.painter.paint(timeMs, m_camera.viewAt(timeMs)), key);
    if (!packet)
        return;
    AVPacket *data = packet.release();
    GstBuffer *buffer = gst_buffer_new_wrapped_full(
        GST_MEMORY_FLAG_READONLY, data->data, gsize(data->size), 0, gsize(data->size), data,
        [](gpointer held) { PacketDeleter()(static_cast<AVPacket *>(held)); });
    const auto systemMs = timeMs - std::chrono::milliseconds(m_clock.offset()).count();
    GST_BUFFER_PTS(buffer) = GST_BUFFER_DTS(buffer) = GstClockTime(systemMs) * GST_MSECOND;
    GST_BUFFER_DURATION(buffer) = GST_SECOND / guint64(m_profile.rate);
    if (!(data->flags & AV_PKT_FLAG_KEY))
        GST_BUFFER_FLAG_SET(buffer, GST_BUFFER_FLAG_DELTA_UNIT);
    gst_app_src_push_buffer(m_source, buffer);
}

} // namespace orrin::demo
