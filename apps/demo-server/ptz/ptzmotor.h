// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/view.h"
#include "ptz/ptzaxis.h"

#include <cstdint>
#include <mutex>
#include <optional>

namespace orrin::demo {

/*! What moves the view of a camera. Where it looks is a function of time and of what it was told before that, so that any moment can
    be drawn again. Thread-safe. Times are Unix times in milliseconds, by the device's clock. */
class PtzMotor
{
public:
    /*! Parts of the highest speed, -1 to 1; an axis without a value goes on as it does. */
    struct Speeds
    {
        std::optional<double> pan = {};
        std::optional<double> tilt = {};
        std::optional<double> zoom = {};
    };
    struct Position
    {
        std::optional<double> pan = {};
        std::optional<double> tilt = {};
        std::optional<double> zoom = {};
    };

    View viewAt(std::int64_t timeMs) const;
    /*! From 0, near, to 1, far. */
    double focusAt(std::int64_t timeMs) const;
    bool isMoving(std::int64_t timeMs) const;
    bool isFocusMoving(std::int64_t timeMs) const;

    /*! Moves at these speeds, and comes to rest after \a timeoutMs unless told otherwise before. */
    void move(std::int64_t nowMs, const Speeds &speeds, std::int64_t timeoutMs);
    void stop(std::int64_t nowMs, bool panTilt, bool zoom);
    /*! Goes there at a part, 0 to 1, of the highest speed. */
    void goTo(std::int64_t nowMs, const Position &position, double part = 1.0);
    void moveFocus(std::int64_t nowMs, double part);
    void focusTo(std::int64_t nowMs, double position);

private:
    mutable std::mutex m_mutex;
    PtzAxis m_pan{{-1.0, 1.0, 0.5, 2.0}, 0.0};
    PtzAxis m_tilt{{-1.0, 1.0, 0.5, 2.0}, 0.0};
    PtzAxis m_zoom{{0.0, 1.0, 0.5, 2.0}, 0.0};
    PtzAxis m_focus{{0.0, 1.0, 0.5, 2.0}, View::Sharp};
};

} // namespace orrin::demo
