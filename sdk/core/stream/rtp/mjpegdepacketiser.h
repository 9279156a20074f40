// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/depacketiser.h"
#include "core/stream/rtp/jpegheader.h"

#include <array>

namespace orrin::rtp {

/*! MJPEG by RFC 2435: types 0 and 1, with and without restart markers, tables by quality or in-band. */
class ORRINSDK_CORE_EXPORT MjpegDepacketiser : public Depacketiser
{
public:
    using Depacketiser::Depacketiser;

protected:
    bool append(Bytes payload) override;
    void begin() override;
    void interrupted() override;
    bool finish() override;

private:
    bool startPicture(const JpegHeader &header, std::uint8_t quality, Bytes *payload);
    bool readTables(std::uint8_t quality, Bytes *payload);

    bool m_started = false;
    bool m_whole = false;
    std::size_t m_scanBytes = 0;
    QuantisationTables m_tables;
    int m_tablesQuality = -1;
};

} // namespace orrin::rtp
