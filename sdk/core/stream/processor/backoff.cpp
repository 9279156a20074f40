// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/backoff.h"

#include <QRandomGenerator>

#include <algorithm>

namespace orrin {

namespace {

constexpr int MaxAttempt = 6; // 2^6 is above MaxFactor
constexpr int JitterPercent = 20;

} // namespace

std::chrono::milliseconds BackOff::next()
{
    const int factor = std::min(1 << std::min(m_attempt, MaxAttempt), MaxFactor);
    m_attempt = std::min(m_attempt + 1, MaxAttempt);
    const int percent = 100 - JitterPercent + QRandomGenerator::global()->bounded(2 * JitterPercent + 1);
    return m_base * factor * percent / 100;
}

void BackOff::skipTo(int attempt)
{
    m_attempt = std::max(m_attempt, std::min(attempt, MaxAttempt));
}

} // namespace orrin
