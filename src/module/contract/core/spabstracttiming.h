// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

namespace orrin {

/*! Decides when a frame shows. A module of a stream processor, made by a factory and used by the core alone. */
class ORRINSDK_CORE_EXPORT SPAbstractTiming
{
public:
    SPAbstractTiming() = default;
    virtual ~SPAbstractTiming();
    SPAbstractTiming(const SPAbstractTiming &) = delete;
    SPAbstractTiming &operator=(const SPAbstractTiming &) = delete;
};

} // namespace orrin
