// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

namespace orrin {

/*! Turns access units into frames. A module of a stream processor, made by a factory and used by the core alone. */
class ORRINSDK_CORE_EXPORT SPAbstractDecoder
{
public:
    SPAbstractDecoder() = default;
    virtual ~SPAbstractDecoder();
    SPAbstractDecoder(const SPAbstractDecoder &) = delete;
    SPAbstractDecoder &operator=(const SPAbstractDecoder &) = delete;
};

} // namespace orrin
