// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlvideodisplay.h"

#include "video/qmlvideodisplay_p.h"
#include "video/qmlvideodisplayrenderer.h"
#include "video/qmlvideoprovider.h"

#include <contract/core/connection.h>

namespace orrin {

QmlVideoDisplayPrivate::QmlVideoDisplayPrivate(QmlVideoDisplay *display, QmlAbstractStreamProvider *provider)
    : FrameGrabberPrivate(display, provider), display(display)
{
}

QmlVideoDisplayPrivate::~QmlVideoDisplayPrivate() = default;

void QmlVideoDisplayPrivate::streamProcessorCreated()
{
    // Frames may come on another thread than the item's: the automatic connection type carries them over.
    QObject::connect(rendering, &QmlRendering::currentFrameChanged, display, &QmlVideoDisplay::processFrame);
    QObject::connect(rendering, &QmlRendering::errorReceived, display, &QmlVideoDisplay::errorReceived);
    QObject::connect(rendering, &QmlRendering::privateKeyRequired, display,
                     &QmlVideoDisplay::privateKeyRequired);
    QObject::connect(rendering, &QmlRendering::beyondEnd, display, &QmlVideoDisplay::beyondEnd);
    QObject::connect(rendering, &QmlRendering::showBusySpinner, display,
                     &QmlVideoDisplay::handleShowBusySpinner);
    Q_EMIT display->streamIdChanged();
}

void QmlVideoDisplayPrivate::serverGroupIdChanged()
{
    Q_EMIT display->serverGroupIdChanged();
}

void QmlVideoDisplayPrivate::serverIdChanged()
{
    Q_EMIT display->serverIdChanged();
}

void QmlVideoDisplayPrivate::channelIdChanged()
{
    Q_EMIT display->channelIdChanged();
}

QSharedPointer<TrackBounds> QmlVideoDisplayPrivate::trackBounds() const
{
    Connection *connection = streamProcessor ? streamProcessor->connection() : nullptr;
    return connection ? connection->createTrackBounds(streamProcessor->trackIdBase() | unsigned(channelId))
                      : nullptr;
}

QmlVideoDisplay::QmlVideoDisplay(QQuickItem *parent) : QmlVideoDisplay(&QmlVideoProvider::instance(), parent)
{
}

QmlVideoDisplay::QmlVideoDisplay(QmlAbstractStreamProvider *provider, QQuickItem *parent)
    : QQuickRhiItem(parent)
    , FrameGrabber(PrivatePointer(new QmlVideoDisplayPrivate(this, provider),
                                  [](FrameGrabberPrivate *d) { delete d; }))
{
    setFlag(ItemHasContents);
}

QmlVideoDisplay::~QmlVideoDisplay() = default;

QmlVideoDisplayPrivate *QmlVideoDisplay::d_func() const
{
    return static_cast<QmlVideoDisplayPrivate *>(FrameGrabber::d_ptr.get());
}

double QmlVideoDisplay::frameWidth() const
{
    return d_func()->frameWidth;
}

double QmlVideoDisplay::frameHeight() const
{
    return d_func()->frameHeight;
}

QDateTime QmlVideoDisplay::frameDateTimeUTC() const
{
    return time300ToDateTimeUTC(d_func()->frameTime);
}

QString QmlVideoDisplay::frameDateTimeServerTz() const
{
    return d_func()->frameDateTime.toString(QStringLiteral("dd.MM.yyyy.hh.mm.ss"));
}

QTimeZone QmlVideoDisplay::frameTimeZone() const
{
    return d_func()->frameTimeZone;
}

qlonglong QmlVideoDisplay::frameTimeMs() const
{
    return d_func()->frameDateTime.toMSecsSinceEpoch();
}

bool QmlVideoDisplay::preserveAspectRatio() const
{
    return d_func()->geometry.preserveAspectRatio();
}

void QmlVideoDisplay::setPreserveAspectRatio(bool preserve)
{
    if (preserveAspectRatio() == preserve)
        return;
    d_func()->geometry.setPreserveAspectRatio(preserve);
    Q_EMIT preserveAspectRatioChanged(preserve);
    update();
}

bool QmlVideoDisplay::isMessageVisible() const
{
    return d_func()->messageVisible;
}

void QmlVideoDisplay::setMessageVisible(bool visible)
{
    d_func()->messageVisible = visible;
}

bool QmlVideoDisplay::isBusySpinnerVisible() const
{
    return d_func()->busySpinnerVisible;
}

void QmlVideoDisplay::setActivated(bool activated)
{
    if (isActive() == activated)
        return;
    FrameGrabber::setActivated(activated);
    Q_EMIT activatedChanged(activated);
    update();
}

bool QmlVideoDisplay::isActive() const
{
    return FrameGrabber::isActive();
}

QRectF QmlVideoDisplay::zoomRect() const
{
    return d_func()->geometry.zoomRect();
}

std::shared_ptr<VideoFrame> QmlVideoDisplay::currentFrame() const
{
    return d_func()->currentFrame;
}

void QmlVideoDisplay::setVideoFrame(const VideoFrame &frame)
{
    QmlVideoDisplayPrivate *d = d_func();
    d->currentFrame = std::make_shared<VideoFrame>(frame);

    const double width = frame.width();
    if (!qFuzzyCompare(width, d->frameWidth)) {
        d->frameWidth = width;
        Q_EMIT frameWidthChanged();
    }
    const double height = frame.height();
    if (!qFuzzyCompare(height, d->frameHeight)) {
        d->frameHeight = height;
        Q_EMIT frameHeightChanged();
    }
    d->geometry.setImageSize(QSizeF(width, height));
    Q_EMIT currentFrameChanged();

    const Image image = frame.image();
    d->frameTime = image.time();
    Q_EMIT frameDateTimeUTCChanged();
    d->frameDateTime = image.qDateTimeServerTimeZone();
    Q_EMIT frameDateTimeServerTzChanged();
    const QTimeZone zone = image.frameQTimeZone();
    if (zone != d->frameTimeZone) {
        d->frameTimeZone = zone;
        Q_EMIT frameTimeZoneChanged();
    }
    update();
}

void QmlVideoDisplay::resetZoomCenter()
{
    d_func()->geometry.resetZoomOffset();
    update();
}

void QmlVideoDisplay::resetZoom()
{
    d_func()->geometry.resetZoom();
    update();
}

void QmlVideoDisplay::adjustZoomCenter(double x, double y)
{
    const QRectF rect = zoomRect();
    addOffsetPixels(rect.width() / 2 * x, rect.height() / 2 * y);
}

void QmlVideoDisplay::addOffsetPixels(double x, double y)
{
    d_func()->geometry.addOffsetPixels(x, y);
    update();
}

void QmlVideoDisplay::zoom(double zoom_factor, double x, double y)
{
    d_func()->geometry.zoom(zoom_factor, x, y);
    update();
}

qlonglong QmlVideoDisplay::getBeginning()
{
    const QSharedPointer<TrackBounds> bounds = d_func()->trackBounds();
    return bounds ? time300ToDateTimeUTC(bounds->begin()).toMSecsSinceEpoch() : 0;
}

qlonglong QmlVideoDisplay::getEnd()
{
    const QSharedPointer<TrackBounds> bounds = d_func()->trackBounds();
    return bounds ? time300ToDateTimeUTC(bounds->end()).toMSecsSinceEpoch() : 0;
}

QQuickRhiItemRenderer *QmlVideoDisplay::createRenderer()
{
    return new QmlVideoDisplayRenderer;
}

void QmlVideoDisplay::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    d_func()->geometry.setContainerSize(newGeometry.size());
    QQuickRhiItem::geometryChange(newGeometry, oldGeometry);
}

void QmlVideoDisplay::processFrame()
{
    QmlRendering *rendering = d_func()->rendering;
    if (!rendering)
        return;
    if (!isUserPermitted())
        rendering->applyPrivacyMaskToCurrentFrame();
    setVideoFrame(rendering->currentFrame());
}

void QmlVideoDisplay::handleShowBusySpinner(bool visible)
{
    d_func()->busySpinnerVisible = visible;
    Q_EMIT busySpinnerVisibleChanged();
}

} // namespace orrin
