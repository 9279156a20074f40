// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace orrin {

/*! A rectangle in normalised device coordinates: x from left (-1) to right (1), y from bottom (-1) to top (1).
    (x1, y1) is the rectangle's top left, (x2, y2) its bottom right. */
struct NDCRect
{
    double x1 = 0.0;
    double y1 = 0.0;
    double x2 = 0.0;
    double y2 = 0.0;
};

} // namespace orrin
