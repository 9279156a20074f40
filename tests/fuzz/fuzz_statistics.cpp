// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/siteextensionreader.h"
#include "core/session/onvif/statisticsreader.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

using namespace orrin;

namespace {

bool isSound(const StatsPage &page)
{
    if (page.times.size() > StatisticsReader::TimeLimit || !std::is_sorted(page.times.begin(), page.times.end()))
        return false;
    qsizetype values = 0;
    for (const StatsPage::Series &series : page.series) {
        values += series.low.size() + series.high.size();
        if (series.low.size() != page.times.size() || (!series.high.isEmpty() && series.high.size() != page.times.size()))
            return false;
        if (std::any_of(series.low.begin(), series.low.end(), [](double value) { return std::isinf(value); }))
            return false;
    }
    return values <= StatisticsReader::ValueLimit && page.series.size() <= StatisticsReader::HeadingLimit;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto object =
        SiteExtensionReader::parse(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (!object)
        return 0;
    const StatsContents contents = StatisticsReader::readContents(*object);
    if (contents.headings.size() > StatisticsReader::HeadingLimit || contents.intervalMs < StatisticsReader::ShortestIntervalMs ||
        contents.intervalMs > StatisticsReader::LongestIntervalMs || contents.oldestMs < 0)
        std::abort();
    if (!isSound(StatisticsReader::readPage(*object)))
        std::abort();
    return 0;
}
