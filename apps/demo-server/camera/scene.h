// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QPainter;

namespace orrin::demo {

/*! The drawing of something that moves: its size in world units and how it is painted with its top left
 * corner at the origin. */
struct SpriteArt
{
    QSizeF size;
    std::function<void(QPainter &)> paint;
};

/*! One moving thing at one moment: which drawing, and its centre in world units. */
struct Mover
{
    int art = 0;
    QPointF centre;
};

/*!
    What a camera looks at: a world of 1600 x 900 units with a still background and things that move over it.
   Everything is a pure function of the time, so that the same moment always looks the same. Scenes hold no
   state and may be used by any thread.
*/
class Scene
{
public:
    static constexpr double WorldWidth = 1600;
    static constexpr double WorldHeight = 900;

    Scene() = default;
    Scene(const Scene &) = delete;
    Scene &operator=(const Scene &) = delete;
    virtual ~Scene();

    /*! Paints what stands still, in world units. */
    virtual void paintBackground(QPainter &painter) const = 0;

    /*! The drawings that movers() refers to by their index. */
    virtual std::vector<SpriteArt> art() const = 0;

    /*! Appends what moves at \a timeMs, the farthest first. */
    virtual void movers(std::int64_t timeMs, std::vector<Mover> &movers) const = 0;

protected:
    /*! How far a movement of \a periodMs has come at \a timeMs, from 0 to below 1; \a offset shifts it by a
     * part of the period. */
    static double phase(std::int64_t timeMs, std::int64_t periodMs, double offset = 0.0);

    /*! A movement there and back: 0 to 1 and to 0 again within one period. */
    static double swing(double phase);
};

} // namespace orrin::demo
