// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"
#include "video/framegrabber.h"

#include <contract/util/requestid.h>

#include <QDateTime>
#include <QQuickRhiItem>
#include <QRectF>
#include <QString>
#include <QTimeZone>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlAbstractStreamProvider;
class QmlVideoDisplayPrivate;
class VideoFrame;

/*! The Qt Quick item that shows one stream.

    Properties and methods belong to the main thread. Only the newest frame is kept: a late one replaces the one before. Frames
    reach the render thread as shared handles while the main thread is blocked; the colours are converted there. Until the first
    frame the item is black, after it the ground around the picture is a dark grey. */
class ORRINSDKQML_EXPORT QmlVideoDisplay : public QQuickRhiItem, public FrameGrabber
{
    Q_OBJECT
    QML_NAMED_ELEMENT(VideoDisplay)

    /*! The size of the frame in pixels, 100 until one arrives. */
    Q_PROPERTY(double frameWidth READ frameWidth NOTIFY frameWidthChanged FINAL)
    Q_PROPERTY(double frameHeight READ frameHeight NOTIFY frameHeightChanged FINAL)
    /*! The address of the channel; a stream plays as soon as all three are 1 or above. */
    Q_PROPERTY(int serverGroupId READ serverGroupId WRITE setServerGroupId NOTIFY serverGroupIdChanged FINAL)
    Q_PROPERTY(int serverId READ serverId WRITE setServerId NOTIFY serverIdChanged FINAL)
    Q_PROPERTY(int channelId READ channelId WRITE setChannelId NOTIFY channelIdChanged FINAL)
    /*! The number of the running stream, 0 without one. */
    Q_PROPERTY(orrin::RequestId streamId READ streamId NOTIFY streamIdChanged FINAL)
    /*! Whether the stream runs. */
    Q_PROPERTY(bool activated READ isActive WRITE setActivated NOTIFY activatedChanged)
    /*! The newest error as HTML. Reading it clears it. */
    Q_PROPERTY(QString error READ lastError NOTIFY errorReceived FINAL)
    /*! The moment of capture: in UTC, as text in the server's zone ("dd.MM.yyyy.hh.mm.ss"), the zone itself, and in
        milliseconds since the epoch. */
    Q_PROPERTY(QDateTime frameDateTimeUTC READ frameDateTimeUTC NOTIFY frameDateTimeUTCChanged FINAL)
    Q_PROPERTY(QString frameDateTimeServerTz READ frameDateTimeServerTz NOTIFY frameDateTimeServerTzChanged FINAL)
    Q_PROPERTY(QTimeZone frameTimeZone READ frameTimeZone NOTIFY frameTimeZoneChanged FINAL)
    Q_PROPERTY(qlonglong frameTimeMs READ frameTimeMs NOTIFY frameTimeMsChanged FINAL)
    /*! True fits the picture into the item, false stretches it. */
    Q_PROPERTY(bool preserveAspectRatio READ preserveAspectRatio WRITE setPreserveAspectRatio NOTIFY
                   preserveAspectRatioChanged FINAL)
    /*! Kept for whoever shows messages over the picture; setting it emits nothing. */
    Q_PROPERTY(bool messageVisible READ isMessageVisible WRITE setMessageVisible NOTIFY messageVisibleChanged FINAL)
    /*! The stream waits for data. */
    Q_PROPERTY(bool busySpinnerVisible READ isBusySpinnerVisible NOTIFY busySpinnerVisibleChanged FINAL)

public:
    explicit QmlVideoDisplay(QQuickItem *parent = nullptr);
    ~QmlVideoDisplay() override;

    double frameWidth() const;
    double frameHeight() const;
    QDateTime frameDateTimeUTC() const;
    QString frameDateTimeServerTz() const;
    QTimeZone frameTimeZone() const;
    qlonglong frameTimeMs() const;
    bool preserveAspectRatio() const;
    void setPreserveAspectRatio(bool preserve);
    bool isMessageVisible() const;
    void setMessageVisible(bool visible);
    bool isBusySpinnerVisible() const;

    void setActivated(bool activated) override;
    bool isActive() const override;

    /*! The rectangle of the picture in item pixels; null while there is no geometry. */
    QRectF zoomRect() const;
    /*! Null until the first frame. */
    std::shared_ptr<VideoFrame> currentFrame() const;
    /*! Shows \a frame. */
    void setVideoFrame(const VideoFrame &frame);
    /*! Centres the picture; the zoom stays. */
    void resetZoomCenter();

    Q_INVOKABLE void resetZoom();
    /*! Moves the picture by fractions of half its size. */
    Q_INVOKABLE void adjustZoomCenter(double x, double y);
    /*! Moves the picture by item pixels. */
    Q_INVOKABLE void addOffsetPixels(double x, double y);
    /*! Zooms by a factor around a point that runs from -1.0 at the left and top to 1.0 at the right and bottom. */
    Q_INVOKABLE void zoom(double zoom_factor, double x, double y);
    /*! The bounds of the recording in milliseconds since the epoch; 0 when not connected. */
    Q_INVOKABLE qlonglong getBeginning();
    Q_INVOKABLE qlonglong getEnd();

Q_SIGNALS:
    void frameWidthChanged();
    void frameHeightChanged();
    void serverGroupIdChanged();
    void serverIdChanged();
    void channelIdChanged();
    void streamIdChanged();
    void activatedChanged(bool activated);
    void errorReceived();
    void frameDateTimeUTCChanged();
    void frameDateTimeServerTzChanged();
    void frameTimeZoneChanged();
    void preserveAspectRatioChanged(bool preserveAspectRatio);
    void busySpinnerVisibleChanged();
    void privateKeyRequired();
    void beyondEnd();
    void currentFrameChanged();
    // Part of the interface, not emitted by the item.
    void streamProcessorCreated();
    void showBusySpinner(bool show);
    void zoomFactorChanged(double factor);
    void zoomRectChanged();
    void frameTimeMsChanged();
    void messageVisibleChanged(bool visible);

protected:
    /*! An item whose streams come from \a provider, which is borrowed for the life of the item. */
    QmlVideoDisplay(QmlAbstractStreamProvider *provider, QQuickItem *parent);

    QQuickRhiItemRenderer *createRenderer() override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private Q_SLOTS:
    void processFrame();
    void handleShowBusySpinner(bool visible);

private:
    Q_DISABLE_COPY_MOVE(QmlVideoDisplay)

    QmlVideoDisplayPrivate *d_func() const;
    friend class QmlVideoDisplayPrivate;
};

} // namespace orrin
