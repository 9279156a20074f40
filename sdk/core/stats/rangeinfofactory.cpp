// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/rangeinfofactory.h>

#include "core/stats/headingfacts.h"

namespace orrin {

std::unique_ptr<IRangeInfo> RangeInfoFactory::create(const QString &heading)
{
    return std::make_unique<RangeInfo>(heading, headingFactsOf(heading));
}

} // namespace orrin
