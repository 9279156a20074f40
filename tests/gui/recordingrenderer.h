// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/gui/imagerenderinginterface.h>

#include <QList>
#include <QStringList>
#include <QThread>

#include <functional>

namespace orrin {

/*! A renderer that keeps what it is given and on which thread. */
class RecordingRenderer : public ImageRenderingInterface
{
public:
    void setVideoFrame(const VideoFrame &frame) override
    {
        note(QStringLiteral("frame %1").arg(frame.id()));
        frames.append(frame);
        if (onFrame)
            onFrame();
    }
    void showBusySpinnerWheel() override
    {
        busy = true;
        note(QStringLiteral("busy"));
    }
    void clearBusySpinnerWheel() override
    {
        busy = false;
        note(QStringLiteral("idle"));
    }
    bool isBusyWheelActive() override { return busy; }
    void setError(const PlaybackError &error, int mark) override
    {
        note(QStringLiteral("error %1 %2").arg(error.errorCode()).arg(mark));
        errors.append(error.errorCode());
    }

    void moveViewingArea(double, double) override {}
    void moveViewingArea(const QPointF &, const QPointF &) override {}
    void zoom(int) override {}
    bool renderImage(const VideoFrame &, const QSizeF &, QPainter *) override { return false; }
    Time300 renderedVideoFrameTime() override { return 0; }
    double zoomSpeed() const override { return 0; }
    void setZoomSpeed(double) override {}
    QRectF zoomRect() override { return {}; }
    void setZoomRect(const QRectF &) override {}
    QRectF zoomScaledRect() override { return {}; }
    double zoomScaledX() override { return 0; }
    double zoomScaledY() override { return 0; }
    void setZoomScale(double, double) override {}
    void setZoomInfo(const ZoomInfo &) override {}
    void zoomOut() override {}
    void startZooming(double, int) override {}
    void stopZooming() override {}
    void startMovingViewingArea(double, double) override {}
    void stopMovingViewingArea() override {}
    void setForceRenderSameTimestamp(bool) override {}

    QList<VideoFrame> frames;
    QList<int> errors;
    QStringList calls;
    bool busy = false;
    bool onOwnThread = true;
    std::function<void()> onFrame;

private:
    void note(const QString &call)
    {
        onOwnThread &= QThread::currentThread() == m_thread;
        calls.append(call);
    }

    QThread *m_thread = QThread::currentThread();
};

} // namespace orrin
