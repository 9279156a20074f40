// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/replay/gopdecoder.h"
#include "core/stream/replay/replaycommand.h"

#include <contract/core/playbackstate.h>
#include <contract/util/time300.h>

#include <chrono>
#include <cstddef>

/*! What the parts of the ReplayPlayer share; of no use to anybody else. */
namespace orrin::replay {

using Limit = PlaybackState::Limit;
using Progress = GopDecoder::Progress;
using Place = ReplayCommand::Place;

inline constexpr Time300 Second = 300;
/*! So long one stream keeps its thread from the others. */
inline constexpr std::chrono::milliseconds TurnTime{6};
inline constexpr std::chrono::milliseconds ClockPoll{50};
inline constexpr int MaxCorruptRun = 60;
/*! Longer distances without a mark are gaps too. */
inline constexpr Time300 UnmarkedGap = 10 * Second;
/*! So far behind the last frame a moment still counts as the end of the recording. */
inline constexpr Time300 EndTolerance = 3 * Second;

} // namespace orrin::replay
