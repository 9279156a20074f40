// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/corvaneurl.h>

#include <cstdint>
#include <cstdlib>

using namespace orrin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const CorvaneUrl url(
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)), 8601);
    if (url.port() < 1 || url.port() > 65535 || url.host().size() > 253)
        std::abort();
    // What is written out reads as itself.
    if (url.isValid() && CorvaneUrl(url.hostAndPort(), 1) != url)
        std::abort();
    return 0;
}
