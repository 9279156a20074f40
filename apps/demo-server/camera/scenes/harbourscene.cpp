// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/scenes/harbourscene.h"

#include "camera/scenes/scenepainting.h"

#include <QPainter>

#include <cmath>
#include <numbers>

namespace orrin::demo {

using namespace scenepainting;

void HarbourScene::paintBackground(QPainter &painter) const
{
    const int hue = m_variant % 2 ? 12 : 200;
    fillGradient(painter, {0, 0, W, 380}, tone(hue, 110, 210), tone(hue + 12, 45, 250));
    fillPolygon(painter, {{0, 380}, {0, 330}, {420, 345}, {700, 300}, {1000, 350}, {1600, 320}, {1600, 380}},
                tone(205, 60, 150));
    fillGradient(painter, {0, 375, W, 385}, tone(195, 120, 170), tone(205, 170, 110));
    painter.setPen(QPen(QColor(255, 255, 255, 45), 4));
    for (int i = 0; i < 60; ++i)
        painter.drawLine(QPointF((i * 271) % 1600, 400 + (i * 97) % 340),
                         QPointF((i * 271) % 1600 + 70, 400 + (i * 97) % 340));
    fillGradient(painter, {0, 760, W, 140}, QColor(160, 156, 150), QColor(120, 118, 114));
    painter.fillRect(QRectF(0, 752, W, 14), QColor(225, 190, 60));
    painter.setPen(QPen(tone(350 + m_variant * 50, 170, 170), 16));
    for (const double x : {1180.0, 1400.0}) {
        painter.drawLine(QPointF(x, 780), QPointF(x, 250));
        painter.drawLine(QPointF(x + 120, 780), QPointF(x + 120, 250));
        painter.drawLine(QPointF(x - 240, 255), QPointF(x + 190, 255));
        painter.drawLine(QPointF(x, 520), QPointF(x + 120, 520));
    }
    for (int i = 0; i < 10; ++i)
        painter.fillRect(QRectF(60.0 + i % 5 * 150, 700.0 - i / 5 * 62, 144, 60),
                         tone(i * 83 + m_variant * 30, 150, 160));
}

std::vector<SpriteArt> HarbourScene::art() const
{
    const auto ship = [](const QColor &hull) {
        return SpriteArt{QSizeF(420, 170), [hull](QPainter &painter) {
                             fillPolygon(painter, {{0, 100}, {420, 100}, {380, 165}, {40, 165}}, hull);
                             fillPolygon(painter, {{30, 40}, {120, 40}, {120, 100}, {30, 100}},
                                         QColor(245, 245, 245));
                             painter.fillRect(QRectF(44, 52, 62, 14), QColor(60, 80, 100));
                             painter.fillRect(QRectF(60, 8, 26, 34), QColor(200, 60, 40));
                             for (int i = 0; i < 5; ++i)
                                 painter.fillRect(QRectF(140.0 + i * 50, 66, 46, 34), tone(i * 71, 140, 180));
                         }};
    };
    const SpriteArt gull{QSizeF(54, 24), [](QPainter &painter) {
                             painter.setPen(QPen(QColor(250, 250, 250), 5, Qt::SolidLine, Qt::RoundCap));
                             painter.drawArc(QRectF(3, 6, 24, 28), 20 * 16, 140 * 16);
                             painter.drawArc(QRectF(27, 6, 24, 28), 20 * 16, 140 * 16);
                         }};
    return {ship(QColor(40, 60, 95)), ship(QColor(125, 45, 40)), gull};
}

void HarbourScene::movers(std::int64_t timeMs, std::vector<Mover> &movers) const
{
    const double shift = m_variant * 0.37;
    const double bob = std::sin(phase(timeMs, 4000) * 2.0 * std::numbers::pi) * 4.0;
    movers.push_back({1, {W + 220 - phase(timeMs, 60000, shift) * (W + 440), 410 + bob}});
    movers.push_back({0, {phase(timeMs, 42000, shift) * (W + 440) - 220, 540 - bob}});
    for (int i = 0; i < 3; ++i)
        movers.push_back(
            {2,
             {phase(timeMs, 11000 + i * 3000, shift + i * 0.3) * (W + 80) - 40,
              220 + i * 40 + std::sin(phase(timeMs, 5000, i * 0.3) * 2.0 * std::numbers::pi) * 30}});
}

} // namespace orrin::demo
