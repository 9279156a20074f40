// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/posixtimezone.h"

#include <QDateTime>
#include <QRegularExpression>

#include <cstdlib>

namespace orrin {

namespace {

constexpr qsizetype LongestText = 128;
constexpr int LargestOffsetSeconds = 14 * 3600;

/*! POSIX counts west of Greenwich as positive, everybody else the other way round. */
QTimeZone fromPosixOffset(const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^(?:[A-Za-z]{3,}|<[A-Za-z0-9+-]{3,}>)([+-]?)(\\d{1,2})(?::(\\d{2}))?(?::(\\d{2}))?"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return QTimeZone::utc();
    const int seconds =
        match.captured(2).toInt() * 3600 + match.captured(3).toInt() * 60 + match.captured(4).toInt();
    const int offset = match.captured(1) == QLatin1StringView("-") ? seconds : -seconds;
    return std::abs(offset) > LargestOffsetSeconds ? QTimeZone::utc() : QTimeZone(offset);
}

} // namespace

QTimeZone timeZoneFromDevice(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() || trimmed.size() > LongestText)
        return QTimeZone::utc();
    // Where the system knows POSIX texts, Qt takes them with their rules for summer time, whatever the
    // offset.
    const QTimeZone zone(trimmed.toLatin1());
    if (zone.isValid() &&
        std::abs(zone.offsetFromUtc(QDateTime::currentDateTimeUtc())) <= LargestOffsetSeconds)
        return zone;
    return fromPosixOffset(trimmed);
}

} // namespace orrin
