// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "rtsp/replaysettings.h"

typedef struct _GstElement GstElement;

namespace orrin::demo {

/*!
    A seekable source element that gives the recorded sound of \a settings. It keeps beside \a position, which
   the picture tells, so that sound does not run ahead of it. At any other speed than 1, backward and for
   key frames only, there is a single packet and no more. The caller owns the floating reference.
*/
GstElement *newReplayAudioSource(const ReplaySettings &settings, std::shared_ptr<ReplayPosition> position);

} // namespace orrin::demo
