// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/scene.h"

#include <QColor>
#include <QRectF>

#include <initializer_list>

/*! What the scenes paint with. Pure functions; units are those of the world. */
namespace orrin::demo::scenepainting {

inline constexpr double W = Scene::WorldWidth;
inline constexpr double H = Scene::WorldHeight;

/*! A colour by hue (any whole number, in degrees), saturation and value (0 to 255). */
QColor tone(int hue, int saturation, int value);

void fillGradient(QPainter &painter, const QRectF &rect, const QColor &top, const QColor &bottom);
void fillPolygon(QPainter &painter, std::initializer_list<QPointF> points, const QColor &colour);
void paintTree(QPainter &painter, QPointF foot, double height, int hue);
void paintWindows(QPainter &painter, const QRectF &wall, int columns, int rows, const QColor &glass);

/*! A car from its side, looking right or left. */
SpriteArt carArt(const QColor &colour, bool toTheRight, double scale = 1.0);
SpriteArt personArt(const QColor &coat, double height = 130);
SpriteArt cloudArt(double width);

} // namespace orrin::demo::scenepainting
