// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/codecs/export.h>

#include <QByteArray>

#include <cstdint>
#include <memory>

namespace orrin {

/*! Converts samples to another rate, number of channels and format. One thread at a time. */
class ORRINSDK_CODECS_EXPORT AudioResampler
{
public:
    struct Format
    {
        int sampleRate = 0;
        int channels = 0;
        int sampleFormat = 0; //!< as libavutil numbers it

        friend bool operator==(const Format &, const Format &) = default;
    };

    AudioResampler();
    ~AudioResampler();
    AudioResampler(const AudioResampler &) = delete;
    AudioResampler &operator=(const AudioResampler &) = delete;

    /*! Interleaved 16-bit samples. */
    static Format pcm16(int sampleRate, int channels);

    /*! False when there is no such conversion. The same formats again change nothing. */
    bool setFormats(const Format &from, const Format &to);

    /*! Appends what \a count samples a channel become, interleaved. The last few may wait for the next call. False on failure. */
    bool convert(const std::uint8_t *const *planes, int count, QByteArray *out);

    /*! The same for interleaved samples. */
    QByteArray convert(const QByteArray &interleaved);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace orrin
