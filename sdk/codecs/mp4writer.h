// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/videodecoder.h"

#include <contract/codecs/export.h>

#include <QString>

#include <cstdint>
#include <memory>
#include <span>

namespace orrin {

/*! Puts coded pictures of one stream into an MP4 file as they are. Used on one thread at a time.

    Pictures come as the decoder takes them (Annex B for H.264 and H.265, JPEG files), the first one is a key frame with its parameter
    sets. Without finish() the file is of no use. */
class ORRINSDK_CODECS_EXPORT Mp4Writer
{
public:
    Mp4Writer();
    ~Mp4Writer();
    Mp4Writer(const Mp4Writer &) = delete;
    Mp4Writer &operator=(const Mp4Writer &) = delete;

    /*! Makes the file, or empties it. \a createdMs, since 1970 UTC, is noted as the time of creation. False when the file cannot be made, or no file can hold
        the codec; see errorText(). */
    bool open(const QString &fileName, VideoCodec codec, int width, int height, qint64 createdMs);
    bool isOpen() const;
    /*! \a timeMs counts from the beginning of the clip, ascending; one that does not ascend is moved behind the one before. */
    bool write(std::span<const std::uint8_t> picture, qint64 timeMs, bool key);
    /*! Writes the index; the file is whole when true. */
    bool finish();
    /*! The file stays as it is. */
    void abandon();

    qint64 bytesWritten() const;
    /*! In words of the system or the library. */
    QString errorText() const;

private:
    struct Data;
    std::unique_ptr<Data> d;
};

} // namespace orrin
