// SPDX-License-Identifier: GPL-3.0-or-later
#include "site/figure.h"

#include <QStringView>

#include <algorithm>
#include <cmath>

namespace orrin::demo {

namespace {

constexpr qint64 SpreadMoments = 12;
constexpr qint64 MostIncidents = 64;

quint64 mixed(quint64 seed, quint64 number)
{
    quint64 z = seed + (number + 1) * 0x9e3779b97f4a7c15ULL;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
}

qint64 floorDivided(qint64 value, qint64 by)
{
    return value / by - (value % by < 0 ? 1 : 0);
}

double badness(double letter)
{
    static constexpr QStringView letters = u"GLRMXEDFN";
    return double(letters.indexOf(QChar(char16_t(letter))));
}

} // namespace

double noise(quint64 seed, qint64 number)
{
    return double(mixed(seed, quint64(number)) >> 11) / double(1ULL << 53);
}

double wave(quint64 seed, qint64 timeMs, qint64 periodMs)
{
    const qint64 number = floorDivided(timeMs, periodMs);
    const double place = double(timeMs - number * periodMs) / double(periodMs);
    const double ease = place * place * (3 - 2 * place);
    return noise(seed, number) * (1 - ease) + noise(seed, number + 1) * ease;
}

std::optional<Incidents::Moment> Incidents::ofPeriod(qint64 number) const
{
    if (periodMs <= 0 || noise(seed, number) >= probability)
        return std::nullopt;
    Moment moment;
    moment.kind = mixed(seed ^ 0x5a5a, quint64(number));
    const auto length = std::max<qint64>(qint64(double(longestMs) * (0.3 + 0.7 * noise(seed ^ 1, number))), 20000);
    moment.beginMs = number * periodMs + qint64(double(periodMs - length) * noise(seed ^ 2, number));
    moment.beginMs -= moment.beginMs % 10000;
    moment.endMs = moment.beginMs + length;
    return moment;
}

std::optional<Incidents::Moment> Incidents::at(qint64 timeMs) const
{
    if (periodMs <= 0)
        return std::nullopt;
    const std::optional<Moment> moment = ofPeriod(floorDivided(timeMs, periodMs));
    return moment && timeMs >= moment->beginMs && timeMs < moment->endMs ? moment : std::nullopt;
}

std::pair<double, double> Figure::extremes(qint64 beginMs, qint64 endMs, qint64 intervalMs) const
{
    double low = at(beginMs);
    double high = low;
    const auto take = [&](qint64 timeMs) {
        const double value = at(timeMs);
        const auto rank = [this](double each) { return isLetter ? badness(each) : each; };
        if (rank(value) < rank(low))
            low = value;
        if (rank(value) > rank(high))
            high = value;
    };
    const qint64 samples = (endMs - beginMs + intervalMs - 1) / intervalMs;
    const qint64 stride = std::max<qint64>(samples / SpreadMoments, 1);
    for (qint64 i = stride; i < samples; i += stride)
        take(beginMs + i * intervalMs);
    if (incidents.periodMs <= 0)
        return {low, high};
    const qint64 first = floorDivided(beginMs, incidents.periodMs);
    const qint64 last = std::min(floorDivided(endMs - 1, incidents.periodMs), first + MostIncidents);
    for (qint64 number = first; number <= last; ++number) {
        const std::optional<Incidents::Moment> moment = incidents.ofPeriod(number);
        if (!moment)
            continue;
        for (const qint64 timeMs : {moment->beginMs, (moment->beginMs + moment->endMs) / 2}) {
            if (timeMs >= beginMs && timeMs < endMs)
                take(timeMs);
        }
    }
    return {low, high};
}

QJsonValue Figure::json(double number) const
{
    if (isLetter)
        return QString(QChar(char16_t(number)));
    return std::round(number * 100) / 100;
}

} // namespace orrin::demo
