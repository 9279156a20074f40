// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "camera/picture.h"
#include "camera/scene.h"
#include "camera/sprite.h"
#include "camera/view.h"
#include "site/site.h"

#include <QRectF>
#include <QTimeZone>

#include <memory>
#include <optional>
#include <vector>

namespace orrin::demo {

/*!
    Draws what a camera sees at a moment: the scene, a bar with the camera's name and its local time, the time
   strip. The picture is a pure function of camera, size, time and view.

    Background, moving things and the bar are kept as converted pictures; a frame costs one copy of the
   background and the blending of a few small sprites. The background is drawn anew when the view changes, the
   bar once a second. One painter belongs to one thread at a time; text is drawn, so a QGuiApplication must
   exist.
*/
class CameraPainter
{
public:
    CameraPainter(const Camera &camera, const QByteArray &timeZone, QSize size, Picture::Range range);

    /*! The picture of \a timeMs (Unix time in ms, UTC). It stays valid until the next call. */
    const Picture &paint(std::int64_t timeMs, const View &view);

private:
    void prepareView(const View &view);
    void prepareBar(std::int64_t second);
    QRectF visibleWorld(const View &view) const;

    int m_number;
    QString m_name;
    bool m_movable;
    QTimeZone m_timeZone;
    QSize m_size;
    Picture::Range m_range;
    std::unique_ptr<Scene> m_scene;

    std::optional<View> m_view;
    QRectF m_visible;
    Picture m_background;
    std::vector<Sprite> m_sprites;
    std::optional<std::int64_t> m_barSecond;
    Sprite m_bar;
    std::vector<Mover> m_movers;
    Picture m_picture;
};

} // namespace orrin::demo
