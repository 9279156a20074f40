// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/*! The arithmetic that turns percentages into pixels. Pure functions, safe from any thread.

    Each one works in doubles and in the order written, since another order rounds otherwise. A result beyond the range of an
    int becomes the end of that range, one that is no number becomes 0. */
namespace orrin::settingshints {

/*! The base unit in pixels of a screen with \a dotsPerInch: 10 at least. */
int scaleUnit(double dotsPerInch);

/*! Pixel sizes at a \a percentage and a \a scaleUnit in pixels. */
double fontPixelSize(double percentage, int scaleUnit);
int controlHeight(int percentage, int scaleUnit);
int controlMargins(int percentage, int scaleUnit);
int controlRadius(int percentage, int scaleUnit);
int borderWidth(int percentage, int scaleUnit);
int borderActiveWidth(int percentage, int scaleUnit);

} // namespace orrin::settingshints
