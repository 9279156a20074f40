// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>
#include <contract/util/time300.h>

#include <QByteArray>
#include <QDateTime>
#include <QSharedDataPointer>
#include <QTimeZone>

#include <cstdint>
#include <memory>
#include <string>

namespace orrin {

class ImageData;

/*! Header extensions that travel with an image. */
enum class ImageHeaderExtension : int {
    MotionRegions = 1,
    Codec = 2,           //!< the name of the stream's codec, e.g. "H264"
    CameraName = 3,
    PrivacyMask = 6,     //!< the encoded privacy mask, see Mask
};

/*! What an image's payload is: the low four bits of Image::flags(). */
enum class ImageKind : std::uint8_t {
    Video = 0,      //!< I420 planes
    AudioPcm16 = 1, //!< signed 16-bit samples, interleaved, host byte order
    AudioFloat = 2, //!< 32-bit float samples, interleaved
    AudioULaw = 3,  //!< G.711 mu-law, one byte a sample
    AudioALaw = 4,  //!< G.711 A-law, one byte a sample
};

/*! One decoded picture or piece of sound, with its time and its header extensions.

    A handle: copies share the payload and are cheap. Reading is safe from several threads at once; the setters detach the
    header (never the payload) and belong to whoever fills the image before it is handed on. */
class ORRINSDK_UTIL_EXPORT Image
{
public:
    /*! Three 8-bit planes, 4:2:0. Chroma planes are width / 2 by height / 2, cut to whole samples. A line of each plane is the
        plane's width rounded up to a multiple of 4 bytes. */
    struct Planes
    {
        const std::uint8_t *y = nullptr;
        const std::uint8_t *u = nullptr;
        const std::uint8_t *v = nullptr;
        int strideY = 0;
        int strideUV = 0;
    };

    Image();
    Image(const Image &other);
    Image &operator=(const Image &other);
    Image(Image &&other) noexcept;
    Image &operator=(Image &&other) noexcept;
    ~Image();

    /*! A video image over \a planes, which stay valid while \a owner lives. Sizes below 1 or null planes give a null image. */
    static Image fromPlanes(int width, int height, const Planes &planes, std::shared_ptr<void> owner);
    /*! A piece of sound of \a kind; \a payload as ImageKind says. */
    static Image fromAudio(ImageKind kind, const QByteArray &payload, int sampleRate, int channels);

    bool isNull() const;
    int width() const;
    int height() const;
    const Planes &planes() const;
    /*! Puts \a planes of the same size in the place of the image's own; time, flags and extensions stay. */
    void setPlanes(const Planes &planes, std::shared_ptr<void> owner);
    /*! The owner of the planes; null for sound and for a null image. */
    const std::shared_ptr<void> &owner() const;

    const QByteArray &audioPayload() const;
    int sampleRate() const;
    int channels() const;

    /*! The moment of capture. */
    Time300 time() const;
    void setTime(Time300 time);

    /*! The low four bits are the ImageKind; bit 4 marks a key frame. */
    std::uint8_t flags() const;
    void setFlags(std::uint8_t flags);

    /*! The extension, or an empty array. The reference holds until the image is changed or destroyed. */
    const QByteArray &extension(ImageHeaderExtension extension) const;
    void setExtension(ImageHeaderExtension extension, const QByteArray &value);

    /*! The moment of capture in the server's zone. */
    QDateTime qDateTimeServerTimeZone() const;
    /*! The server's zone; UTC while it is not known. */
    QTimeZone frameQTimeZone() const;
    void setTimeZone(const QTimeZone &zone);

    /*! The moment of capture in the server's zone, by a format of QDateTime::toString() in the C locale. */
    std::string dateTime(const char *format) const;

private:
    QSharedDataPointer<ImageData> d;
};

} // namespace orrin
