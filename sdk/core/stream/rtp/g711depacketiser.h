// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/audiodepacketiser.h"

namespace orrin::rtp {

/*! G.711 by RFC 3551, either law: the payload is the samples, and each packet a unit. */
class ORRINSDK_CORE_EXPORT G711Depacketiser : public AudioDepacketiser
{
public:
    /*! A second of two channels; larger payloads are malformed. */
    static constexpr std::size_t MaxBytes = 16000;

    using AudioDepacketiser::AudioDepacketiser;

protected:
    bool take(const RtpPacket &packet, bool lost) override;
};

} // namespace orrin::rtp
