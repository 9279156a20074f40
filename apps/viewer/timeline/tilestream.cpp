// SPDX-License-Identifier: GPL-3.0-or-later
#include "timeline/tilestream.h"

#include <video/qmlvideodisplay.h>

TileStream::TileStream(QObject *parent) : QObject(parent) {}

void TileStream::setTile(QQuickItem *tile)
{
    if (tile == m_tile)
        return;
    if (m_display)
        m_display->disconnect(this);
    m_tile = tile;
    m_display = displayIn(tile);
    if (m_display) {
        // Time and zone are read by these two signals; the ones for the same facts in other shapes come before.
        connect(m_display, &orrin::QmlVideoDisplay::frameDateTimeServerTzChanged, this, &TileStream::timeChanged);
        connect(m_display, &orrin::QmlVideoDisplay::frameTimeZoneChanged, this, &TileStream::timeChanged);
        connect(m_display, &orrin::QmlVideoDisplay::frameDateTimeServerTzChanged, this, &TileStream::measure);
        connect(m_display, &QQuickItem::widthChanged, this, &TileStream::measure);
        connect(m_display, &QQuickItem::heightChanged, this, &TileStream::measure);
    }
    measure();
    Q_EMIT tileChanged();
    Q_EMIT timeChanged();
}

qint64 TileStream::time() const
{
    return m_display ? m_display->frameTimeMs() : 0;
}

QTimeZone TileStream::zone() const
{
    const QTimeZone zone = m_display ? m_display->frameTimeZone() : QTimeZone();
    return zone.isValid() ? zone : QTimeZone::utc();
}

void TileStream::measure()
{
    const QRectF rect = m_display && m_display->currentFrame() ? m_display->zoomRect() : QRectF();
    if (rect == m_pictureRect)
        return;
    m_pictureRect = rect;
    Q_EMIT pictureRectChanged();
}

qint64 TileStream::beginning() const
{
    return m_display ? m_display->getBeginning() : 0;
}

qint64 TileStream::end() const
{
    return m_display ? m_display->getEnd() : 0;
}

void TileStream::setSyncContext(QQuickItem *tile, int context)
{
    orrin::QmlVideoDisplay *display = displayIn(tile);
    if (!display || display->syncContextId() == context)
        return;
    display->setSyncContextId(context);
    // The context is taken when a stream is made.
    const int channel = display->channelId();
    if (channel < 1)
        return;
    display->setChannelId(-1);
    display->setChannelId(channel);
}

orrin::QmlVideoDisplay *TileStream::displayIn(QQuickItem *item)
{
    if (!item)
        return nullptr;
    if (auto *display = qobject_cast<orrin::QmlVideoDisplay *>(item))
        return display;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (orrin::QmlVideoDisplay *display = displayIn(child))
            return display;
    }
    return nullptr;
}
