// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/statisticsreader.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <vector>

namespace orrin {

using namespace Qt::StringLiterals;

namespace {

constexpr double LastMoment = 253402300799999.0; // of the year 9999

std::optional<qint64> timeOf(const QJsonValue &value)
{
    const double number = value.toDouble(-1);
    if (!(number >= 0 && number <= LastMoment))
        return std::nullopt;
    return static_cast<qint64>(number);
}

QString headingOf(const QJsonValue &value)
{
    return value.toString().left(StatisticsReader::HeadingLength);
}

double valueOf(const QJsonValue &value)
{
    if (value.isDouble()) {
        const double number = value.toDouble();
        return std::isfinite(number) ? number : StatsPage::Nothing;
    }
    const QString letter = value.toString();
    return letter.isEmpty() ? StatsPage::Nothing : double(letter.at(0).unicode());
}

// The places of the times in the body, in the order of time.
struct Moment
{
    qint64 timeMs = 0;
    qsizetype place = 0;
};

std::vector<Moment> momentsOf(const QJsonArray &array)
{
    std::vector<Moment> moments;
    const qsizetype count = std::min<qsizetype>(array.size(), StatisticsReader::TimeLimit);
    moments.reserve(static_cast<std::size_t>(count));
    for (qsizetype i = 0; i < count; ++i) {
        if (const std::optional<qint64> time = timeOf(array.at(i)))
            moments.push_back({*time, i});
    }
    std::ranges::stable_sort(moments, {}, &Moment::timeMs);
    return moments;
}

QList<double> valuesOf(const QJsonArray &array, const std::vector<Moment> &moments)
{
    QList<double> values;
    values.reserve(static_cast<qsizetype>(moments.size()));
    for (const Moment &moment : moments)
        values.append(moment.place < array.size() ? valueOf(array.at(moment.place)) : StatsPage::Nothing);
    return values;
}

} // namespace

StatsContents StatisticsReader::readContents(const QJsonObject &object)
{
    StatsContents contents;
    QSet<QString> known;
    const QJsonArray headings = object.value("headings"_L1).toArray();
    for (const QJsonValue &value : headings) {
        const QString heading = headingOf(value);
        if (heading.isEmpty() || known.contains(heading) || contents.headings.size() >= HeadingLimit)
            continue;
        known.insert(heading);
        contents.headings.append(heading);
    }
    const double interval = object.value("intervalSeconds"_L1).toDouble(10);
    const double bounded = std::clamp(std::isfinite(interval) ? interval * 1000 : 10000.0, double(ShortestIntervalMs), double(LongestIntervalMs));
    contents.intervalMs = static_cast<qint64>(bounded);
    contents.oldestMs = timeOf(object.value("oldest"_L1)).value_or(0);
    return contents;
}

StatsPage StatisticsReader::readPage(const QJsonObject &object)
{
    StatsPage page;
    const std::vector<Moment> moments = momentsOf(object.value("times"_L1).toArray());
    for (const Moment &moment : moments)
        page.times.append(moment.timeMs);
    page.next = timeOf(object.value("next"_L1));
    QSet<QString> known;
    qsizetype left = ValueLimit;
    const QJsonArray array = object.value("series"_L1).toArray();
    for (const QJsonValue &value : array) {
        const QJsonObject entry = value.toObject();
        StatsPage::Series series;
        series.heading = headingOf(entry.value("heading"_L1));
        const bool hasHigh = entry.value("high"_L1).isArray();
        const qsizetype cost = page.times.size() * (hasHigh ? 2 : 1);
        if (series.heading.isEmpty() || known.contains(series.heading) || cost > left || page.series.size() >= HeadingLimit)
            continue;
        known.insert(series.heading);
        left -= cost;
        series.low = valuesOf(entry.value("low"_L1).toArray(), moments);
        if (hasHigh)
            series.high = valuesOf(entry.value("high"_L1).toArray(), moments);
        page.series.append(std::move(series));
    }
    return page;
}

} // namespace orrin
