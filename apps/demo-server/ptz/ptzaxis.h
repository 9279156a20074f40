// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>

namespace orrin::demo {

/*! One axis of a camera that moves: where it is, as a function of time, made of all that it was told so far.

    It has inertia, so that a speed is reached and lost at a steady acceleration, and ends, at which it stands. What it
    was told to do later is a part of the function as well, until it is told something else. A value; not
    thread-safe. Times are Unix times in milliseconds. */
class PtzAxis
{
public:
    struct Limits
    {
        double low = -1.0;
        double high = 1.0;
        double speed = 0.5;        //!< the highest, in units a second
        double acceleration = 2.0; //!< in units a second, a second
    };

    /*! Orders that are kept; what lies before is forgotten. */
    static constexpr std::size_t MaximumPieces = 8192;

    PtzAxis(const Limits &limits, double position);

    /*! From \a timeMs on, the axis is brought to \a part, -1 to 1, of its highest speed. */
    void drive(std::int64_t timeMs, double part);
    /*! From \a timeMs on, the axis goes to \a target at \a part, 0 to 1, of its highest speed, and stands there. */
    void goTo(std::int64_t timeMs, double target, double part = 1.0);

    double position(std::int64_t timeMs) const;
    /*! Units a second. */
    double speed(std::int64_t timeMs) const;
    /*! Also true at the moment at which it begins to move. */
    bool isMoving(std::int64_t timeMs) const;

private:
    /*! From \a start on, until the next piece begins. */
    struct Piece
    {
        double start = 0.0; // ms
        double position = 0.0;
        double speed = 0.0;        // units a second
        double acceleration = 0.0; // units a second, a second

        double positionAt(double timeMs) const;
        double speedAt(double timeMs) const;
    };

    const Piece &pieceAt(double timeMs) const;
    Piece cutAt(double timeMs);
    Piece ramp(Piece from, double speed);
    double timeToLimit(const Piece &piece, double seconds) const;
    void append(const Piece &piece);

    Limits m_limits;
    std::deque<Piece> m_pieces;
};

} // namespace orrin::demo
