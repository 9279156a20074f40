// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/codecs/export.h>
#include <contract/util/image.h>

#include <QByteArray>
#include <QtTypes>

#include <optional>

namespace orrin {

/*! The header extension under which an image carries its FrameFacts; behind the numbers of the contract. */
inline constexpr auto FrameFactsExtension = ImageHeaderExtension(64);

/*! How a picture came about: what decoder and stream measured on the way. A value. */
struct ORRINSDK_CODECS_EXPORT FrameFacts
{
    qint64 arrivedMs = 0;       //!< when its data came to the decoder, by the client's clock, since 1970 UTC
    qint64 decodedMs = 0;       //!< when it was decoded, by the same clock
    qint64 decodingUs = 0;      //!< microseconds spent in the decoder
    double framesPerSecond = 0; //!< by the capture times of the pictures before it; 0 while unknown

    /*! The facts as the bytes of a header extension. */
    QByteArray toBytes() const;
    /*! Nothing for \a bytes that are none. */
    static std::optional<FrameFacts> fromBytes(const QByteArray &bytes);
};

} // namespace orrin
