// SPDX-License-Identifier: GPL-3.0-or-later
#include "ptz/ptzaxis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace orrin::demo {

namespace {
constexpr double Never = std::numeric_limits<double>::infinity();
constexpr double Tiny = 1e-9;
} // namespace

double PtzAxis::Piece::positionAt(double timeMs) const
{
    const double seconds = std::max(0.0, timeMs - start) / 1000;
    return position + speed * seconds + acceleration * seconds * seconds / 2;
}

double PtzAxis::Piece::speedAt(double timeMs) const
{
    return speed + acceleration * std::max(0.0, timeMs - start) / 1000;
}

PtzAxis::PtzAxis(const Limits &limits, double position) : m_limits(limits)
{
    Piece rest;
    rest.position = std::clamp(position, limits.low, limits.high);
    m_pieces.push_back(rest);
}

const PtzAxis::Piece &PtzAxis::pieceAt(double timeMs) const
{
    const auto after = std::upper_bound(m_pieces.begin(), m_pieces.end(), timeMs,
                                        [](double time, const Piece &piece) { return time < piece.start; });
    return after == m_pieces.begin() ? m_pieces.front() : *std::prev(after);
}

double PtzAxis::position(std::int64_t timeMs) const
{
    return std::clamp(pieceAt(double(timeMs)).positionAt(double(timeMs)), m_limits.low, m_limits.high);
}

double PtzAxis::speed(std::int64_t timeMs) const
{
    return pieceAt(double(timeMs)).speedAt(double(timeMs));
}

bool PtzAxis::isMoving(std::int64_t timeMs) const
{
    const Piece &piece = pieceAt(double(timeMs));
    return std::abs(piece.speedAt(double(timeMs))) > 1e-6 || piece.acceleration != 0.0;
}

/*! Forgets what was to come after \a timeMs; the state at that time. */
PtzAxis::Piece PtzAxis::cutAt(double timeMs)
{
    const Piece &piece = pieceAt(timeMs);
    Piece now;
    now.start = timeMs;
    now.position = std::clamp(piece.positionAt(timeMs), m_limits.low, m_limits.high);
    now.speed = piece.speedAt(timeMs);
    while (!m_pieces.empty() && m_pieces.back().start >= timeMs)
        m_pieces.pop_back();
    return now;
}

void PtzAxis::append(const Piece &piece)
{
    m_pieces.push_back(piece);
    if (m_pieces.size() > MaximumPieces)
        m_pieces.pop_front();
}

/*! Seconds until \a piece runs into an end of the axis, or Never when that is not within \a seconds. */
double PtzAxis::timeToLimit(const Piece &piece, double seconds) const
{
    double first = Never;
    for (const auto &[limit, outwards] : {std::pair(m_limits.high, 1.0), std::pair(m_limits.low, -1.0)}) {
        const double way = (limit - piece.position) * outwards;
        const double speed = piece.speed * outwards;
        const double acceleration = piece.acceleration * outwards;
        if (way <= Tiny) {
            if (speed > Tiny || (std::abs(speed) <= Tiny && acceleration > 0))
                return 0;
            continue;
        }
        std::array<double, 2> roots{Never, Never};
        if (std::abs(acceleration) < Tiny) {
            if (speed > Tiny)
                roots[0] = way / speed;
        } else if (const double root = speed * speed + 2 * acceleration * way; root >= 0) {
            roots = {(-speed + std::sqrt(root)) / acceleration, (-speed - std::sqrt(root)) / acceleration};
        }
        for (const double time : roots) {
            if (time > 0 && time <= seconds)
                first = std::min(first, time);
        }
    }
    return first;
}

/*! Brings the axis from a state to \a speed; the state in which it then goes on, which is appended too. */
PtzAxis::Piece PtzAxis::ramp(Piece from, double speed)
{
    // It runs into an end at most once and turns round there.
    for (int leg = 0; leg < 4; ++leg) {
        const double change = speed - from.speed;
        const bool steady = std::abs(change) < Tiny;
        from.acceleration = steady ? 0.0 : std::copysign(m_limits.acceleration, change);
        const double seconds = steady ? Never : std::abs(change) / m_limits.acceleration;
        const double limit = timeToLimit(from, seconds);
        append(from);
        Piece next;
        if (limit == Never) {
            if (steady)
                return from;
            next.start = from.start + seconds * 1000;
            next.position = from.positionAt(next.start);
            next.speed = speed;
        } else {
            next.start = from.start + limit * 1000;
            next.position = std::clamp(from.positionAt(next.start), m_limits.low, m_limits.high);
            const bool atHigh = next.position > (m_limits.low + m_limits.high) / 2;
            next.position = atHigh ? m_limits.high : m_limits.low;
            if (atHigh ? speed >= 0 : speed <= 0)
                speed = 0;
        }
        from = next;
    }
    from.speed = 0;
    append(from);
    return from;
}

void PtzAxis::drive(std::int64_t timeMs, double part)
{
    ramp(cutAt(double(timeMs)), std::clamp(part, -1.0, 1.0) * m_limits.speed);
}

void PtzAxis::goTo(std::int64_t timeMs, double target, double part)
{
    const Piece halt = ramp(cutAt(double(timeMs)), 0);
    const double end = std::clamp(target, m_limits.low, m_limits.high);
    const double way = std::abs(end - halt.position);
    const double direction = end < halt.position ? -1.0 : 1.0;
    const double highest = std::clamp(part, 0.01, 1.0) * m_limits.speed;
    if (way < Tiny)
        return;
    const double top = std::min(highest, std::sqrt(way * m_limits.acceleration));
    const double rise = top / m_limits.acceleration;
    const double cruise = (way - top * rise) / top;
    Piece piece = halt;
    piece.acceleration = direction * m_limits.acceleration;
    append(piece);
    piece.position = piece.positionAt(piece.start + rise * 1000);
    piece.start += rise * 1000;
    piece.speed = direction * top;
    piece.acceleration = 0;
    append(piece);
    piece.position = piece.positionAt(piece.start + cruise * 1000);
    piece.start += cruise * 1000;
    piece.acceleration = -direction * m_limits.acceleration;
    append(piece);
    piece.start += rise * 1000;
    piece.position = end;
    piece.speed = 0;
    piece.acceleration = 0;
    append(piece);
}

} // namespace orrin::demo
