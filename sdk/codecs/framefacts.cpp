// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/framefacts.h"

#include <cmath>
#include <cstring>
#include <type_traits>

namespace orrin {

static_assert(std::is_trivially_copyable_v<FrameFacts>);

// The bytes never leave the process.
QByteArray FrameFacts::toBytes() const
{
    return QByteArray(reinterpret_cast<const char *>(this), sizeof(FrameFacts));
}

std::optional<FrameFacts> FrameFacts::fromBytes(const QByteArray &bytes)
{
    FrameFacts facts;
    if (bytes.size() != qsizetype(sizeof facts))
        return std::nullopt;
    std::memcpy(&facts, bytes.constData(), sizeof facts);
    if (!std::isfinite(facts.framesPerSecond))
        return std::nullopt;
    return facts;
}

} // namespace orrin
