// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stats/rangeinfo.h"

#include <contract/core/export.h>

namespace orrin {

/*! What is known of \a heading; docs/statistics.md has the table. For one that is not known a plain number whose long name is the heading itself.
    Names are cut where they are shown, never rejected. Safe on any thread. */
ORRINSDK_CORE_EXPORT HeadingFacts headingFactsOf(const QString &heading);

/*! The headings under which the client shows what it measures of a camera's streams, in the order of StreamSample. */
ORRINSDK_CORE_EXPORT QStringList measuredHeadings(int channelId);

} // namespace orrin
