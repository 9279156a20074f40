// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/videodecoder.h"
#include "core/stream/replay/gopbuffer.h"

#include <contract/util/image.h>

#include <QDeadlineTimer>

#include <map>
#include <utility>

namespace orrin::replay {

/*! Decodes frames of groups of pictures in any order, and keeps the pictures around the frame that is shown. One thread.

    A frame inside a group costs the decoding of those before it, once: what was decoded on the way stays, as far as the budget goes. Beyond it the
    pictures that will be wanted last go first: those behind the playhead, then those farthest ahead. */
class ORRINSDK_CORE_EXPORT GopDecoder
{
public:
    enum class Progress {
        Ready,   //!< cached() has the picture
        Working, //!< the deadline came first
        Starved, //!< the group is not complete, and what is there does not give the picture
        Failed,  //!< the frame cannot be decoded
    };

    static constexpr std::size_t DefaultBudget = 64U << 20;

    GopDecoder();
    ~GopDecoder();

    VideoDecoder::Status open(VideoCodec codec);
    QByteArray codecName() const { return videoCodecName(m_decoder.codec()); }
    /*! Forgets all pictures. */
    void clear();

    void setBudget(std::size_t bytes) { m_budget = bytes; }
    /*! Which pictures are kept when there are too many; \a direction is -1, 0 or 1. */
    void setPlayhead(Time300 time, int direction);

    /*! Null when it is not there, or failed. */
    const Image *cached(const FrameRef &frame) const;
    /*! Decodes towards \a frame until \a deadline, at least one step. */
    Progress advance(const FrameRef &frame, const QDeadlineTimer &deadline);

    std::size_t cachedBytes() const { return m_bytes; }
    std::size_t cachedPictures() const { return m_pictures.size(); }
    quint64 decodedFrames() const { return m_decoded; }
    /*! Of what failed last. */
    VideoDecoder::Status lastError() const { return m_lastError; }

private:
    using Key = std::pair<quint64, int>; // group and index
    struct Picture
    {
        Image image; // null when the frame cannot be decoded
        Time300 time = 0;
        std::size_t bytes = 0;
    };

    void begin(const Gop &gop);
    void feed(const Gop &gop);
    void receive(const Gop &gop);
    void drain(const Gop &gop);
    void keep(const Gop &gop, int index, Image image);
    void shrink(const Key &wanted);

    VideoDecoder m_decoder;
    std::map<Key, Picture> m_pictures;
    std::size_t m_bytes = 0;
    std::size_t m_budget = DefaultBudget;
    Time300 m_playhead = 0;
    int m_direction = 0;
    quint64 m_gop = 0;
    std::size_t m_fed = 0;
    std::size_t m_out = 0;
    bool m_drained = false;
    bool m_broken = false; // a frame of the group failed
    quint64 m_decoded = 0;
    Key m_wanted{0, 0};
    VideoDecoder::Status m_lastError = VideoDecoder::Status::Ok;
};

} // namespace orrin::replay
