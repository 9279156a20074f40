// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/audiodecoder.h"
#include "core/stream/rtp/audiodepacketiser.h"
#include "core/stream/rtsp/sessiondescription.h"

#include <memory>

namespace orrin::rtp {

/*! How the sound of a medium is coded; AudioCodec::Unknown for one that is not played. */
ORRINSDK_CORE_EXPORT AudioFormat audioFormatOf(const rtsp::MediaDescription &medium);

/*! A depacketiser for \a medium; null for one that is not played. */
ORRINSDK_CORE_EXPORT std::unique_ptr<AudioDepacketiser> createAudioDepacketiser(const rtsp::MediaDescription &medium,
                                                                               AccessUnitSink &sink);

} // namespace orrin::rtp
