// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/statsqmlhelper.h"

#include <QDateTime>

#include <span>

namespace orrin {

namespace {

struct Band
{
    double above;
    const char *word;
};

// Each table from the top down; the last entry is the first word, which begins at 0.
constexpr Band SystemBands[] = {
    {7.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Standby2")},
    {6.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Standby")},
    {5.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Warning")},
    {4.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Fault")},
    {3.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Recording")},
    {2.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Not recording")},
    {1.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Restart")},
};
constexpr double SystemTop = 8.0;

constexpr Band DiskBands[] = {
    {9.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Not formatted")},
    {8.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Formatted")},
    {7.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Degraded")},
    {6.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Foreign")},
    {5.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Failed")},
    {3.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Missing")},
    {2.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Rebuilding")},
    {1.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Read-only")},
    {0.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Good")},
};
constexpr double DiskTop = 10.0;

constexpr Band CameraBands[] = {
    {16.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "No Stream")},
    {15.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Connected/Starting")},
    {14.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Connecting")},
    {13.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Configuring")},
    {12.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Net problem")},
    {11.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Check log")},
    {10.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Awaiting restart")},
    {9.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Stream fail")},
    {8.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Not connected")},
    {7.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Unauthorized")},
    {6.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Initializing")},
    {5.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Video Loss")},
    {3.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Not Permitted")},
    {2.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Bad")},
    {1.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "Recording")},
    {0.0, QT_TRANSLATE_NOOP("orrin::StatsQmlHelper", "None")},
};
constexpr double CameraTop = 17.0;

QString wordFor(double value, std::span<const Band> bands, double top)
{
    // Not a number is neither.
    if (!(value >= 0.0 && value <= top))
        return StatsQmlHelper::tr("Unknown");
    for (const Band &band : bands) {
        if (value > band.above)
            return StatsQmlHelper::tr(band.word);
    }
    return StatsQmlHelper::tr(bands.back().word);
}

} // namespace

StatsQmlHelper::StatsQmlHelper(QObject *parent)
    : QObject(parent)
{
}

StatsQmlHelper::~StatsQmlHelper() = default;

QString StatsQmlHelper::valueToSystemStatusText(double val)
{
    return wordFor(val, SystemBands, SystemTop);
}

QString StatsQmlHelper::valueToDiskStatusText(double val)
{
    return wordFor(val, DiskBands, DiskTop);
}

QString StatsQmlHelper::valueToCameraStatusText(double val)
{
    return wordFor(val, CameraBands, CameraTop);
}

QString StatsQmlHelper::dateTimeString(qlonglong epoch_ms)
{
    return QDateTime::fromMSecsSinceEpoch(epoch_ms).toString(Qt::TextDate);
}

} // namespace orrin
