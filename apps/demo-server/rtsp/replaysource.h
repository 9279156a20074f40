// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "rtsp/replaysettings.h"

typedef struct _GstElement GstElement;

namespace orrin::demo {

/*!
    A seekable source element that gives the recorded picture of \a settings as encoded frames. It works in
   the streaming thread of its media. Positions are told to \a position. The caller owns the floating
   reference.
*/
GstElement *newReplaySource(const ReplaySettings &settings, std::shared_ptr<ReplayPosition> position);

} // namespace orrin::demo
