// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/scenes/yardscene.h"

#include "camera/scenes/scenepainting.h"

#include <QPainter>

#include <array>

namespace orrin::demo {

using namespace scenepainting;

void YardScene::paintBackground(QPainter &painter) const
{
    fillGradient(painter, {0, 0, W, 260}, tone(212, 90, 200), tone(212, 25, 240));
    painter.fillRect(QRectF(0, 190, W, 290), tone(30 + m_variant * 40, 60, 165));
    painter.fillRect(QRectF(0, 180, W, 22), tone(30 + m_variant * 40, 70, 115));
    for (int i = 0; i < 5; ++i) {
        const QRectF gate(110.0 + i * 300, 270, 190, 210);
        painter.fillRect(gate, QColor(200, 205, 208));
        for (int line = 1; line < 7; ++line)
            painter.fillRect(QRectF(gate.x(), gate.y() + line * 30, gate.width(), 4), QColor(150, 156, 160));
    }
    fillGradient(painter, {0, 480, W, 420}, QColor(150, 148, 142), QColor(105, 104, 102));
    painter.setPen(QPen(QColor(235, 200, 60), 8));
    for (int i = 0; i < 6; ++i)
        painter.drawLine(QPointF(60.0 + i * 300, 500), QPointF(-60.0 + i * 324, 890));
    const std::array<QColor, 3> colours{QColor(170, 60, 50), QColor(45, 110, 140), QColor(70, 130, 75)};
    for (int i = 0; i < 3; ++i) {
        const QRectF box(1090, 300.0 + i * 92, 420, 90);
        painter.fillRect(box, colours[std::size_t((i + m_variant) % 3)]);
        for (int line = 1; line < 14; ++line)
            painter.fillRect(QRectF(box.x() + line * 30, box.y() + 6, 5, box.height() - 12),
                             QColor(0, 0, 0, 45));
    }
}

std::vector<SpriteArt> YardScene::art() const
{
    const SpriteArt forkLift{QSizeF(190, 150), [](QPainter &painter) {
                                 painter.setPen(Qt::NoPen);
                                 painter.setBrush(QColor(240, 170, 20));
                                 painter.drawRoundedRect(QRectF(10, 70, 120, 58), 10, 10);
                                 painter.setBrush(QColor(50, 50, 55));
                                 painter.drawRect(QRectF(132, 10, 9, 120));
                                 painter.drawRect(QRectF(141, 122, 46, 7));
                                 painter.setPen(QPen(QColor(60, 60, 65), 6));
                                 painter.setBrush(QColor(200, 225, 235, 120));
                                 painter.drawRect(QRectF(34, 14, 72, 58));
                                 painter.setPen(Qt::NoPen);
                                 painter.setBrush(QColor(25, 25, 25));
                                 painter.drawEllipse(QPointF(36, 130), 18, 18);
                                 painter.drawEllipse(QPointF(108, 130), 18, 18);
                                 painter.setBrush(QColor(175, 130, 80));
                                 painter.drawRect(QRectF(144, 70, 42, 50));
                             }};
    return {personArt(QColor(235, 110, 25)), personArt(QColor(40, 95, 170), 150), forkLift};
}

void YardScene::movers(std::int64_t timeMs, std::vector<Mover> &movers) const
{
    const double shift = m_variant * 0.23;
    movers.push_back({0, {140 + swing(phase(timeMs, 26000, shift)) * 800, 550}});
    movers.push_back({2, {phase(timeMs, 21000, shift) * (W + 300) - 150, 660}});
    movers.push_back({1, {1450 - swing(phase(timeMs, 40000, shift + 0.2)) * 1200, 790}});
}

} // namespace orrin::demo
