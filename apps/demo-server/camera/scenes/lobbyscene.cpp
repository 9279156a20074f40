// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/scenes/lobbyscene.h"

#include "camera/scenes/scenepainting.h"

#include <QPainter>

namespace orrin::demo {

using namespace scenepainting;

void LobbyScene::paintBackground(QPainter &painter) const
{
    fillGradient(painter, {0, 0, W, 480}, tone(38 + m_variant * 60, 35, 235),
                 tone(38 + m_variant * 60, 50, 200));
    fillGradient(painter, {0, 480, W, 420}, QColor(150, 140, 130), QColor(205, 196, 184));
    painter.setPen(QPen(QColor(120, 112, 104), 3));
    for (int i = -10; i <= 26; ++i)
        painter.drawLine(QPointF(800 + (i * 100 - 800) * 0.55, 480),
                         QPointF(800 + (i * 100 - 800) * 1.9, 900));
    for (int i = 0; i < 8; ++i)
        painter.drawLine(QPointF(0, 480 + i * i * 7.5), QPointF(W, 480 + i * i * 7.5));
    for (int i = 0; i < 3; ++i) {
        const QRectF door(180.0 + i * 260, 170, 180, 310);
        painter.fillRect(door.adjusted(-12, -12, 12, 0), QColor(90, 92, 98));
        painter.fillRect(door, QColor(188, 194, 200));
        painter.fillRect(QRectF(door.center().x() - 2, door.y(), 4, door.height()), QColor(110, 114, 120));
    }
    painter.fillRect(QRectF(1080, 210, 430, 150), QColor(215, 235, 245));
    painter.setPen(QPen(QColor(80, 80, 84), 8));
    painter.drawRect(QRectF(1080, 210, 430, 150));
    painter.drawLine(QPointF(1295, 210), QPointF(1295, 360));
    painter.fillRect(QRectF(1060, 430, 470, 150), tone(20, 130, 120));
    painter.fillRect(QRectF(1045, 415, 500, 24), tone(20, 90, 175));
    paintTree(painter, {1000, 560}, 230, 115);
    paintTree(painter, {90, 600}, 260, 115);
}

std::vector<SpriteArt> LobbyScene::art() const
{
    return {personArt(QColor(150, 40, 60), 190), personArt(QColor(50, 60, 75), 230),
            personArt(QColor(60, 130, 110), 270)};
}

void LobbyScene::movers(std::int64_t timeMs, std::vector<Mover> &movers) const
{
    const double shift = m_variant * 0.29;
    movers.push_back({0, {250 + swing(phase(timeMs, 18000, shift)) * 650, 510}});
    movers.push_back({1, {phase(timeMs, 15000, shift + 0.1) * (W + 200) - 100, 620}});
    movers.push_back({2, {W + 100 - phase(timeMs, 24000, shift + 0.6) * (W + 200), 710}});
}

} // namespace orrin::demo
