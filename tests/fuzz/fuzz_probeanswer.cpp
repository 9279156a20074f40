// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/discovery/deviceaddress.h"
#include "core/discovery/probeanswer.h"

#include <cstdint>
#include <cstdlib>

using namespace orrin::discovery;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto answer = ProbeAnswer::read(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (!answer)
        return 0;
    if (answer->relatesTo.isEmpty() || answer->matches.size() > ProbeAnswer::MatchLimit)
        std::abort();
    const QList<Subnet> subnets{{QHostAddress(QStringLiteral("192.168.1.2")), 24}};
    for (const ProbeMatch &match : answer->matches) {
        if (match.uuid.isEmpty() || match.uuid.size() > ProbeAnswer::TextLength || match.name.size() > ProbeAnswer::TextLength ||
            match.hardware.size() > ProbeAnswer::TextLength || match.scopes.size() > ProbeAnswer::ScopeLimit ||
            match.addresses.size() > ProbeAnswer::AddressLimit)
            std::abort();
        const QString address = bestAddress(match.addresses, QHostAddress(QStringLiteral("192.168.1.20")), subnets);
        if (address.contains(u'@') || address.contains(u'/') || address.startsWith(QStringLiteral("127.")))
            std::abort();
    }
    return 0;
}
