// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/orrinsdkqmlglobal.h"

#include <contract/core/ptzfcommand.h>
#include <contract/util/requestid.h>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orrin {

class QmlPtzfcontrollerPrivate;

/*! Steers the camera of a video tile: pan, tilt and zoom at a speed, stored positions, tours. Main thread.

    Finds the camera by the keys of its stream and makes one control for it, anew at each change of the keys and when the camera ends.
    A camera that is not there is looked for again at the next command; meanwhile values are kept and nothing is sent. */
class ORRINSDKQML_EXPORT QmlPtzfcontroller : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(PtzfController)

    /*! The keys of the stream. A change looks for the camera again, and sends it the speeds. */
    Q_PROPERTY(int serverGroupId READ serverGroupId WRITE setServerGroupId NOTIFY serverGroupIdChanged FINAL)
    Q_PROPERTY(int serverId READ serverId WRITE setServerId NOTIFY serverIdChanged FINAL)
    Q_PROPERTY(int channelId READ channelId WRITE setChannelId NOTIFY channelIdChanged FINAL)
    Q_PROPERTY(orrin::RequestId streamId READ streamId WRITE setStreamId NOTIFY streamIdChanged FINAL)
    /*! Speeds, signed, of which the ranges are the full ones; sent at each change. What lies beyond a range is sent as it is. A change
        of a range sends nothing. */
    Q_PROPERTY(int pan READ pan WRITE setPan NOTIFY panChanged FINAL)
    Q_PROPERTY(int panRange READ panRange WRITE setPanRange NOTIFY panRangeChanged FINAL)
    Q_PROPERTY(int tilt READ tilt WRITE setTilt NOTIFY tiltChanged FINAL)
    Q_PROPERTY(int tiltRange READ tiltRange WRITE setTiltRange NOTIFY tiltRangeChanged FINAL)
    Q_PROPERTY(int zoom READ zoom WRITE setZoom NOTIFY zoomChanged FINAL)
    Q_PROPERTY(int zoomRange READ zoomRange WRITE setZoomRange NOTIFY zoomRangeChanged FINAL)
    /*! The stored position for goToPreset(); held in 8 bits. */
    Q_PROPERTY(int preset READ preset WRITE setPreset NOTIFY presetChanged FINAL)
    /*! Whether the camera named anything that it can do. Stays as it is when the camera goes. */
    Q_PROPERTY(bool ptzfAvailable READ ptzfAvailable NOTIFY ptzfAvailableChanged FINAL)
    /*! The text of the last failure; a success does not clear it. */
    Q_PROPERTY(QString error READ error WRITE setError NOTIFY errorChanged FINAL)

public:
    explicit QmlPtzfcontroller(QObject *parent = nullptr);
    ~QmlPtzfcontroller() override;

    int serverGroupId() const;
    void setServerGroupId(int id);
    int serverId() const;
    void setServerId(int id);
    int channelId() const;
    void setChannelId(int id);
    RequestId streamId() const;
    void setStreamId(RequestId id);
    int pan() const;
    void setPan(int pan);
    int panRange() const;
    void setPanRange(int range);
    int tilt() const;
    void setTilt(int tilt);
    int tiltRange() const;
    void setTiltRange(int range);
    int zoom() const;
    void setZoom(int zoom);
    int zoomRange() const;
    void setZoomRange(int range);
    int preset() const;
    void setPreset(int preset);
    bool ptzfAvailable() const;
    QString error() const { return m_error; }
    void setError(const QString &error);

    /*! All three speeds in one command; nothing is sent when none differs. */
    Q_INVOKABLE void setPanTiltZoom(int pan, int tilt, int zoom);
    /*! Asks the camera anew; until it answers, ptzfAvailable is false. */
    Q_INVOKABLE void requestCapabilities();
    /*! The following stop the camera first: the speeds are then 0, and their signals are not emitted. */
    Q_INVOKABLE void goToPreset();
    /*! \a preset 0 is the property's; the number is cut to 8 bits. */
    Q_INVOKABLE void goToPreset(int preset);
    Q_INVOKABLE void goToTour(int tour);
    Q_INVOKABLE void startTour(uchar id);
    Q_INVOKABLE void stopTour();

Q_SIGNALS:
    void serverGroupIdChanged();
    void serverIdChanged();
    void channelIdChanged();
    void streamIdChanged();
    void presetChanged();
    void panChanged();
    void panRangeChanged();
    void tiltChanged();
    void tiltRangeChanged();
    void zoomChanged();
    void zoomRangeChanged();
    void ptzfAvailableChanged();
    void errorChanged();

private Q_SLOTS:
    void capabilitiesReceived(const QList<orrin::PtzfCommand> &supportedCommands);

private:
    Q_DISABLE_COPY_MOVE(QmlPtzfcontroller)

    void reset();
    void update(bool reset);
    void createPtzfControl();
    void stop();

    QString m_error;
    std::unique_ptr<QmlPtzfcontrollerPrivate> d_ptr;
};

} // namespace orrin
