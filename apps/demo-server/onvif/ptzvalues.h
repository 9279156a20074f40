// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "onvif/soaprequest.h"

#include <chrono>
#include <optional>
#include <utility>

/*! Reading what requests to the PTZ service say of positions, speeds and times. */
namespace orrin::demo::ptzvalues {

struct Vector
{
    std::optional<double> pan = {};
    std::optional<double> tilt = {};
    std::optional<double> zoom = {};
};

using Range = std::pair<double, double>;

/*! The values of a PTZ vector; nothing when there is no element, when it names no axis, or when a value is no number of its range. */
std::optional<Vector> read(const XmlElement *element, Range panTilt, Range zoom);

/*! The part of the highest speed that a move is asked for, 1 without one. */
double readSpeed(const XmlElement &operation);

/*! A duration of hours, minutes and seconds; nothing when it is another. */
std::optional<std::chrono::milliseconds> readDuration(const QString &text);

} // namespace orrin::demo::ptzvalues
