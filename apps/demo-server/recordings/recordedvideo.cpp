// SPDX-License-Identifier: GPL-3.0-or-later
#include "recordings/recordedvideo.h"

#include "camera/camerapainter.h"
#include "camera/framegrid.h"

extern "C" {
#include <libavcodec/packet.h>
}

namespace orrin::demo {

RecordedVideo::RecordedVideo(const Camera &camera, const Profile &profile, const QByteArray &timeZone,
                             std::shared_ptr<GopCache> cache)
    : m_camera(camera)
    , m_profile(profile)
    , m_timeZone(timeZone)
    , m_cache(std::move(cache))
    , m_stream(camera.number * 4 + (profile.name == QLatin1StringView("main") ? 0 : 1))
{
}

RecordedVideo::~RecordedVideo() = default;

std::int64_t RecordedVideo::timeOf(std::int64_t gop, int index) const
{
    return framegrid::timeOf(gop * gopFrames() + index, m_profile.rate);
}

GopCache::PacketRef RecordedVideo::frame(std::int64_t gop, int index)
{
    const auto position = std::size_t(index);
    if (m_gop != gop || m_frames.size() <= position) {
        const GopCache::Gop kept = m_cache->find({m_stream, gop});
        if (kept.size() > position)
            return kept[position];
    }
    if (m_gop != gop) {
        m_gop = gop;
        m_frames.clear();
        // An encoder of H.265 keeps something of its past even across key frames.
        if (m_camera.codec == VideoCodec::H265)
            m_encoder.reset();
    }
    while (m_frames.size() <= position) {
        if (!encodeNext()) {
            m_gop = -1;
            return {};
        }
    }
    m_cache->put({m_stream, gop}, m_frames);
    return m_frames[position];
}

bool RecordedVideo::encodeNext()
{
    if (!m_painter)
        m_painter = std::make_unique<CameraPainter>(m_camera, m_timeZone, m_profile.size,
                                                    Encoder::range(m_camera.codec));
    if (!m_encoder)
        m_encoder = std::make_unique<Encoder>(m_camera.codec, m_profile, gopFrames(), Encoder::Use::Recorded);
    const std::int64_t timeMs = timeOf(m_gop, int(m_frames.size()));
    PacketPointer packet = m_encoder->encode(m_painter->paint(timeMs, m_camera.viewAt(timeMs)), m_frames.empty());
    if (!packet)
        return false;
    m_frames.emplace_back(packet.release(), [](const AVPacket *data) {
        PacketDeleter()(const_cast<AVPacket *>(data));
    });
    return true;
}

} // namespace orrin::demo
