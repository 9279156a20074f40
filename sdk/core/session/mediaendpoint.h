// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/credentials.h"

#include <contract/core/playbackerror.h>

#include <QByteArray>
#include <QTimeZone>
#include <QUrl>

#include <variant>

namespace orrin {

/*! Which of a camera's streams. The values are those of SPInputControlInterface::setStreamPreference(). */
enum class StreamQuality : int { High = 1, Low = 3 };

/*! Where and how one stream of a camera is to be had. */
struct MediaEndpoint
{
    QUrl url;                      //!< rtsp or rtsps, without user and password
    SharedCredentials credentials; //!< may be null
    /*! The DER public key that the device must show, for rtsps; empty when the session's trust says nothing. */
    QByteArray trustedKey;
    /*! The encoded privacy mask of the camera, attached to each frame; empty without one. */
    QByteArray privacyMask;
    /*! The token of the track of a recording, by which its medium is known among those that the server describes; empty elsewhere. */
    QByteArray trackToken;
    QTimeZone timeZone = QTimeZone::utc();
    /*! Milliseconds to add to the client's clock to get the device's. */
    qint64 clockOffsetMs = 0;
};

using MediaEndpointResult = std::variant<MediaEndpoint, PlaybackError>;

} // namespace orrin
