// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/util/export.h>

#include <QHashFunctions>
#include <QMetaType>

namespace orrin {

/*! The number of a running stream, unique in the process while the stream lives; 0 means none.

    Assigned by the core when a stream processor is made. QML knows it as `streamId` and only passes it on. */
struct ORRINSDK_UTIL_EXPORT RequestId
{
    quint16 value = 0;

    friend bool operator==(RequestId, RequestId) = default;
    friend auto operator<=>(RequestId, RequestId) = default;
    friend size_t qHash(RequestId id, size_t seed = 0) noexcept { return ::qHash(id.value, seed); }
};

} // namespace orrin

Q_DECLARE_METATYPE(orrin::RequestId)
