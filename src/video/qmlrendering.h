// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/logclient.h"
#include "module/orrinsdkqmlglobal.h"

#include <contract/gui/imagerenderinginterface.h>

#include <QImage>
#include <QList>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace orrin {

class QmlAbstractFrameReceiver;
class QmlRenderingPrivate;

/*! What a display of this module drives: turns its calls into stored state and signals.

    Nothing is painted here; the item that shows the frame does that, and its zoom is its own, so that the painting and zooming
    operations do nothing. Calls come on the thread of the display, which may be another than the receiver's: listeners use
    automatic connections. */
class ORRINSDKQML_EXPORT QmlRendering : public QObject, public ImageRenderingInterface
{
    Q_OBJECT
public:
    /*! A picture to be saved. Without a picture valid is false. */
    struct Snapshot
    {
        QImage image;
        QString fileName; //!< without folder and extension
        bool valid = false;
    };

    explicit QmlRendering(std::unique_ptr<QmlAbstractFrameReceiver> receiver);
    ~QmlRendering() override;

    const VideoFrame &currentFrame() const;
    /*! The texts of the errors since clearErrors(), oldest first, as HTML. */
    QList<QString> errors() const;
    void clearErrors();
    void applyPrivacyMaskToCurrentFrame();
    /*! The current frame as an image, with a file name made of its time, stream and number. */
    Snapshot generateSnapshot() const;
    /*! There are no resources here: those of the picture belong to the item. */
    void destroyResources();

    void setVideoFrame(const VideoFrame &frame) override;
    void moveViewingArea(double x, double y) override;
    void moveViewingArea(const QPointF &from, const QPointF &to) override;
    void zoom(int steps) override;
    bool renderImage(const VideoFrame &frame, const QSizeF &size, QPainter *painter) override;
    Time300 renderedVideoFrameTime() override;
    double zoomSpeed() const override;
    void setZoomSpeed(double speed) override;
    QRectF zoomRect() override;
    void setZoomRect(const QRectF &rect) override;
    QRectF zoomScaledRect() override;
    double zoomScaledX() override;
    double zoomScaledY() override;
    void setZoomScale(double x, double y) override;
    void setZoomInfo(const ZoomInfo &info) override;
    void zoomOut() override;
    void startZooming(double speed, int direction) override;
    void stopZooming() override;
    void startMovingViewingArea(double x, double y) override;
    void stopMovingViewingArea() override;
    void setForceRenderSameTimestamp(bool force) override;
    void showBusySpinnerWheel() override;
    void clearBusySpinnerWheel() override;
    bool isBusyWheelActive() override;
    void setError(const PlaybackError &error, int mark) override;

Q_SIGNALS:
    void currentFrameChanged();
    /*! After privateKeyRequired() and beyondEnd(). */
    void errorReceived();
    void privateKeyRequired();
    void beyondEnd();
    void showBusySpinner(bool show);

private:
    Q_DISABLE_COPY_MOVE(QmlRendering)

    QmlRenderingPrivate *d_func() const { return d_ptr.get(); }

    std::unique_ptr<QmlRenderingPrivate, std::function<void(QmlRenderingPrivate *)>> d_ptr;
    LogClient m_log;
};

} // namespace orrin
