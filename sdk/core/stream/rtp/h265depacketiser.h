// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/depacketiser.h"

namespace orrin::rtp {

/*! H.265 by RFC 7798 without decoding order numbers: single NAL units, aggregation packets, fragmentation units. */
class ORRINSDK_CORE_EXPORT H265Depacketiser : public Depacketiser
{
public:
    using Depacketiser::Depacketiser;

    /*! Parameter sets in Annex B, put before a key picture that comes without its own. */
    void setParameterSets(std::vector<std::uint8_t> annexB) { m_parameterSets = std::move(annexB); }

protected:
    bool append(Bytes payload) override;
    void begin() override;
    void interrupted() override;
    bool finish() override;

private:
    bool appendAggregate(Bytes payload);
    bool appendFragment(Bytes payload);
    bool appendNal(Bytes nal);
    bool beginNal(std::uint8_t header0, std::uint8_t header1, Bytes body);

    std::vector<std::uint8_t> m_parameterSets;
    bool m_inFragment = false;
    bool m_hasNal = false;
    bool m_hasParameterSets = false;
    bool m_startsWhole = false;
};

} // namespace orrin::rtp
