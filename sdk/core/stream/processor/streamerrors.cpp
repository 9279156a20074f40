// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/streamerrors.h"

namespace orrin {

PlaybackError playbackErrorOf(const rtsp::Failure &failure)
{
    using Kind = rtsp::Failure::Kind;
    switch (failure.kind) {
    case Kind::UntrustedKey:
        return PlaybackError(PlaybackError::UntrustedKey, failure.detail);
    case Kind::Unauthorised:
        return PlaybackError(PlaybackError::NotPermitted, failure.detail);
    case Kind::NotFound:
        return PlaybackError(PlaybackError::NotFound, failure.detail);
    case Kind::InvalidRange:
        return PlaybackError(PlaybackError::BeyondEnd, failure.detail);
    case Kind::Unsupported:
        return PlaybackError(PlaybackError::Unsupported, failure.detail);
    case Kind::Connection:
    case Kind::Timeout:
    case Kind::Protocol:
    case Kind::Ended:
        break;
    }
    return PlaybackError(PlaybackError::StreamLost, failure.detail);
}

bool isLasting(const PlaybackError &error)
{
    switch (error.errorCode()) {
    case PlaybackError::NotPermitted:
    case PlaybackError::NotFound:
    case PlaybackError::Unsupported:
    case PlaybackError::UntrustedKey:
        return true;
    default:
        return false;
    }
}

} // namespace orrin
