// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QRectF>
#include <QTimeZone>
#include <QtQml/qqmlregistration.h>

namespace orrin {
class QmlVideoDisplay;
}

/*! What a host wants to know of the stream inside a tile: the moment that its picture shows. The tile is a `VideoOutput`,
    or anything that holds a `VideoDisplay`. GUI thread. */
class TileStream : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *tile READ tile WRITE setTile NOTIFY tileChanged FINAL)
    /*! Milliseconds since the epoch, 0 without a picture. */
    Q_PROPERTY(qint64 time READ time NOTIFY timeChanged FINAL)
    /*! The server's. UTC without a picture. */
    Q_PROPERTY(QTimeZone zone READ zone NOTIFY timeChanged FINAL)
    /*! Where the whole picture lies in the tile's item, with what digital zoom has moved out of sight; empty without a picture. */
    Q_PROPERTY(QRectF pictureRect READ pictureRect NOTIFY pictureRectChanged FINAL)

public:
    explicit TileStream(QObject *parent = nullptr);

    QQuickItem *tile() const { return m_tile; }
    void setTile(QQuickItem *tile);
    qint64 time() const;
    QTimeZone zone() const;
    QRectF pictureRect() const { return m_pictureRect; }

    /*! The bounds of the recording in milliseconds since the epoch, 0 while they are not known. */
    Q_INVOKABLE qint64 beginning() const;
    Q_INVOKABLE qint64 end() const;

    /*! Streams of one \a context, other than -1, play the same moment. A stream that runs begins anew with it. */
    Q_INVOKABLE static void setSyncContext(QQuickItem *tile, int context);

Q_SIGNALS:
    void tileChanged();
    void timeChanged();
    void pictureRectChanged();

private:
    void measure();

    static orrin::QmlVideoDisplay *displayIn(QQuickItem *item);

    QPointer<QQuickItem> m_tile;
    QPointer<orrin::QmlVideoDisplay> m_display;
    QRectF m_pictureRect;
};
