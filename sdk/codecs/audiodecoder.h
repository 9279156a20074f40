// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/codecs/export.h>
#include <contract/util/image.h>

#include <cstdint>
#include <memory>
#include <span>

namespace orrin {

enum class AudioCodec { Unknown, MuLaw, ALaw, Aac };

/*! How sound is coded. A value. */
struct AudioFormat
{
    AudioCodec codec = AudioCodec::Unknown;
    int sampleRate = 0;
    int channels = 1;
    QByteArray config; //!< AAC: the AudioSpecificConfig
};

/*! Decodes the units of one stream of sound to 16-bit samples of one channel or two, at the rate of the stream.

    Used on one thread at a time. A unit that cannot be decoded fails with a value; the decoder takes further ones. */
class ORRINSDK_CODECS_EXPORT AudioDecoder
{
public:
    enum class Status {
        Ok,
        Corrupt,     //!< the unit cannot be decoded
        Unsupported, //!< no such codec, or not open
        NoMemory,
    };
    static constexpr int MaxSampleRate = 192000;

    AudioDecoder();
    ~AudioDecoder();
    AudioDecoder(const AudioDecoder &) = delete;
    AudioDecoder &operator=(const AudioDecoder &) = delete;

    /*! Begins anew with \a format. */
    Status open(const AudioFormat &format);
    bool isOpen() const;

    /*! Decodes one unit; \a image becomes its sound (ImageKind::AudioPcm16), or null when the unit gives none yet. */
    Status decode(std::span<const std::uint8_t> unit, Image *image);

    /*! Forgets what earlier units left behind, as before a seek. */
    void flush();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace orrin
