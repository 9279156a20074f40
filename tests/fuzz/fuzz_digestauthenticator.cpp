// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/digestauthenticator.h"

#include <cstdint>
#include <cstdlib>

using namespace orrin::rtsp;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), qsizetype(size));
    DigestAuthenticator authenticator;
    authenticator.setCredentials(QStringLiteral("user"), QStringLiteral("uncommon-secret"), false);
    if (authenticator.challenge(text.split('\n'))
        && authenticator.authorization("PLAY", "rtsp://host/").contains("uncommon-secret") && !text.contains("uncommon"))
        std::abort();
    return 0;
}
