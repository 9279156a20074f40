// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtsp/failure.h"

#include <contract/core/playbackerror.h>

namespace orrin {

/*! What users are told of a failed connection. */
PlaybackError playbackErrorOf(const rtsp::Failure &failure);

/*! True for errors that trying again soon seldom mends. */
bool isLasting(const PlaybackError &error);

} // namespace orrin
