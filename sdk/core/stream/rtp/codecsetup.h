// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/videodecoder.h"
#include "core/stream/rtp/depacketiser.h"
#include "core/stream/rtsp/sessiondescription.h"

#include <memory>

namespace orrin::rtp {

/*! The codec of a medium; Unknown for one that is not played. */
ORRINSDK_CORE_EXPORT VideoCodec videoCodecOf(const rtsp::MediaDescription &medium);

/*! A depacketiser for \a medium with the parameter sets that its description carries; null for a codec that is not played. */
ORRINSDK_CORE_EXPORT std::unique_ptr<Depacketiser> createDepacketiser(const rtsp::MediaDescription &medium, AccessUnitSink &sink);

} // namespace orrin::rtp
