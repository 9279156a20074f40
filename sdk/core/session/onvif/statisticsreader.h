// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/stats/statspage.h"

#include <contract/core/export.h>

#include <QJsonObject>

#include <optional>

namespace orrin {

/*! Reads the bodies of the site extension that tell of statistics. Members that are missing or of the wrong kind take their defaults; what is above the
    limits is dropped, as are headings that come twice. Plain functions; safe on any thread. */
class ORRINSDK_CORE_EXPORT StatisticsReader
{
public:
    static constexpr qsizetype HeadingLimit = 1024;
    static constexpr qsizetype HeadingLength = 64;
    static constexpr qsizetype TimeLimit = 8192;
    /*! All values of one page. */
    static constexpr qsizetype ValueLimit = 1 << 20;
    static constexpr qint64 ShortestIntervalMs = 1000;
    static constexpr qint64 LongestIntervalMs = 24LL * 3600 * 1000;

    static StatsContents readContents(const QJsonObject &object);
    /*! The times are in ascending order, whatever the order in the body; a time that is no moment from 1970 to 9999 is dropped with its values. */
    static StatsPage readPage(const QJsonObject &object);
};

} // namespace orrin
