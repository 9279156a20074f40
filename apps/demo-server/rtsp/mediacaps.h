// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "site/site.h"

typedef struct _GstCaps GstCaps;

namespace orrin::demo {

/*! What encoded pictures of a profile are, in GStreamer's words. The caller owns the reference. */
GstCaps *newVideoCaps(VideoCodec codec, const Profile &profile);

/*! The element that packs them into RTP, with its properties. */
const char *videoPayloader(VideoCodec codec);

/*! The same for sound; \a config is the AudioSpecificConfig of AAC. */
GstCaps *newAudioCaps(AudioCodec codec, const QByteArray &config);
const char *audioPayloader(AudioCodec codec);

} // namespace orrin::demo
