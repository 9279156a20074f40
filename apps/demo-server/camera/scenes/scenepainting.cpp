// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/scenes/scenepainting.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace orrin::demo::scenepainting {

QColor tone(int hue, int saturation, int value)
{
    return QColor::fromHsv(((hue % 360) + 360) % 360, saturation, value);
}

void fillGradient(QPainter &painter, const QRectF &rect, const QColor &top, const QColor &bottom)
{
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    painter.fillRect(rect, gradient);
}

void fillPolygon(QPainter &painter, std::initializer_list<QPointF> points, const QColor &colour)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF(QList<QPointF>(points)));
}

void paintTree(QPainter &painter, QPointF foot, double height, int hue)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(tone(25, 120, 80));
    painter.drawRect(QRectF(foot.x() - height * 0.04, foot.y() - height * 0.4, height * 0.08, height * 0.4));
    painter.setBrush(tone(hue, 140, 110));
    painter.drawEllipse(QPointF(foot.x(), foot.y() - height * 0.65), height * 0.3, height * 0.36);
    painter.setBrush(tone(hue, 130, 135));
    painter.drawEllipse(QPointF(foot.x() - height * 0.07, foot.y() - height * 0.75), height * 0.18,
                        height * 0.2);
}

void paintWindows(QPainter &painter, const QRectF &wall, int columns, int rows, const QColor &glass)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(glass);
    const double cellWidth = wall.width() / columns;
    const double cellHeight = wall.height() / rows;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            painter.drawRect(QRectF(wall.x() + (column + 0.2) * cellWidth,
                                    wall.y() + (row + 0.2) * cellHeight, cellWidth * 0.6, cellHeight * 0.6));
    }
}

SpriteArt carArt(const QColor &colour, bool toTheRight, double scale)
{
    return {QSizeF(200, 90) * scale, [=](QPainter &painter) {
                painter.scale(scale, scale);
                if (!toTheRight) {
                    painter.translate(200, 0);
                    painter.scale(-1, 1);
                }
                painter.setPen(Qt::NoPen);
                painter.setBrush(QColor(0, 0, 0, 70));
                painter.drawEllipse(QRectF(4, 74, 192, 15));
                QPainterPath body;
                body.moveTo(6, 72);
                body.lineTo(8, 44);
                body.lineTo(46, 38);
                body.cubicTo(62, 6, 70, 6, 84, 6);
                body.lineTo(118, 6);
                body.cubicTo(136, 8, 148, 30, 154, 38);
                body.lineTo(190, 46);
                body.lineTo(195, 72);
                body.closeSubpath();
                painter.setBrush(colour);
                painter.drawPath(body);
                painter.setBrush(QColor(180, 215, 235));
                painter.drawPolygon(QPolygonF(QList<QPointF>{{60, 38}, {74, 14}, {96, 14}, {96, 38}}));
                painter.drawPolygon(QPolygonF(QList<QPointF>{{102, 38}, {102, 14}, {117, 14}, {142, 38}}));
                painter.setBrush(QColor(255, 245, 200));
                painter.drawEllipse(QRectF(184, 48, 10, 10));
                for (const double x : {46.0, 154.0}) {
                    painter.setBrush(QColor(25, 25, 28));
                    painter.drawEllipse(QPointF(x, 70), 18, 18);
                    painter.setBrush(QColor(150, 150, 155));
                    painter.drawEllipse(QPointF(x, 70), 9, 9);
                }
            }};
}

SpriteArt personArt(const QColor &coat, double height)
{
    return {QSizeF(height * 0.4, height), [=](QPainter &painter) {
                painter.scale(height / 130, height / 130);
                painter.setPen(Qt::NoPen);
                painter.setBrush(QColor(0, 0, 0, 70));
                painter.drawEllipse(QRectF(4, 118, 44, 11));
                painter.setBrush(QColor(45, 50, 65));
                painter.drawRect(QRectF(15, 74, 9, 50));
                painter.drawRect(QRectF(28, 74, 9, 50));
                painter.setBrush(coat);
                painter.drawRoundedRect(QRectF(9, 28, 34, 54), 12, 12);
                painter.setBrush(QColor(225, 180, 150));
                painter.drawEllipse(QPointF(26, 15), 12, 13);
                painter.setBrush(QColor(70, 45, 30));
                painter.drawChord(QRectF(13, 1, 26, 26), 0, 180 * 16);
            }};
}

SpriteArt cloudArt(double width)
{
    return {QSizeF(width, width * 0.32), [=](QPainter &painter) {
                painter.setPen(Qt::NoPen);
                painter.setBrush(QColor(255, 255, 255, 190));
                const double h = width * 0.32;
                painter.drawEllipse(QRectF(0, h * 0.4, width * 0.5, h * 0.55));
                painter.drawEllipse(QRectF(width * 0.2, 0, width * 0.45, h * 0.9));
                painter.drawEllipse(QRectF(width * 0.48, h * 0.3, width * 0.52, h * 0.62));
            }};
}

} // namespace orrin::demo::scenepainting
