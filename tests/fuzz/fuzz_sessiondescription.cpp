// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/codecsetup.h"
#include "core/stream/rtsp/sessiondescription.h"

#include <cstdint>
#include <cstdlib>

using namespace orrin;

namespace {

struct NoSink : rtp::AccessUnitSink
{
    void accessUnitReady(const rtp::AccessUnit &) override {}
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArrayView text(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto session = rtsp::SessionDescription::parse(text);
    if (!session)
        return 0;
    NoSink sink;
    for (const rtsp::MediaDescription &medium : session->media) {
        if (medium.payloadType > 127 || medium.clockRate < 0 || medium.channels < 1)
            std::abort();
        rtp::createDepacketiser(medium, sink);
    }
    return 0;
}
