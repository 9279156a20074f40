// SPDX-License-Identifier: GPL-3.0-or-later
#include "ptz/ptzmotor.h"

namespace orrin::demo {

View PtzMotor::viewAt(std::int64_t timeMs) const
{
    const std::lock_guard lock(m_mutex);
    return {m_pan.position(timeMs), m_tilt.position(timeMs), m_zoom.position(timeMs), m_focus.position(timeMs)};
}

double PtzMotor::focusAt(std::int64_t timeMs) const
{
    const std::lock_guard lock(m_mutex);
    return m_focus.position(timeMs);
}

bool PtzMotor::isMoving(std::int64_t timeMs) const
{
    const std::lock_guard lock(m_mutex);
    return m_pan.isMoving(timeMs) || m_tilt.isMoving(timeMs) || m_zoom.isMoving(timeMs);
}

bool PtzMotor::isFocusMoving(std::int64_t timeMs) const
{
    const std::lock_guard lock(m_mutex);
    return m_focus.isMoving(timeMs);
}

void PtzMotor::move(std::int64_t nowMs, const Speeds &speeds, std::int64_t timeoutMs)
{
    const std::lock_guard lock(m_mutex);
    for (const auto &[axis, part] :
         {std::pair(&m_pan, speeds.pan), std::pair(&m_tilt, speeds.tilt), std::pair(&m_zoom, speeds.zoom)}) {
        if (!part)
            continue;
        axis->drive(nowMs, *part);
        axis->drive(nowMs + timeoutMs, 0.0);
    }
}

void PtzMotor::stop(std::int64_t nowMs, bool panTilt, bool zoom)
{
    const std::lock_guard lock(m_mutex);
    if (panTilt) {
        m_pan.drive(nowMs, 0.0);
        m_tilt.drive(nowMs, 0.0);
    }
    if (zoom)
        m_zoom.drive(nowMs, 0.0);
}

void PtzMotor::goTo(std::int64_t nowMs, const Position &position, double part)
{
    const std::lock_guard lock(m_mutex);
    for (const auto &[axis, target] : {std::pair(&m_pan, position.pan), std::pair(&m_tilt, position.tilt),
                                       std::pair(&m_zoom, position.zoom)}) {
        if (target)
            axis->goTo(nowMs, *target, part);
    }
}

void PtzMotor::moveFocus(std::int64_t nowMs, double part)
{
    const std::lock_guard lock(m_mutex);
    m_focus.drive(nowMs, part);
}

void PtzMotor::focusTo(std::int64_t nowMs, double position)
{
    const std::lock_guard lock(m_mutex);
    m_focus.goTo(nowMs, position);
}

} // namespace orrin::demo
