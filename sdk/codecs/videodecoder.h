// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/codecs/export.h>
#include <contract/util/image.h>

#include <cstdint>
#include <memory>
#include <span>

namespace orrin {

enum class VideoCodec { Unknown, H264, H265, Mjpeg };

/*! The name of \a codec, as images carry it: "H264", "H265", "MJPEG"; empty for Unknown. */
ORRINSDK_CODECS_EXPORT QByteArray videoCodecName(VideoCodec codec);

struct VideoDecoderOptions
{
    /*! Decode on a hardware device if the machine has one that takes the codec; in software otherwise. */
    bool hardware = false;
};

/*! Decodes the access units of one stream to I420 pictures, limited range, in the layout of Image.

    Used on one thread at a time; decodes on the calling thread, without delay where the stream has no reordered pictures. Pictures
    share the decoder's memory where its lines fit the layout, and are copied to reused memory elsewhere; they stay valid after the
    decoder's end. Each open() and each packet may fail with a value; a decoder that failed in decoding takes further packets. */
class ORRINSDK_CODECS_EXPORT VideoDecoder
{
public:
    enum class Status {
        Ok,
        NeedsMore,   //!< receive(): no picture is ready
        Corrupt,     //!< the data cannot be decoded; the next key frame may do
        TooLarge,    //!< a side above 16384 pixels
        Unsupported, //!< no such codec, or a sample format that is not played
        NoMemory,
    };

    VideoDecoder();
    ~VideoDecoder();
    VideoDecoder(const VideoDecoder &) = delete;
    VideoDecoder &operator=(const VideoDecoder &) = delete;

    /*! Begins anew with \a codec. */
    Status open(VideoCodec codec, VideoDecoderOptions options = {});
    bool isOpen() const;
    VideoCodec codec() const;
    /*! True when pictures come from a hardware device. */
    bool isHardware() const;

    /*! Takes one whole access unit (Annex B for H.264 and H.265, one file for MJPEG). The number \a tag comes back with its
        picture. Fetch pictures with receive() until it returns another status than Ok, before the next send(). */
    Status send(std::span<const std::uint8_t> accessUnit, std::int64_t tag);

    /*! The next picture in order of presentation; its size, its planes and its FrameFacts are set. \a tag may be null. */
    Status receive(Image *image, std::int64_t *tag);

    /*! Says that no packet follows, so that receive() gives the pictures that wait for a later one; then flush() before the next send(). */
    Status drain();

    /*! Forgets all pictures; the next packet is to be a key frame. */
    void flush();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace orrin
