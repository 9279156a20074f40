// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stats/headingfacts.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

#include <array>
#include <optional>
#include <span>

namespace orrin {

using namespace Qt::StringLiterals;

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("orrin::Statistics", text);
}

// How a kind of figure is shown: "" is no unit.
struct Figure
{
    const char *match;       // a whole heading, a beginning or an end, as its table says
    const char *description; // with a place for the name where the family has one
    const char *units;
    StatsType type;
    int decimals;
};

constexpr Figure WholeHeadings[] = {
    {"Status", QT_TRANSLATE_NOOP("orrin::Statistics", "Recorder status"), "", StatsType::ENUM_SYSTEM_STATUS, 0},
    {"UsedMB", QT_TRANSLATE_NOOP("orrin::Statistics", "Storage in use"), "MB", StatsType::FLOAT, 0},
    {"FreeMB", QT_TRANSLATE_NOOP("orrin::Statistics", "Storage free"), "MB", StatsType::FLOAT, 0},
    {"CPU%", QT_TRANSLATE_NOOP("orrin::Statistics", "Processor load"), "%", StatsType::FLOAT, 1},
    {"ntp_ms", QT_TRANSLATE_NOOP("orrin::Statistics", "Clock offset to the time server"), "ms", StatsType::FLOAT, 1},
    {"stratum", QT_TRANSLATE_NOOP("orrin::Statistics", "Stratum of the clock"), "", StatsType::INTEGER, 0},
};

constexpr Figure NetworkEnds[] = {
    {"_tx", QT_TRANSLATE_NOOP("orrin::Statistics", "Network %1: sent"), "kbit/s", StatsType::FLOAT, 0},
    {"_rx", QT_TRANSLATE_NOOP("orrin::Statistics", "Network %1: received"), "kbit/s", StatsType::FLOAT, 0},
    {"_err", QT_TRANSLATE_NOOP("orrin::Statistics", "Network %1: errors"), "1/s", StatsType::FLOAT, 2},
    {"_drop", QT_TRANSLATE_NOOP("orrin::Statistics", "Network %1: packets dropped"), "1/s", StatsType::FLOAT, 2},
};

constexpr Figure DiskBeginnings[] = {
    {"Disk_", QT_TRANSLATE_NOOP("orrin::Statistics", "Disk %1: status"), "", StatsType::ENUM_DISK_STATUS, 0},
    {"Use%_", QT_TRANSLATE_NOOP("orrin::Statistics", "Disk %1: space in use"), "%", StatsType::FLOAT, 1},
    {"Temp_", QT_TRANSLATE_NOOP("orrin::Statistics", "Disk %1: temperature"), "°C", StatsType::FLOAT, 1},
    {"WriteRate_", QT_TRANSLATE_NOOP("orrin::Statistics", "Disk %1: data written"), "MB/s", StatsType::FLOAT, 2},
};

constexpr Figure CameraEnds[] = {
    {"", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1: status"), "", StatsType::ENUM_CAMERA_STATUS, 0},
    {"rx", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1: data received"), "kbit/s", StatsType::FLOAT, 0},
    {"rj", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1: pictures rejected"), "1/s", StatsType::FLOAT, 2},
    {"ij", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1: interval jitter"), "ms", StatsType::FLOAT, 1},
};

constexpr Figure TrackEnds[] = {
    {"b", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1, track %2: data recorded"), "kbit/s", StatsType::FLOAT, 0},
    {"d", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1, track %2: pictures dropped"), "1/s", StatsType::FLOAT, 2},
    {"r", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1, track %2: pictures recorded"), "1/s", StatsType::FLOAT, 1},
};

constexpr Figure SensorEnds[] = {
    {"/C", QT_TRANSLATE_NOOP("orrin::Statistics", "Sensor %1: temperature"), "°C", StatsType::FLOAT, 1},
    {"/V", QT_TRANSLATE_NOOP("orrin::Statistics", "Sensor %1: voltage"), "V", StatsType::FLOAT, 2},
    {"/W", QT_TRANSLATE_NOOP("orrin::Statistics", "Sensor %1: power"), "W", StatsType::FLOAT, 1},
};

// In the order of StreamSample.
constexpr Figure MeasuredEnds[] = {
    {"_fps", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1, shown here: pictures"), "1/s", StatsType::FLOAT, 1},
    {"_kbps", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1, shown here: data received"), "kbit/s", StatsType::FLOAT, 0},
    {"_delay", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1, shown here: delay"), "ms", StatsType::FLOAT, 0},
    {"_lost", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1, shown here: packets lost"), "1/s", StatsType::FLOAT, 2},
    {"_reconnects", QT_TRANSLATE_NOOP("orrin::Statistics", "Camera %1, shown here: connections begun anew"), "",
     StatsType::INTEGER, 0},
};

HeadingFacts factsOf(const Figure &figure)
{
    HeadingFacts facts;
    facts.description = tr(figure.description);
    facts.units = QString::fromUtf8(figure.units);
    facts.type = figure.type;
    facts.decimals = figure.decimals;
    // Shares and rates are never below nothing; a chart that begins at 0 lets them be compared.
    static const QStringList fromZero = {u"%"_s, u"kbit/s"_s, u"1/s"_s, u"MB/s"_s};
    if (fromZero.contains(facts.units)) {
        facts.lowerBound = IRangeInfo::Fixed;
        facts.startsAtZero = true;
    }
    return facts;
}

const Figure *find(std::span<const Figure> figures, const auto &matches)
{
    for (const Figure &figure : figures) {
        if (matches(QLatin1StringView(figure.match)))
            return &figure;
    }
    return nullptr;
}

std::optional<HeadingFacts> systemFacts(const QString &heading)
{
    if (const Figure *figure = find(WholeHeadings, [&](QLatin1StringView text) { return heading == text; }))
        return factsOf(*figure);
    if (!heading.startsWith("cpu"_L1) || !heading.endsWith('%'_L1))
        return std::nullopt;
    HeadingFacts facts = factsOf({"", QT_TRANSLATE_NOOP("orrin::Statistics", "Processor %1: load"), "%", StatsType::FLOAT, 1});
    facts.description = facts.description.arg(heading.sliced(3).chopped(1));
    return facts;
}

std::optional<HeadingFacts> endFacts(std::span<const Figure> figures, const QString &heading)
{
    const Figure *figure = find(figures, [&](QLatin1StringView end) { return heading.endsWith(end); });
    if (!figure)
        return std::nullopt;
    HeadingFacts facts = factsOf(*figure);
    facts.description = facts.description.arg(heading.chopped(QLatin1StringView(figure->match).size()));
    return facts;
}

std::optional<HeadingFacts> diskFacts(const QString &heading)
{
    const Figure *figure = find(DiskBeginnings, [&](QLatin1StringView begin) { return heading.startsWith(begin); });
    if (!figure)
        return std::nullopt;
    HeadingFacts facts = factsOf(*figure);
    facts.description = facts.description.arg(heading.sliced(QLatin1StringView(figure->match).size()));
    return facts;
}

std::optional<HeadingFacts> channelFacts(const QString &heading)
{
    static const QRegularExpression shape(
        u"^(View_)?C([0-9]{1,9})(?:t([0-9]{1,9}))?([a-z]{0,2}|_[a-z]{1,16})$"_s);
    const QRegularExpressionMatch match = shape.match(heading);
    if (!match.hasMatch())
        return std::nullopt;
    const bool isTrack = match.hasCaptured(3) && !match.capturedView(3).isEmpty();
    const bool isMeasured = !match.capturedView(1).isEmpty();
    if (isTrack && isMeasured)
        return std::nullopt;
    const QString end = match.captured(4);
    const std::span<const Figure> figures = isMeasured ? std::span<const Figure>(MeasuredEnds)
                                            : isTrack  ? std::span<const Figure>(TrackEnds)
                                                       : std::span<const Figure>(CameraEnds);
    const Figure *figure = find(figures, [&](QLatin1StringView text) { return end == text; });
    if (!figure)
        return std::nullopt;
    HeadingFacts facts = factsOf(*figure);
    facts.description = isTrack ? facts.description.arg(match.captured(2), match.captured(3))
                                : facts.description.arg(match.captured(2));
    return facts;
}

std::optional<HeadingFacts> sensorFacts(const QString &heading)
{
    if (std::optional<HeadingFacts> facts = endFacts(SensorEnds, heading))
        return facts;
    if (heading.contains("FAN"_L1)) {
        HeadingFacts facts = factsOf({"", QT_TRANSLATE_NOOP("orrin::Statistics", "Fan %1: speed"), "rpm", StatsType::FLOAT, 0});
        facts.description = facts.description.arg(heading);
        return facts;
    }
    if (heading.contains("PSU"_L1)) {
        HeadingFacts facts = factsOf({"", QT_TRANSLATE_NOOP("orrin::Statistics", "Power supply %1"), "", StatsType::FLOAT, 2});
        facts.description = facts.description.arg(heading);
        return facts;
    }
    return std::nullopt;
}

} // namespace

HeadingFacts headingFactsOf(const QString &heading)
{
    if (const auto facts = systemFacts(heading))
        return *facts;
    if (const auto facts = endFacts(NetworkEnds, heading))
        return *facts;
    if (const auto facts = diskFacts(heading))
        return *facts;
    if (const auto facts = channelFacts(heading))
        return *facts;
    if (const auto facts = sensorFacts(heading))
        return *facts;
    HeadingFacts facts;
    facts.description = heading;
    return facts;
}

QStringList measuredHeadings(int channelId)
{
    QStringList headings;
    for (const Figure &figure : MeasuredEnds)
        headings.append(u"View_C%1%2"_s.arg(channelId).arg(QLatin1StringView(figure.match)));
    return headings;
}

} // namespace orrin
