// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/export.h>
#include <contract/core/irangeinfo.h>

#include <QString>

#include <memory>

namespace orrin {

/*! Knows the headings of the statistics. Main thread. */
class ORRINSDK_CORE_EXPORT RangeInfoFactory
{
public:
    /*! What is known of \a heading; a plain number without a unit for one that is not known. Never null. */
    static std::unique_ptr<IRangeInfo> create(const QString &heading);
};

} // namespace orrin
