// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/scenes/carparkscene.h"

#include "camera/scenes/scenepainting.h"

#include <QPainter>

namespace orrin::demo {

using namespace scenepainting;

namespace {

void paintCar(QPainter &painter, QPointF centre, const QColor &colour)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 60));
    painter.drawRoundedRect(QRectF(centre.x() - 32, centre.y() - 56, 72, 120), 16, 16);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(centre.x() - 34, centre.y() - 60, 68, 120), 18, 18);
    painter.setBrush(QColor(35, 45, 55));
    painter.drawRoundedRect(QRectF(centre.x() - 27, centre.y() - 30, 54, 22), 6, 6);
    painter.drawRoundedRect(QRectF(centre.x() - 25, centre.y() + 32, 50, 14), 6, 6);
}

} // namespace

void CarParkScene::paintBackground(QPainter &painter) const
{
    painter.fillRect(QRectF(0, 0, W, H), m_variant % 2 ? QColor(96, 98, 104) : QColor(118, 116, 112));
    painter.fillRect(QRectF(0, 0, W, 60), tone(100, 120, 110));
    painter.fillRect(QRectF(0, 850, W, 50), tone(100, 120, 110));
    for (const double top : {140.0, 390.0, 640.0}) {
        for (int i = 0; i <= 12; ++i)
            painter.fillRect(QRectF(138.0 + i * 110, top, 6, 150), QColor(230, 230, 225));
        for (int i = 0; i < 12; ++i) {
            const int seed = i * 7 + int(top) + m_variant * 5;
            if (seed % 5 != 0)
                paintCar(painter, {196.0 + i * 110, top + 75},
                         tone(seed * 67, seed % 3 * 80 + 20, 120 + seed % 4 * 35));
        }
    }
    for (int i = 0; i < 8; ++i)
        paintTree(painter, {100.0 + i * 200, 75}, 110, 105);
}

std::vector<SpriteArt> CarParkScene::art() const
{
    std::vector<SpriteArt> result;
    for (const int angle : {0, 90, 180, 270}) {
        result.push_back({QSizeF(130, 130), [angle](QPainter &painter) {
                              painter.translate(65, 65);
                              painter.rotate(angle);
                              paintCar(painter, {0, 0}, QColor(215, 45, 40));
                          }});
    }
    result.push_back(personArt(QColor(60, 60, 140), 80));
    return result;
}

void CarParkScene::movers(std::int64_t timeMs, std::vector<Mover> &movers) const
{
    // Once round the middle row: right, down, left, up. Cars are drawn with the front upwards.
    const double way = phase(timeMs, 32000, m_variant * 0.31) * 3360;
    const QRectF loop(90, 340, 1420, 260);
    if (way < 1420)
        movers.push_back({1, {loop.left() + way, loop.top()}});
    else if (way < 1680)
        movers.push_back({2, {loop.right(), loop.top() + way - 1420}});
    else if (way < 3100)
        movers.push_back({3, {loop.right() - (way - 1680), loop.bottom()}});
    else
        movers.push_back({0, {loop.left(), loop.bottom() - (way - 3100)}});
    movers.push_back({4, {200 + swing(phase(timeMs, 47000)) * 1200, 820}});
}

} // namespace orrin::demo
