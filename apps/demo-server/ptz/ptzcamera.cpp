// SPDX-License-Identifier: GPL-3.0-or-later
#include "ptz/ptzcamera.h"

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {

/*! The lowest number that no token in \a list is. */
template <class List> QString freeToken(const List &list)
{
    for (int number = 1;; ++number) {
        const QString token = QString::number(number);
        if (std::ranges::none_of(list, [&token](const auto &each) { return each.token == token; }))
            return token;
    }
}

} // namespace

PtzCamera::PtzCamera(std::shared_ptr<PtzMotor> motor, DeviceClock clock)
    : m_motor(std::move(motor))
    , m_clock(clock)
    , m_presets{{u"1"_s, u"Left"_s, {-0.8, 0.0, 0.3}},
                {u"2"_s, u"Right"_s, {0.8, 0.0, 0.3}},
                {u"3"_s, u"Close-up"_s, {0.2, -0.2, 0.9}}}
    , m_tours{{u"1"_s, u"Round"_s, {{u"1"_s, 1.0, 2000}, {u"2"_s, 1.0, 2000}}}}
{
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &PtzCamera::nextSpot);
}

const PtzPreset *PtzCamera::preset(const QString &token) const
{
    const auto found = std::ranges::find(m_presets, token, &PtzPreset::token);
    return found == m_presets.cend() ? nullptr : &*found;
}

QString PtzCamera::setPreset(const QString &token, const QString &name)
{
    const View view = m_motor->viewAt(nowMs());
    if (token.isEmpty()) {
        if (m_presets.size() >= MaximumPresets)
            return {};
        const QString made = freeToken(m_presets);
        m_presets.append({made, name.isEmpty() ? u"Preset %1"_s.arg(made) : name, view});
        return made;
    }
    const auto found = std::ranges::find(m_presets, token, &PtzPreset::token);
    if (found == m_presets.end())
        return {};
    found->view = view;
    if (!name.isEmpty())
        found->name = name;
    return token;
}

bool PtzCamera::removePreset(const QString &token)
{
    return m_presets.removeIf([&token](const PtzPreset &each) { return each.token == token; }) > 0;
}

bool PtzCamera::goToPreset(const QString &token, double speed)
{
    const PtzPreset *found = preset(token);
    if (!found)
        return false;
    m_motor->goTo(nowMs(), {found->view.pan, found->view.tilt, found->view.zoom}, speed);
    return true;
}

void PtzCamera::setHome()
{
    m_home = m_motor->viewAt(nowMs());
}

void PtzCamera::goHome(double speed)
{
    m_motor->goTo(nowMs(), {m_home.pan, m_home.tilt, m_home.zoom}, speed);
}

PtzTour *PtzCamera::tour(const QString &token)
{
    const auto found = std::ranges::find(m_tours, token, &PtzTour::token);
    return found == m_tours.end() ? nullptr : &*found;
}

QString PtzCamera::addTour()
{
    if (m_tours.size() >= MaximumTours)
        return {};
    const QString token = freeToken(m_tours);
    m_tours.append({token, u"Tour %1"_s.arg(token), {}});
    return token;
}

bool PtzCamera::removeTour(const QString &token)
{
    if (m_running == token)
        stopTour();
    return m_tours.removeIf([&token](const PtzTour &each) { return each.token == token; }) > 0;
}

bool PtzCamera::startTour(const QString &token)
{
    const PtzTour *found = tour(token);
    if (!found || found->spots.isEmpty())
        return false;
    m_running = token;
    m_spot = 0;
    nextSpot();
    return true;
}

void PtzCamera::stopTour()
{
    if (m_running.isEmpty())
        return;
    m_next.stop();
    m_running.clear();
    m_motor->stop(nowMs(), true, true);
}

void PtzCamera::nextSpot()
{
    // No place is further away than this.
    constexpr int LongestWayMs = 4500;
    const PtzTour *running = tour(m_running);
    if (!running || running->spots.isEmpty()) {
        m_running.clear();
        return;
    }
    const PtzTourSpot spot = running->spots.at(m_spot % running->spots.size());
    ++m_spot;
    goToPreset(spot.preset, spot.speed);
    m_next.start(LongestWayMs + spot.stayMs);
}

} // namespace orrin::demo
