// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

namespace orrin {

/*! Keeps several streams of one sync context at the same moment. A module of a stream processor, made by a factory and used by the core alone. */
class ORRINSDK_CORE_EXPORT SPAbstractSynchroniser
{
public:
    SPAbstractSynchroniser() = default;
    virtual ~SPAbstractSynchroniser();
    SPAbstractSynchroniser(const SPAbstractSynchroniser &) = delete;
    SPAbstractSynchroniser &operator=(const SPAbstractSynchroniser &) = delete;
};

} // namespace orrin
