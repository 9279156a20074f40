// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/codecs/videoframe.h>
#include <contract/core/displaytypes.h>
#include <contract/core/playbackerror.h>
#include <contract/util/time300.h>

#include <QPointF>
#include <QRectF>
#include <QSizeF>

class QPainter;

namespace orrin {

/*! What a Display drives: whatever draws its frames. Called on the thread of the Display. */
class ImageRenderingInterface
{
public:
    virtual ~ImageRenderingInterface() = default;

    virtual void setVideoFrame(const VideoFrame &frame) = 0;
    virtual void moveViewingArea(double x, double y) = 0;
    virtual void moveViewingArea(const QPointF &from, const QPointF &to) = 0;
    virtual void zoom(int steps) = 0;
    virtual bool renderImage(const VideoFrame &frame, const QSizeF &size, QPainter *painter) = 0;
    virtual Time300 renderedVideoFrameTime() = 0;
    virtual double zoomSpeed() const = 0;
    virtual void setZoomSpeed(double speed) = 0;
    virtual QRectF zoomRect() = 0;
    virtual void setZoomRect(const QRectF &rect) = 0;
    virtual QRectF zoomScaledRect() = 0;
    virtual double zoomScaledX() = 0;
    virtual double zoomScaledY() = 0;
    virtual void setZoomScale(double x, double y) = 0;
    virtual void setZoomInfo(const ZoomInfo &info) = 0;
    virtual void zoomOut() = 0;
    virtual void startZooming(double speed, int direction) = 0;
    virtual void stopZooming() = 0;
    virtual void startMovingViewingArea(double x, double y) = 0;
    virtual void stopMovingViewingArea() = 0;
    virtual void setForceRenderSameTimestamp(bool force) = 0;
    virtual void showBusySpinnerWheel() = 0;
    virtual void clearBusySpinnerWheel() = 0;
    virtual bool isBusyWheelActive() = 0;
    virtual void setError(const PlaybackError &error, int mark) = 0;
};

} // namespace orrin
