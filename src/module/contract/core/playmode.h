// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMetaType>

namespace orrin {

/*! What a stream is doing. */
enum class PlayMode : int { Stopped = 0, Live = 1, Play = 2, Paused = 3, FastForward = 4, Rewind = 5, Step = 6, Scrub = 7 };

/*! The same values under the name that the subtitles use. */
using StreamState = PlayMode;

} // namespace orrin

Q_DECLARE_METATYPE(orrin::PlayMode)
