// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/picture.h"
#include "site/site.h"

#include <memory>

struct AVCodecContext;
struct AVFrame;
struct AVPacket;

namespace orrin::demo {

struct PacketDeleter
{
    void operator()(AVPacket *packet) const;
};
using PacketPointer = std::unique_ptr<AVPacket, PacketDeleter>;

/*!
    Encodes pictures with libavcodec: H.264 and H.265 as byte streams with the parameter sets at each key
   frame and no reordering, or JPEG. Each picture gives its packet at once. One encoder belongs to one thread
   at a time.
*/
class Encoder
{
public:
    /*! What the pictures are for: Live adapts to what was before; Recorded gives the same packets for the
     * same group of pictures, whatever was encoded before it. */
    enum class Use { Live, Recorded };

    /*! \a keyInterval is the number of frames from one key frame to the next. */
    Encoder(VideoCodec codec, const Profile &profile, int keyInterval, Use use = Use::Live);
    ~Encoder();
    Encoder(const Encoder &) = delete;
    Encoder &operator=(const Encoder &) = delete;

    /*! False when the codec is not there or refuses the profile; encode() then gives nothing. */
    bool isValid() const { return m_valid; }

    /*! The range of luma that the codec expects. */
    static Picture::Range range(VideoCodec codec);

    /*! The packet of \a picture, a key frame when \a key is set or due; null when encoding fails. */
    PacketPointer encode(const Picture &picture, bool key);

private:
    AVCodecContext *m_context = nullptr;
    AVFrame *m_frame = nullptr;
    bool m_valid = false;
};

} // namespace orrin::demo
