// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/messageparser.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

using namespace orrin::rtsp;

// The first byte says how the rest is cut, so that every boundary is met.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 2)
        return 0;
    const std::size_t cut = 1 + data[0];
    MessageParser parser;
    for (std::size_t at = 1; at < size; at += cut) {
        const std::size_t piece = std::min(cut, size - at);
        parser.feed(QByteArrayView(reinterpret_cast<const char *>(data + at), qsizetype(piece)));
        for (auto event = parser.next(); event != MessageParser::Event::NeedsMore; event = parser.next()) {
            if (event == MessageParser::Event::Error)
                return 0;
            if (event == MessageParser::Event::Message && std::size_t(parser.message().body.size()) > MessageParser::MaxBodyBytes)
                std::abort();
            if (event == MessageParser::Event::Interleaved) {
                unsigned sum = 0;
                for (const std::uint8_t byte : parser.payload())
                    sum += byte;
                if (sum > 255U * 65535U)
                    std::abort();
            }
        }
    }
    return 0;
}
