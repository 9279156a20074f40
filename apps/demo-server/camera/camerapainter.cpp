// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/camerapainter.h"

#include "timestrip.h"

#include <QDateTime>
#include <QFont>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orrin::demo {

using namespace Qt::StringLiterals;

namespace {
// A movable camera shows a part of its world even at the widest, so that there is something to pan to.
constexpr double WideShare = 0.6;
constexpr double MaximumZoom = 5.0;

/*! \a image as a lens shows it that is focused nearer or further than the scene. */
QImage defocused(const QImage &image, double focus)
{
    constexpr double Strongest = 32.0;
    const double grain = 1.0 + std::abs(focus - View::Sharp) * Strongest;
    if (grain < 1.05)
        return image;
    const QSize coarse(std::max(2, int(image.width() / grain)), std::max(2, int(image.height() / grain)));
    return image.scaled(coarse, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .scaled(image.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
} // namespace

CameraPainter::CameraPainter(const Camera &camera, const QByteArray &timeZone, QSize size,
                             Picture::Range range)
    : m_number(camera.number)
    , m_name(camera.name)
    , m_movable(camera.ptz)
    , m_timeZone(timeZone)
    , m_size(size)
    , m_range(range)
    , m_scene(makeScene(camera.scene, camera.variant))
    , m_picture(size)
{
}

const Picture &CameraPainter::paint(std::int64_t timeMs, const View &view)
{
    if (m_view != view)
        prepareView(view);
    const std::int64_t second = timeMs / 1000;
    if (m_barSecond != second)
        prepareBar(second);

    m_picture = m_background;
    m_movers.clear();
    m_scene->movers(timeMs, m_movers);
    const double scale = m_size.width() / m_visible.width();
    for (const Mover &mover : m_movers) {
        const Sprite &sprite = m_sprites[std::size_t(mover.art)];
        const QPointF centre = (mover.centre - m_visible.topLeft()) * scale;
        sprite.blendOver(m_picture, QPoint(qRound(centre.x()), qRound(centre.y())) -
                                        QPoint(sprite.size().width() / 2, sprite.size().height() / 2));
    }
    m_bar.blendOver(m_picture, QPoint(0, m_size.height() - m_bar.size().height()));

    timestrip::Fields fields;
    fields.timeMs = std::uint64_t(timeMs);
    fields.camera = std::uint16_t(m_number);
    fields.pan = View::stripAxis(view.pan);
    fields.tilt = View::stripAxis(view.tilt);
    fields.zoom = View::stripZoom(view.zoom);
    timestrip::draw(m_picture.plane(0), m_picture.stride(0), m_size.width(), m_size.height(), fields);
    for (const int plane : {1, 2})
        timestrip::drawChroma(m_picture.plane(plane), m_picture.stride(plane), m_size.width(),
                              m_size.height());
    return m_picture;
}

QRectF CameraPainter::visibleWorld(const View &view) const
{
    const QRectF world(0, 0, Scene::WorldWidth, Scene::WorldHeight);
    if (!m_movable)
        return world;
    const double share = WideShare / (1.0 + std::clamp(view.zoom, 0.0, 1.0) * (MaximumZoom - 1.0));
    QRectF visible(QPointF(), world.size() * share);
    const double x = (std::clamp(view.pan, -1.0, 1.0) + 1.0) / 2.0 * (world.width() - visible.width());
    const double y = (1.0 - std::clamp(view.tilt, -1.0, 1.0)) / 2.0 * (world.height() - visible.height());
    visible.moveTopLeft({x, y});
    return visible;
}

void CameraPainter::prepareView(const View &view)
{
    m_view = view;
    m_visible = visibleWorld(view);
    const double scaleX = m_size.width() / m_visible.width();
    const double scaleY = m_size.height() / m_visible.height();

    QImage image(m_size, QImage::Format_RGB32);
    image.fill(Qt::black);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scaleX, scaleY);
        painter.translate(-m_visible.topLeft());
        m_scene->paintBackground(painter);
    }
    m_background = Picture::fromImage(defocused(image, view.focus), m_range);

    m_sprites.clear();
    for (const SpriteArt &art : m_scene->art()) {
        const QSize size(std::max(2, int(art.size.width() * scaleX)),
                         std::max(2, int(art.size.height() * scaleY)));
        QImage drawing(size, QImage::Format_ARGB32_Premultiplied);
        drawing.fill(Qt::transparent);
        {
            QPainter painter(&drawing);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.scale(scaleX, scaleY);
            art.paint(painter);
        }
        m_sprites.emplace_back(drawing, m_range);
    }
}

void CameraPainter::prepareBar(std::int64_t second)
{
    m_barSecond = second;
    const int height = (m_size.height() / 14 + 1) & ~1;
    QImage image(QSize(m_size.width(), height), QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(0, 0, 0, 120));
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::TextAntialiasing);
        QFont font(u"DejaVu Sans"_s);
        font.setPixelSize(height * 6 / 10);
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(Qt::white);
        const QRect text = image.rect().adjusted(height / 3, 0, -height / 3, 0);
        const QDateTime local = QDateTime::fromSecsSinceEpoch(second, m_timeZone);
        painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft, m_name);
        painter.drawText(text, Qt::AlignVCenter | Qt::AlignRight,
                         local.toString(u"yyyy-MM-dd HH:mm:ss"_s) + u' ' + m_timeZone.abbreviation(local));
    }
    m_bar = Sprite(image, m_range);
}

} // namespace orrin::demo
