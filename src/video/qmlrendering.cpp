// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlrendering.h"

#include "video/qmlrendering_p.h"

#include <utility>

namespace orrin {

namespace {

// Readers want the newest error alone; a stream that nobody asks must not gather them for ever.
constexpr qsizetype MaximumErrors = 1000;

} // namespace

QmlRendering::QmlRendering(std::unique_ptr<QmlAbstractFrameReceiver> receiver)
    : d_ptr(new QmlRenderingPrivate, [](QmlRenderingPrivate *d) { delete d; }), m_log("QmlRendering", this)
{
    d_func()->receiver = std::move(receiver);
    connect(d_func()->receiver.get(), &QmlAbstractFrameReceiver::frameChanged, this,
            &QmlRendering::currentFrameChanged);
}

QmlRendering::~QmlRendering() = default;

const VideoFrame &QmlRendering::currentFrame() const
{
    return d_func()->receiver->currentFrame();
}

QList<QString> QmlRendering::errors() const
{
    return d_func()->errors;
}

void QmlRendering::clearErrors()
{
    d_func()->errors.clear();
}

void QmlRendering::applyPrivacyMaskToCurrentFrame()
{
    d_func()->receiver->applyPrivacyMaskToCurrentFrame();
}

QmlRendering::Snapshot QmlRendering::generateSnapshot() const
{
    Snapshot snapshot;
    const VideoFrame frame = currentFrame();
    if (!frame.isValidImage())
        return snapshot;
    snapshot.image = frame.convertToQImage(orrincodecs::PixelFormat::Rgb32, 0, 0, -1, -1);
    if (snapshot.image.isNull())
        return snapshot;
    snapshot.fileName =
        QStringLiteral("screenshot-%1-%2-%3")
            .arg(QString::fromStdString(frame.imageRef().dateTime("dd-MMM-yyyy-hh-mm-ss-zzz")),
                 QString::number(frame.streamId()), QString::number(frame.id()));
    snapshot.valid = true;
    return snapshot;
}

void QmlRendering::destroyResources() {}

void QmlRendering::setVideoFrame(const VideoFrame &frame)
{
    d_func()->receiver->setVideoFrame(frame);
}

void QmlRendering::showBusySpinnerWheel()
{
    d_func()->busyWheelActive = true;
    Q_EMIT showBusySpinner(true);
}

void QmlRendering::clearBusySpinnerWheel()
{
    d_func()->busyWheelActive = false;
    Q_EMIT showBusySpinner(false);
}

bool QmlRendering::isBusyWheelActive()
{
    return d_func()->busyWheelActive;
}

void QmlRendering::setError(const PlaybackError &error, int mark)
{
    Q_UNUSED(mark)
    QList<QString> &errors = d_func()->errors;
    if (errors.size() == MaximumErrors)
        errors.removeFirst();
    errors.append(error.formattedHTMLString());
    ORRIN_TRACE(m_log, "error %d received", error.errorCode());
    switch (error.errorCode()) {
    case PlaybackError::PrivateKeyRequired:
    case PlaybackError::PrivateKeyWrong:
    case PlaybackError::PrivateKeyPasswordRequired:
    case PlaybackError::PrivateKeyPasswordWrong:
    case PlaybackError::PrivateKeyExpired:
        Q_EMIT privateKeyRequired();
        break;
    case PlaybackError::BeyondEnd:
        Q_EMIT beyondEnd();
        break;
    default:
        break;
    }
    Q_EMIT errorReceived();
}

void QmlRendering::moveViewingArea(double, double) {}

void QmlRendering::moveViewingArea(const QPointF &, const QPointF &) {}

void QmlRendering::zoom(int) {}

bool QmlRendering::renderImage(const VideoFrame &, const QSizeF &, QPainter *)
{
    return false;
}

Time300 QmlRendering::renderedVideoFrameTime()
{
    return 0;
}

double QmlRendering::zoomSpeed() const
{
    return 0.0;
}

void QmlRendering::setZoomSpeed(double) {}

QRectF QmlRendering::zoomRect()
{
    return {};
}

void QmlRendering::setZoomRect(const QRectF &) {}

QRectF QmlRendering::zoomScaledRect()
{
    return {};
}

double QmlRendering::zoomScaledX()
{
    return 0.0;
}

double QmlRendering::zoomScaledY()
{
    return 0.0;
}

void QmlRendering::setZoomScale(double, double) {}

void QmlRendering::setZoomInfo(const ZoomInfo &) {}

void QmlRendering::zoomOut() {}

void QmlRendering::startZooming(double, int) {}

void QmlRendering::stopZooming() {}

void QmlRendering::startMovingViewingArea(double, double) {}

void QmlRendering::stopMovingViewingArea() {}

void QmlRendering::setForceRenderSameTimestamp(bool) {}

} // namespace orrin
