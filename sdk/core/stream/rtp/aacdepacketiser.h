// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stream/rtp/audiodepacketiser.h"
#include "core/stream/rtsp/parameterlist.h"

#include <optional>
#include <vector>

namespace orrin::rtp {

/*! AAC by RFC 3640, modes AAC-hbr and AAC-lbr: several frames in a packet, or one frame in several packets. */
class ORRINSDK_CORE_EXPORT AacDepacketiser : public AudioDepacketiser
{
public:
    /*! How the headers of the frames are laid out, in bits. */
    struct Layout
    {
        int sizeLength = 13;
        int indexLength = 3;
        int indexDeltaLength = 3;
        std::uint32_t frameSamples = 1024;
    };
    static constexpr std::size_t MaxFrameBytes = 16384;
    static constexpr std::size_t MaxFrames = 64;

    AacDepacketiser(AccessUnitSink &sink, std::uint8_t payloadType, const Layout &layout);

    /*! The layout that the description's parameters tell; nothing when it has fields that are not understood. */
    static std::optional<Layout> layoutOf(const rtsp::ParameterList &parameters);

protected:
    bool take(const RtpPacket &packet, bool lost) override;
    void forget() override;

private:
    struct FrameHeader
    {
        std::size_t size = 0;
        std::uint32_t index = 0; // frames between the packet's first one and this one
    };

    bool readHeaders(Bytes *payload);
    bool takeFragment(const RtpPacket &packet, Bytes payload, bool lost);

    const Layout m_layout;
    std::vector<FrameHeader> m_headers;
    std::vector<std::uint8_t> m_fragments;
    std::size_t m_fragmentedSize = 0; // 0: no frame is half there
    std::uint32_t m_fragmentTime = 0;
};

} // namespace orrin::rtp
