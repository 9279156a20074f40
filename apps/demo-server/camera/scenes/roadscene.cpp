// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/scenes/roadscene.h"

#include "camera/scenes/scenepainting.h"

#include <QPainter>

namespace orrin::demo {

using namespace scenepainting;

void RoadScene::paintBackground(QPainter &painter) const
{
    const int hue = m_variant % 2 ? 24 : 208;
    fillGradient(painter, {0, 0, W, 420}, tone(hue, 150, 215), tone(hue, 40, 250));
    fillPolygon(
        painter,
        {{0, 420}, {0, 330}, {260, 250}, {560, 340}, {900, 230}, {1260, 330}, {1600, 260}, {1600, 420}},
        tone(150, 70, 140));
    fillGradient(painter, {0, 400, W, 500}, tone(95, 110, 150), tone(100, 140, 105));
    for (int i = 0; i < 9; ++i)
        paintTree(painter, {90.0 + i * 185, 470.0 + (i * 37) % 40}, 130.0 + (i * 53) % 60,
                  95 + m_variant * 9);
    painter.fillRect(QRectF(0, 560, W, 220), QColor(72, 74, 80));
    painter.fillRect(QRectF(0, 552, W, 10), QColor(195, 190, 180));
    painter.fillRect(QRectF(0, 778, W, 12), QColor(195, 190, 180));
    for (int i = 0; i < 16; ++i)
        painter.fillRect(QRectF(i * 100.0 + 20, 664, 56, 10), QColor(235, 235, 225));
    painter.fillRect(QRectF(1240, 380, 14, 180), QColor(110, 115, 120));
    painter.setBrush(QColor(40, 90, 170));
    painter.setPen(QPen(Qt::white, 5));
    painter.drawRoundedRect(QRectF(1170, 340, 154, 76), 8, 8);
}

std::vector<SpriteArt> RoadScene::art() const
{
    return {cloudArt(320),
            cloudArt(220),
            carArt(QColor(190, 40, 45), true),
            carArt(QColor(235, 235, 240), true),
            carArt(QColor(35, 90, 160), false, 0.9),
            carArt(QColor(225, 165, 30), false, 0.9)};
}

void RoadScene::movers(std::int64_t timeMs, std::vector<Mover> &movers) const
{
    const double shift = m_variant * 0.17;
    movers.push_back({0, {phase(timeMs, 90000, shift) * (W + 400) - 200, 170}});
    movers.push_back({1, {phase(timeMs, 130000, shift + 0.4) * (W + 400) - 200, 230}});
    movers.push_back({4, {W + 120 - phase(timeMs, 9000, shift) * (W + 240), 600}});
    movers.push_back({5, {W + 120 - phase(timeMs, 14000, shift + 0.5) * (W + 240), 605}});
    movers.push_back({2, {phase(timeMs, 8000, shift) * (W + 240) - 120, 715}});
    movers.push_back({3, {phase(timeMs, 12000, shift + 0.3) * (W + 240) - 120, 722}});
}

} // namespace orrin::demo
