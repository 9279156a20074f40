// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/picture.h"

#include <QPoint>

#include <vector>

namespace orrin::demo {

/*! A small translucent picture that is blended over frames: something that moves in a scene, or a line of
 * text. */
class Sprite
{
public:
    Sprite() = default;
    Sprite(const QImage &image, Picture::Range range);

    QSize size() const { return m_colour.size(); }

    /*! Blends the sprite over \a target with its top left corner at \a position, cut at the edges, moved to
     * even pixels. */
    void blendOver(Picture &target, QPoint position) const;

private:
    Picture m_colour;
    int m_alphaStride = 0;
    std::vector<std::uint8_t> m_alpha;
};

} // namespace orrin::demo
