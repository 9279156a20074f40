// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "rtsp/replaysettings.h"

typedef struct _GstRTSPMediaFactory GstRTSPMediaFactory;

namespace orrin::demo {

/*! A media factory for the replay of one recording, by the ONVIF replay extension. Each client has a media of
 * its own. The caller owns the reference. */
GstRTSPMediaFactory *newReplayFactory(const ReplaySettings &settings);

} // namespace orrin::demo
