// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/reconnecttimer.h"

#include <QRandomGenerator>

#include <algorithm>

namespace orrin {

ReconnectTimer::ReconnectTimer(std::chrono::milliseconds first, std::chrono::milliseconds longest,
                               QObject *parent)
    : QObject(parent)
    , m_first(std::max(first, std::chrono::milliseconds(1)))
    , m_longest(std::max(longest, m_first))
    , m_next(m_first)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &ReconnectTimer::due);
}

void ReconnectTimer::scheduleNext()
{
    start(m_next);
    m_next = std::min(m_next * 2, m_longest);
}

void ReconnectTimer::scheduleLongest()
{
    m_next = m_longest;
    start(m_longest);
}

void ReconnectTimer::reset()
{
    m_timer.stop();
    m_next = m_first;
}

void ReconnectTimer::start(std::chrono::milliseconds wait)
{
    const double factor = 0.8 + 0.4 * QRandomGenerator::global()->generateDouble();
    const auto varied =
        std::chrono::milliseconds(static_cast<qint64>(static_cast<double>(wait.count()) * factor));
    m_timer.start(std::clamp(varied, std::chrono::milliseconds(1), m_longest));
}

} // namespace orrin
