// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>

namespace orrin {

/*! What a display draws into. */
enum class WidgetType : int { None = 0, RasterWidget = 1, GLWidget = 2, QuickItem = 3 };

/*! What a display shows. */
enum class DisplayType : int { Audio = 0, Still = 1, Video = 2 };

/*! A zoom as stored by hosts that paint with the library. */
struct ZoomInfo
{
    double factor = 1.0;
    QRectF rect;
};

} // namespace orrin
