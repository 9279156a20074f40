// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>

#include <QString>

#include <optional>

namespace orrin {

/*! A login that a server refuses for another reason than the credentials. A value. */
struct ORRINSDK_CORE_EXPORT Refusal
{
    enum class Reason { TooManyConnections, OutsideHours, AccountLocked, AddressNotPermitted };

    /*! The refusal of that name in the site extension; nothing when there is none. \a seconds below 0 count
     * as 0. */
    static std::optional<Refusal> fromName(QStringView name, qint64 seconds);

    Reason reason = Reason::TooManyConnections;
    int seconds = 0; //!< how long an account stays locked
};

} // namespace orrin
