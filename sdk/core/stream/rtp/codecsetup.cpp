// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/codecsetup.h"

#include "core/stream/rtp/h264depacketiser.h"
#include "core/stream/rtp/h265depacketiser.h"
#include "core/stream/rtp/mjpegdepacketiser.h"
#include "core/stream/rtsp/parameterlist.h"

namespace orrin::rtp {

namespace {

// Base64 texts with commas between, as the sprop parameters hold them, in Annex B.
void appendParameterSets(const QByteArray &text, std::vector<std::uint8_t> *annexB)
{
    const QList<QByteArray> sets = text.split(',');
    for (const QByteArray &set : sets) {
        const QByteArray nal = QByteArray::fromBase64(set);
        if (nal.isEmpty())
            continue;
        annexB->insert(annexB->end(), {0, 0, 0, 1});
        annexB->insert(annexB->end(), nal.begin(), nal.end());
    }
}

} // namespace

VideoCodec videoCodecOf(const rtsp::MediaDescription &medium)
{
    if (medium.kind != rtsp::MediaDescription::Kind::Video || medium.payloadType < 0)
        return VideoCodec::Unknown;
    if (medium.encoding == "H264")
        return VideoCodec::H264;
    if (medium.encoding == "H265" || medium.encoding == "HEVC")
        return VideoCodec::H265;
    return medium.encoding == "JPEG" ? VideoCodec::Mjpeg : VideoCodec::Unknown;
}

std::unique_ptr<Depacketiser> createDepacketiser(const rtsp::MediaDescription &medium, AccessUnitSink &sink)
{
    const rtsp::ParameterList parameters(medium.fmtp, ';');
    std::vector<std::uint8_t> parameterSets;
    switch (videoCodecOf(medium)) {
    case VideoCodec::H264: {
        appendParameterSets(parameters.value("sprop-parameter-sets"), &parameterSets);
        auto depacketiser = std::make_unique<H264Depacketiser>(sink);
        depacketiser->setParameterSets(std::move(parameterSets));
        return depacketiser;
    }
    case VideoCodec::H265: {
        for (const char *name : {"sprop-vps", "sprop-sps", "sprop-pps"})
            appendParameterSets(parameters.value(name), &parameterSets);
        auto depacketiser = std::make_unique<H265Depacketiser>(sink);
        depacketiser->setParameterSets(std::move(parameterSets));
        return depacketiser;
    }
    case VideoCodec::Mjpeg:
        return std::make_unique<MjpegDepacketiser>(sink);
    case VideoCodec::Unknown:
        break;
    }
    return nullptr;
}

} // namespace orrin::rtp
