// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

namespace orrin {

/*! Answers a stream's questions for keys and passwords. A module of a stream processor, made by a factory and used by the core alone. */
class ORRINSDK_CORE_EXPORT SPAbstractAuthentication
{
public:
    SPAbstractAuthentication() = default;
    virtual ~SPAbstractAuthentication();
    SPAbstractAuthentication(const SPAbstractAuthentication &) = delete;
    SPAbstractAuthentication &operator=(const SPAbstractAuthentication &) = delete;
};

} // namespace orrin
