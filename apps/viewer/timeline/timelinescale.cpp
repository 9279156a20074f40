// SPDX-License-Identifier: GPL-3.0-or-later
#include "timeline/timelinescale.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

/*! Labels stand this many seconds apart, with this many notches between two. Whole days follow the calendar. */
struct TimelineScale::Step
{
    qint64 seconds;
    int notches;
};

namespace {

constexpr qint64 DaySeconds = 86'400;
constexpr double LabelRoom = 92.0; // pixels that a label and the blank around it take

} // namespace

TimelineScale::TimelineScale(QObject *parent) : QObject(parent) {}

void TimelineScale::setCentre(qint64 time)
{
    const qint64 kept = std::clamp(time, EarliestTime, LatestTime);
    if (kept == m_centre)
        return;
    m_centre = kept;
    update();
}

void TimelineScale::setSpan(qint64 span)
{
    const qint64 kept = std::clamp(span, ShortestSpan, LongestSpan);
    if (kept == m_span)
        return;
    m_span = kept;
    update();
}

void TimelineScale::setWidth(double width)
{
    const double kept = std::isfinite(width) ? std::clamp(width, 1.0, 100'000.0) : 1.0;
    if (kept == m_width)
        return;
    m_width = kept;
    update();
}

void TimelineScale::setZone(const QTimeZone &zone)
{
    const QTimeZone kept = zone.isValid() ? zone : QTimeZone::utc();
    if (kept == m_zone)
        return;
    m_zone = kept;
    update();
}

qint64 TimelineScale::timeAt(double x) const
{
    const double offset = std::clamp(x / m_width, -100.0, 100.0) * double(m_span);
    return std::clamp(from() + std::llround(offset), EarliestTime, LatestTime);
}

double TimelineScale::xOf(qint64 time) const
{
    const qint64 kept = std::clamp(time, EarliestTime, LatestTime);
    return double(kept - from()) / double(m_span) * m_width;
}

void TimelineScale::zoom(double factor, double x)
{
    if (!std::isfinite(factor) || factor <= 0.0)
        return;
    const qint64 fixed = timeAt(x);
    const double wanted = std::clamp(double(m_span) * factor, double(ShortestSpan), double(LongestSpan));
    m_span = std::llround(wanted);
    const qint64 start = fixed - std::llround(x / m_width * double(m_span));
    m_centre = std::clamp(start + m_span / 2, EarliestTime, LatestTime);
    update();
}

const TimelineScale::Step &TimelineScale::labelStep() const
{
    static constexpr std::array<Step, 17> steps{{{5, 5},
                                                 {10, 5},
                                                 {15, 3},
                                                 {30, 6},
                                                 {60, 6},
                                                 {120, 4},
                                                 {300, 5},
                                                 {600, 5},
                                                 {900, 3},
                                                 {1800, 6},
                                                 {3600, 6},
                                                 {2 * 3600, 4},
                                                 {3 * 3600, 6},
                                                 {6 * 3600, 6},
                                                 {12 * 3600, 6},
                                                 {DaySeconds, 4},
                                                 {7 * DaySeconds, 7}}};
    const double room = double(m_span) / 1000.0 * LabelRoom / m_width;
    const auto found =
        std::find_if(steps.begin(), steps.end(), [room](const Step &step) { return double(step.seconds) >= room; });
    return found == steps.end() ? steps.back() : *found;
}

qint64 TimelineScale::notchSeconds() const
{
    const Step &step = labelStep();
    return step.seconds / step.notches;
}

QString TimelineScale::tickLabel(const QDateTime &moment, const Step &step) const
{
    const QLocale locale;
    if (step.seconds >= DaySeconds || moment.time() == QTime(0, 0)) {
        //: a day on the timeline, in the pattern of QLocale
        return locale.toString(moment.date(), tr("ddd d MMM"));
    }
    return locale.toString(moment.time(), step.seconds < 60 ? u"HH:mm:ss"_s : u"HH:mm"_s);
}

void TimelineScale::update()
{
    QVariantList ticks = makeTicks();
    if (ticks != m_ticks) {
        m_ticks = std::move(ticks);
        Q_EMIT ticksChanged();
    }
    Q_EMIT scaleChanged();
}

QVariantList TimelineScale::makeTicks() const
{
    const Step &step = labelStep();
    const qint64 days = std::max<qint64>(1, step.seconds / DaySeconds);
    // Labels reach over the edges.
    const qint64 margin = std::min(step.seconds, DaySeconds) * 1000;
    QVariantList ticks;
    QDate day = QDateTime::fromMSecsSinceEpoch(from() - margin, m_zone).date();
    if (days > 1) // weeks begin where the user's weeks begin
        day = day.addDays(-((day.dayOfWeek() - int(QLocale().firstDayOfWeek()) + 7) % 7));
    for (; day.isValid(); day = day.addDays(days)) {
        const QDateTime start = day.startOfDay(m_zone);
        if (!start.isValid() || start.toMSecsSinceEpoch() > to() + margin)
            break;
        if (step.seconds >= DaySeconds)
            addTick(ticks, start, step);
        else
            addTicksOfDay(ticks, day, step);
    }
    return ticks;
}

/*! Day by day, so that labels stand on whole hours of the clock although a day may have 23 or 25 of them. */
void TimelineScale::addTicksOfDay(QVariantList &ticks, QDate day, const Step &step) const
{
    const QDateTime start = day.startOfDay(m_zone);
    const QDateTime end = day.addDays(1).startOfDay(m_zone);
    const qint64 margin = step.seconds * 1000;
    // Clocks change by half hours and more, so that finer steps stay on their grid.
    const qint64 room = step.seconds > 1800 ? 3 * 3600 : 0;
    const qint64 ahead = std::max<qint64>(0, (from() - start.toMSecsSinceEpoch()) / 1000 - room - step.seconds);
    for (qint64 second = ahead / step.seconds * step.seconds;; second += step.seconds) {
        QDateTime moment = start.addSecs(second);
        if (moment >= end || moment.toMSecsSinceEpoch() > to() + margin + room * 1000)
            return;
        const auto isOnGrid = [&] { return moment.time().msecsSinceStartOfDay() / 1000 % step.seconds == 0; };
        // One that a change of the clock has pushed off the grid goes back onto it, unless its time is left out that day.
        if (!isOnGrid())
            moment = moment.addSecs(start.offsetFromUtc() - moment.offsetFromUtc());
        const qint64 time = moment.toMSecsSinceEpoch();
        if (isOnGrid() && moment < end && time >= from() - margin && time <= to() + margin)
            addTick(ticks, moment, step);
    }
}

void TimelineScale::addTick(QVariantList &ticks, const QDateTime &moment, const Step &step) const
{
    ticks.append(QVariantMap{{u"time"_s, moment.toMSecsSinceEpoch()},
                             {u"label"_s, tickLabel(moment, step)},
                             {u"day"_s, moment == moment.date().startOfDay(m_zone)}});
}

QString TimelineScale::text(qint64 time) const
{
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(std::clamp(time, EarliestTime, LatestTime), m_zone);
    //: the moment at the playhead, in the pattern of QLocale
    return QLocale().toString(moment, tr("ddd d MMM yyyy  HH:mm:ss"));
}

QString TimelineScale::foreignZone() const
{
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(m_centre, m_zone);
    if (moment.offsetFromUtc() == moment.toLocalTime().offsetFromUtc())
        return {};
    return m_zone.displayName(moment, QTimeZone::ShortName);
}
