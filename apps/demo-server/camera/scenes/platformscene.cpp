// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/scenes/platformscene.h"

#include "camera/scenes/scenepainting.h"

#include <QPainter>

#include <cmath>

namespace orrin::demo {

using namespace scenepainting;

void PlatformScene::paintBackground(QPainter &painter) const
{
    fillGradient(painter, {0, 0, W, 390}, tone(225, 100, 150), tone(30, 60, 235));
    const QRectF house(80, 130, 620, 250);
    painter.fillRect(house, tone(16 + m_variant * 25, 110, 150));
    paintWindows(painter, house.adjusted(20, 20, -20, -40), 7, 2, QColor(250, 230, 160));
    const QRectF tower(980, 70, 260, 310);
    painter.fillRect(tower, tone(220, 35, 130));
    paintWindows(painter, tower.adjusted(14, 14, -14, -30), 4, 5, QColor(190, 220, 240));
    painter.fillRect(QRectF(0, 380, W, 262), QColor(100, 94, 88));
    for (int i = 0; i < 40; ++i)
        painter.fillRect(QRectF(i * 42.0, 575, 22, 44), QColor(70, 58, 48));
    painter.fillRect(QRectF(0, 582, W, 7), QColor(185, 185, 190));
    painter.fillRect(QRectF(0, 606, W, 7), QColor(185, 185, 190));
    fillGradient(painter, {0, 640, W, 260}, QColor(175, 172, 168), QColor(135, 133, 130));
    painter.fillRect(QRectF(0, 640, W, 16), QColor(245, 245, 240));
    painter.fillRect(QRectF(0, 690, W, 10), QColor(240, 205, 60));
    for (int i = 0; i < 4; ++i)
        painter.fillRect(QRectF(190.0 + i * 420, 330, 16, 380), QColor(80, 90, 100));
}

std::vector<SpriteArt> PlatformScene::art() const
{
    const QColor colour = tone(m_variant % 2 ? 150 : 355, 190, 165);
    const SpriteArt train{QSizeF(1300, 250), [colour](QPainter &painter) {
                              painter.setPen(Qt::NoPen);
                              for (int i = 0; i < 3; ++i) {
                                  const QRectF waggon(i * 434.0, 10, 424, 205);
                                  painter.setBrush(QColor(235, 236, 238));
                                  painter.drawRoundedRect(waggon, 22, 22);
                                  painter.fillRect(QRectF(waggon.x(), 140, waggon.width(), 42), colour);
                                  paintWindows(painter, {waggon.x() + 20, 40, 384, 90}, 6, 1,
                                               QColor(45, 60, 80));
                                  painter.setBrush(QColor(40, 40, 44));
                                  for (const double x : {70.0, 130.0, 290.0, 350.0})
                                      painter.drawEllipse(QPointF(waggon.x() + x, 222), 22, 22);
                              }
                          }};
    return {train, personArt(QColor(185, 70, 90), 170), personArt(QColor(60, 85, 130), 180),
            personArt(QColor(70, 110, 70), 160)};
}

void PlatformScene::movers(std::int64_t timeMs, std::vector<Mover> &movers) const
{
    const double shift = m_variant * 0.41;
    // A third of the time it comes, stands for a third, and leaves; then the track is empty for a while.
    const double way = phase(timeMs, 36000, shift);
    double x = -800;
    if (way < 0.25)
        x = 800 - 1700 * std::pow(1.0 - way / 0.25, 2);
    else if (way < 0.5)
        x = 800;
    else if (way < 0.75)
        x = 800 + 1700 * std::pow((way - 0.5) / 0.25, 2);
    else
        x = -1700;
    movers.push_back({0, {x, 470}});
    movers.push_back({1, {320 + swing(phase(timeMs, 31000, shift)) * 260, 690}});
    movers.push_back({3, {1100, 700}});
    movers.push_back({2, {1500 - phase(timeMs, 20000, shift + 0.3) * 1650, 760}});
}

} // namespace orrin::demo
