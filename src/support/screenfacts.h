// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>
#include <QString>

/*! What the primary screen of the application looks like, asked anew at each call. Main thread.

    Without a screen, or without an application object, sizes are empty, numbers 0 and texts empty, and the pixel ratio is 1. */
namespace orrin::screenfacts {

/*! The size in device independent pixels that is left beside task bars and the like. */
QSize availableSize();
/*! The whole size in device independent pixels. */
QSize size();
/*! Values of Qt::ScreenOrientation. */
int orientation();
int primaryOrientation();
/*! Device pixels per device independent pixel. */
double devicePixelRatio();
/*! Device independent dots per inch of glass. */
double dotsPerInch();
/*! True when nothing of the screen is taken by task bars and the like. */
bool isFullyAvailable();
QString name();

} // namespace orrin::screenfacts
