// SPDX-License-Identifier: GPL-3.0-or-later
#include "site/statistics.h"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MinuteMs = 60000;
constexpr qint64 HourMs = 60 * MinuteMs;
constexpr qint64 DayMs = 24 * HourMs;

using Moment = std::optional<Incidents::Moment>;

// 0 at night, 1 in the afternoon.
double daylight(qint64 timeMs)
{
    const double hour = double(timeMs % DayMs) / double(HourMs);
    return 0.5 - 0.5 * std::cos((hour - 2) / 24 * 2 * std::numbers::pi);
}

// How far an incident has gone, from 0 to 1.
double progress(qint64 timeMs, const Incidents::Moment &incident)
{
    return double(timeMs - incident.beginMs) / double(incident.endMs - incident.beginMs);
}

Figure figure(const QString &heading, Figure::Function value, const Incidents &incidents = {}, bool isLetter = false)
{
    return {heading, std::move(value), incidents, isLetter};
}

// A level with a daily swing and some unrest, never below 0.
Figure::Function level(quint64 seed, double base, double swing, double unrest)
{
    return [=](qint64 timeMs, const Moment &) {
        return std::max(0.0, base + swing * daylight(timeMs) + unrest * (wave(seed, timeMs, 7 * MinuteMs) - 0.5) +
                                 unrest * 0.4 * (noise(seed ^ 7, timeMs / Statistics::IntervalMs) - 0.5));
    };
}

// The same, but at \a peak while something is wrong.
Figure::Function levelWithPeaks(quint64 seed, double base, double swing, double unrest, double peak)
{
    return [normal = level(seed, base, swing, unrest), peak](qint64 timeMs, const Moment &incident) {
        const double value = normal(timeMs, incident);
        return incident ? value + (peak - value) * std::sin(progress(timeMs, *incident) * std::numbers::pi * 0.9 + 0.15) : value;
    };
}

// Nothing, but \a peak while something is wrong.
Figure::Function quietBut(double peak)
{
    return [peak](qint64, const Moment &incident) { return incident ? peak * (0.4 + 0.6 * double(incident->kind % 1000) / 1000) : 0.0; };
}

double systemState(qint64 timeMs, const Moment &incident)
{
    if (!incident)
        return 3; // recording
    static constexpr std::array<std::array<int, 3>, 4> Courses{{{6, 2, 1}, {7, 7, 7}, {8, 9, 8}, {2, 1, 1}}};
    const auto &course = Courses[incident->kind % Courses.size()];
    return course[std::size_t(std::clamp(progress(timeMs, *incident) * 3, 0.0, 2.0))];
}

double cameraState(qint64 timeMs, const Moment &incident)
{
    if (!incident)
        return 1; // recording
    static constexpr std::array<std::array<int, 4>, 5> Courses{
        {{22, 22, 35, 36}, {29, 35, 27, 36}, {33, 30, 35, 36}, {37, 37, 31, 36}, {28, 4, 34, 36}}};
    const auto &course = Courses[incident->kind % Courses.size()];
    return course[std::size_t(std::clamp(progress(timeMs, *incident) * 4, 0.0, 3.0))];
}

double diskState(qint64 timeMs, const Moment &incident)
{
    if (!incident)
        return u'G';
    static constexpr std::array<QStringView, 4> Courses{u"XMR", u"DRR", u"LLL", u"ENF"};
    const QStringView course = Courses[incident->kind % Courses.size()];
    return course.at(qsizetype(std::clamp(progress(timeMs, *incident) * 3, 0.0, 2.0))).unicode();
}

std::optional<qint64> numberOf(const HttpRequest &request, const QString &name)
{
    bool valid = false;
    const qint64 number = request.query.queryItemValue(name).toLongLong(&valid);
    return valid ? std::optional(number) : std::nullopt;
}

} // namespace

Statistics::Statistics(const RecorderInfo &recorder, const User &user)
    : m_seed(recorder.uid)
{
    addSystem();
    addNetwork();
    addDisks();
    for (const Camera &camera : recorder.cameras) {
        if (camera.permittedFor(user.name))
            addCamera(camera);
    }
    addSensors();
}

void Statistics::addSystem()
{
    const Incidents faults{m_seed ^ 0x11, 2 * DayMs, 0.6, 25 * MinuteMs};
    const Incidents bursts{m_seed ^ 0x12, 6 * HourMs, 0.7, 4 * MinuteMs};
    constexpr double TotalMB = 11.8e6;
    // The ring is full: what is deleted in the night is recorded again during the day.
    const auto used = [seed = m_seed ^ 0x13](qint64 timeMs) {
        return std::round(TotalMB * (0.93 + 0.03 * double(timeMs % DayMs) / double(DayMs) + 0.01 * wave(seed, timeMs, DayMs)));
    };
    m_figures.append(figure(u"Status"_s, systemState, faults));
    m_figures.append(figure(u"UsedMB"_s, [used](qint64 timeMs, const Moment &) { return used(timeMs); }));
    m_figures.append(figure(u"FreeMB"_s, [used](qint64 timeMs, const Moment &) { return TotalMB - used(timeMs); }));
    m_figures.append(figure(u"CPU%"_s, levelWithPeaks(m_seed ^ 0x14, 14, 16, 9, 94), bursts));
    for (int core = 0; core < 4; ++core)
        m_figures.append(figure(u"cpu%1%"_s.arg(core), levelWithPeaks(m_seed ^ quint64(0x20 + core), 12, 18, 14, 99), bursts));
    m_figures.append(figure(
        u"ntp_ms"_s,
        [seed = m_seed ^ 0x15](qint64 timeMs, const Moment &incident) {
            return (wave(seed, timeMs, 20 * MinuteMs) - 0.5) * 6 + (incident ? 180.0 * (1 - progress(timeMs, *incident)) : 0.0);
        },
        {m_seed ^ 0x16, 5 * DayMs, 0.5, 40 * MinuteMs}));
    m_figures.append(figure(
        u"stratum"_s, [](qint64, const Moment &incident) { return incident ? 16.0 : 3.0; }, {m_seed ^ 0x16, 5 * DayMs, 0.5, 40 * MinuteMs}));
}

void Statistics::addNetwork()
{
    for (int port = 0; port < 2; ++port) {
        const quint64 seed = m_seed ^ quint64(0x100 + port * 16);
        const QString name = u"eth%1"_s.arg(port);
        const Incidents trouble{seed ^ 3, 18 * HourMs, 0.4, 6 * MinuteMs};
        m_figures.append(figure(name + "_rx"_L1, levelWithPeaks(seed ^ 1, port == 0 ? 12500 : 900, 1500, 800, 28000), trouble));
        m_figures.append(figure(name + "_tx"_L1, level(seed ^ 2, port == 0 ? 700 : 4200, port == 0 ? 200 : 5200, 600)));
        m_figures.append(figure(name + "_err"_L1, quietBut(2.5), trouble));
        m_figures.append(figure(name + "_drop"_L1, quietBut(14), trouble));
    }
}

void Statistics::addDisks()
{
    for (int disk = 1; disk <= 4; ++disk) {
        const quint64 seed = m_seed ^ quint64(0x200 + disk * 16);
        const QString name = QString::number(disk);
        m_figures.append(figure(u"Disk_"_s + name, diskState, {seed ^ 1, 20 * DayMs, disk == 2 ? 0.9 : 0.3, 2 * DayMs}, true));
        m_figures.append(figure(u"Use%_"_s + name, level(seed ^ 2, 92 + disk, 2, 0.3)));
        m_figures.append(figure(u"Temp_"_s + name, levelWithPeaks(seed ^ 3, 33 + disk, 5, 1, 58), {seed ^ 4, 9 * DayMs, 0.5, 3 * HourMs}));
        m_figures.append(figure(u"WriteRate_"_s + name, level(seed ^ 5, 0.4, 0.25, 0.2)));
    }
}

void Statistics::addCamera(const Camera &camera)
{
    const quint64 seed = m_seed ^ (quint64(camera.id) << 20);
    const QString name = u"C%1"_s.arg(camera.id);
    if (!camera.enabled) {
        m_figures.append(figure(name, [](qint64, const Moment &) { return 0.0; }));
        return;
    }
    const Incidents outages{seed ^ 1, 8 * HourMs, 0.35, 12 * MinuteMs};
    const double rate = camera.profiles.isEmpty() ? 1000 : camera.profiles.first().bitrateKbit;
    const double pictures = camera.profiles.isEmpty() ? 15 : camera.profiles.first().rate;
    const auto unlessOut = [](Figure::Function normal, double out) {
        return [normal = std::move(normal), out](qint64 timeMs, const Moment &incident) { return incident ? out : normal(timeMs, {}); };
    };
    m_figures.append(figure(name, cameraState, outages));
    m_figures.append(figure(name + "rx"_L1, unlessOut(level(seed ^ 2, rate * 0.7, rate * 0.4, rate * 0.3), 0), outages));
    m_figures.append(figure(name + "rj"_L1, quietBut(3), {seed ^ 3, 3 * HourMs, 0.4, MinuteMs}));
    m_figures.append(figure(name + "ij"_L1, unlessOut(level(seed ^ 4, 3, 2, 3), 0), outages));
    for (const Track &track : camera.tracks) {
        if (!track.type.startsWith("track"_L1) || !track.enabled)
            continue;
        const QString trackName = u"%1t%2"_s.arg(name).arg(track.id);
        const quint64 trackSeed = seed ^ (quint64(track.id) << 8);
        m_figures.append(figure(trackName + u'b', unlessOut(level(trackSeed ^ 5, rate * 0.65, rate * 0.35, rate * 0.25), 0), outages));
        m_figures.append(figure(trackName + u'd', quietBut(1.5), {trackSeed ^ 6, 5 * HourMs, 0.4, 2 * MinuteMs}));
        m_figures.append(figure(trackName + u'r', unlessOut(level(trackSeed ^ 7, pictures - 0.2, 0, 0.4), 0), outages));
    }
}

void Statistics::addSensors()
{
    m_figures.append(figure(u"CPU/C"_s, levelWithPeaks(m_seed ^ 0x301, 44, 9, 3, 88), {m_seed ^ 0x12, 6 * HourMs, 0.7, 4 * MinuteMs}));
    m_figures.append(figure(u"Board/C"_s, level(m_seed ^ 0x302, 33, 6, 0.6)));
    m_figures.append(figure(u"12V/V"_s, level(m_seed ^ 0x303, 12.08, -0.05, 0.06)));
    m_figures.append(figure(u"PSU1/W"_s, level(m_seed ^ 0x304, 168, 24, 14)));
    m_figures.append(figure(u"FAN1"_s, level(m_seed ^ 0x305, 2600, 700, 120)));
    m_figures.append(figure(u"FAN2"_s, levelWithPeaks(m_seed ^ 0x306, 2550, 700, 120, 0), {m_seed ^ 0x307, 30 * DayMs, 0.5, 5 * HourMs}));
}

QJsonObject Statistics::contents(qint64 nowMs) const
{
    QJsonArray headings;
    for (const Figure &each : m_figures)
        headings.append(each.heading);
    return {{u"headings"_s, headings}, {u"intervalSeconds"_s, IntervalMs / 1000}, {u"oldest"_s, nowMs - KeptMs}};
}

QJsonObject Statistics::page(qint64 fromMs, qint64 toMs, qint64 stepMs, qint64 nowMs) const
{
    const qint64 step = std::max(stepMs / IntervalMs, qint64(1)) * IntervalMs;
    const bool hasExtremes = step > IntervalMs;
    const qint64 last = std::min(toMs, nowMs);
    const qint64 first = std::max(fromMs, nowMs - KeptMs);
    const qint64 most = std::max<qint64>(PageValues / (m_figures.size() * (hasExtremes ? 2 : 1)), 1);
    QList<qint64> begins;
    qint64 begin = first - first % step;
    if (begin < first && !hasExtremes)
        begin += step;
    for (; begin <= last && begins.size() < most; begin += step)
        begins.append(begin);

    QJsonArray times;
    for (const qint64 each : std::as_const(begins))
        times.append(each);
    QJsonArray series;
    for (const Figure &each : m_figures) {
        QJsonArray low;
        QJsonArray high;
        for (const qint64 slot : std::as_const(begins)) {
            // What has not happened yet is no part of the last slot.
            const auto values = hasExtremes ? each.extremes(slot, std::min(slot + step, last + 1), IntervalMs) : std::pair(each.at(slot), 0.0);
            low.append(each.json(values.first));
            if (hasExtremes)
                high.append(each.json(values.second));
        }
        QJsonObject entry{{u"heading"_s, each.heading}, {u"low"_s, low}};
        if (hasExtremes)
            entry.insert(u"high"_s, high);
        series.append(entry);
    }
    QJsonObject page{{u"times"_s, times}, {u"series"_s, series}};
    if (begin <= last)
        page.insert(u"next"_s, begin);
    return page;
}

void Statistics::answer(const RecorderInfo &recorder, const User &user, const QString &path, const HttpRequest &request, HttpReply reply)
{
    if (user.level == UserLevel::User)
        return reply.sendJson(403, {});
    const qint64 nowMs = recorder.clock.nowMs();
    const Statistics statistics(recorder, user);
    if (path == "/headings"_L1)
        return reply.sendJson(200, statistics.contents(nowMs));
    if (!path.isEmpty())
        return reply.sendJson(404, {});
    // Moments that a client can mean: from 1970 to 9999, and a step of up to ten years.
    constexpr qint64 LastMoment = 253402300799999;
    const std::optional<qint64> from = numberOf(request, u"from"_s);
    const std::optional<qint64> to = numberOf(request, u"to"_s);
    const qint64 step = numberOf(request, u"step"_s).value_or(IntervalMs / 1000);
    if (!from || !to || *from < -LastMoment || *to < *from || *to > LastMoment || step < 1 || step > 10LL * 366 * 86400)
        return reply.sendJson(400, {});
    reply.sendJson(200, statistics.page(*from, *to, step * 1000, nowMs));
}

} // namespace orrin::demo
