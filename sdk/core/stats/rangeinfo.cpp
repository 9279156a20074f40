// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/rangeinfo.h"

namespace orrin {

RangeInfo::RangeInfo(const QString &heading, const HeadingFacts &facts)
    : m_heading(heading)
    , m_facts(facts)
{
}

} // namespace orrin
