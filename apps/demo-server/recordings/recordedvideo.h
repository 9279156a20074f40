// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recordings/gopcache.h"
#include "site/site.h"

#include <memory>

namespace orrin::demo {

class CameraPainter;

/*!
    The recorded picture of one camera profile: any frame of any time, drawn and encoded when it is asked for.
   Group g holds the frames of the two seconds from 2 g on; its first frame is a key frame and nothing in it
   depends on another group. What is encoded goes through the cache; frames that follow each other within a
   group cost one encoding each. One thread at a time; several objects share the cache.
*/
class RecordedVideo
{
public:
    RecordedVideo(const Camera &camera, const Profile &profile, const QByteArray &timeZone,
                  std::shared_ptr<GopCache> cache);
    ~RecordedVideo();
    RecordedVideo(const RecordedVideo &) = delete;
    RecordedVideo &operator=(const RecordedVideo &) = delete;

    /*! Frames of a group. */
    int gopFrames() const { return 2 * m_profile.rate; }
    static std::int64_t gopAt(std::int64_t timeMs) { return timeMs / 2000; }

    /*! When frame \a index of group \a gop was captured. */
    std::int64_t timeOf(std::int64_t gop, int index) const;

    /*! The encoded frame; null when it cannot be encoded. */
    GopCache::PacketRef frame(std::int64_t gop, int index);

private:
    bool encodeNext();

    const Camera m_camera;
    const Profile m_profile;
    const QByteArray m_timeZone;
    const std::shared_ptr<GopCache> m_cache;
    const int m_stream;
    std::unique_ptr<CameraPainter> m_painter;
    std::unique_ptr<Encoder> m_encoder;
    std::int64_t m_gop = -1; // what the encoder is in the middle of
    GopCache::Gop m_frames;
};

} // namespace orrin::demo
