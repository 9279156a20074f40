// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! Processing modules of a stream that can be switched. */
enum class SPModuleType : int { Video = 0, Audio = 1, Metadata = 2, Subtitles = 3 };

} // namespace orrin
