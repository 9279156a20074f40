// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/scene.h"

namespace orrin::demo {

/*! An entrance hall: tiles in perspective, a desk, lift doors, people. */
class LobbyScene final : public Scene
{
public:
    /*! \a variant changes colours and rhythm. */
    explicit LobbyScene(int variant) : m_variant(variant) {}

    void paintBackground(QPainter &painter) const override;
    std::vector<SpriteArt> art() const override;
    void movers(std::int64_t timeMs, std::vector<Mover> &movers) const override;

private:
    int m_variant;
};

} // namespace orrin::demo
