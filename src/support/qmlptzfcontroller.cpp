// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/qmlptzfcontroller.h"

#include "resources/resourcelookup_p.h"
#include "support/qmlptzfcontroller_p.h"

#include <contract/core/camera.h>
#include <contract/core/server.h>

#include <QPointer>

#include <cmath>
#include <limits>

namespace orrin {

namespace {

/*! \a speed in the core's range, toward zero; beyond \a range it is beyond that too. */
int scaled(int speed, int range)
{
    const double value = double(PtzfControl::FullSpeed) * speed / range;
    // Nothing forbids a range of 0, nor one too small for the speed.
    if (std::isnan(value))
        return 0;
    if (value >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= double(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

} // namespace

void QmlPtzfcontrollerPrivate::sendSpeeds() const
{
    control->panTiltZoom(scaled(pan, panRange), scaled(tilt, tiltRange), scaled(zoom, zoomRange));
}

QmlPtzfcontroller::QmlPtzfcontroller(QObject *parent)
    : QObject(parent)
    , d_ptr(std::make_unique<QmlPtzfcontrollerPrivate>())
{
}

QmlPtzfcontroller::~QmlPtzfcontroller()
{
    if (!d_ptr->control)
        return;
    if (const Camera *camera = d_ptr->control->camera())
        disconnect(camera, &QObject::destroyed, this, &QmlPtzfcontroller::reset);
}

int QmlPtzfcontroller::serverGroupId() const
{
    return d_ptr->serverGroupId;
}

void QmlPtzfcontroller::setServerGroupId(int id)
{
    if (d_ptr->serverGroupId == id)
        return;
    d_ptr->serverGroupId = id;
    update(true);
    Q_EMIT serverGroupIdChanged();
}

int QmlPtzfcontroller::serverId() const
{
    return d_ptr->serverId;
}

void QmlPtzfcontroller::setServerId(int id)
{
    if (d_ptr->serverId == id)
        return;
    d_ptr->serverId = id;
    update(true);
    Q_EMIT serverIdChanged();
}

int QmlPtzfcontroller::channelId() const
{
    return d_ptr->channelId;
}

void QmlPtzfcontroller::setChannelId(int id)
{
    if (d_ptr->channelId == id)
        return;
    d_ptr->channelId = id;
    update(true);
    Q_EMIT channelIdChanged();
}

RequestId QmlPtzfcontroller::streamId() const
{
    return d_ptr->streamId;
}

void QmlPtzfcontroller::setStreamId(RequestId id)
{
    if (d_ptr->streamId == id)
        return;
    d_ptr->streamId = id;
    update(true);
    Q_EMIT streamIdChanged();
}

int QmlPtzfcontroller::pan() const
{
    return d_ptr->pan;
}

void QmlPtzfcontroller::setPan(int pan)
{
    if (d_ptr->pan == pan)
        return;
    d_ptr->pan = pan;
    update(false);
    Q_EMIT panChanged();
}

int QmlPtzfcontroller::panRange() const
{
    return d_ptr->panRange;
}

void QmlPtzfcontroller::setPanRange(int range)
{
    if (d_ptr->panRange == range)
        return;
    d_ptr->panRange = range;
    Q_EMIT panRangeChanged();
}

int QmlPtzfcontroller::tilt() const
{
    return d_ptr->tilt;
}

void QmlPtzfcontroller::setTilt(int tilt)
{
    if (d_ptr->tilt == tilt)
        return;
    d_ptr->tilt = tilt;
    update(false);
    Q_EMIT tiltChanged();
}

int QmlPtzfcontroller::tiltRange() const
{
    return d_ptr->tiltRange;
}

void QmlPtzfcontroller::setTiltRange(int range)
{
    if (d_ptr->tiltRange == range)
        return;
    d_ptr->tiltRange = range;
    Q_EMIT tiltRangeChanged();
}

int QmlPtzfcontroller::zoom() const
{
    return d_ptr->zoom;
}

void QmlPtzfcontroller::setZoom(int zoom)
{
    if (d_ptr->zoom == zoom)
        return;
    d_ptr->zoom = zoom;
    update(false);
    Q_EMIT zoomChanged();
}

int QmlPtzfcontroller::zoomRange() const
{
    return d_ptr->zoomRange;
}

void QmlPtzfcontroller::setZoomRange(int range)
{
    if (d_ptr->zoomRange == range)
        return;
    d_ptr->zoomRange = range;
    Q_EMIT zoomRangeChanged();
}

int QmlPtzfcontroller::preset() const
{
    return d_ptr->preset;
}

void QmlPtzfcontroller::setPreset(int preset)
{
    const auto number = static_cast<unsigned char>(preset);
    if (d_ptr->preset == number)
        return;
    d_ptr->preset = number;
    Q_EMIT presetChanged();
}

bool QmlPtzfcontroller::ptzfAvailable() const
{
    return d_ptr->ptzfAvailable;
}

void QmlPtzfcontroller::setError(const QString &error)
{
    if (m_error == error)
        return;
    m_error = error;
    Q_EMIT errorChanged();
}

void QmlPtzfcontroller::setPanTiltZoom(int pan, int tilt, int zoom)
{
    const bool panDiffers = d_ptr->pan != pan;
    const bool tiltDiffers = d_ptr->tilt != tilt;
    const bool zoomDiffers = d_ptr->zoom != zoom;
    if (!panDiffers && !tiltDiffers && !zoomDiffers)
        return;
    d_ptr->pan = pan;
    d_ptr->tilt = tilt;
    d_ptr->zoom = zoom;
    update(false);
    const QPointer<QmlPtzfcontroller> alive(this);
    if (panDiffers)
        Q_EMIT panChanged();
    if (alive && tiltDiffers)
        Q_EMIT tiltChanged();
    if (alive && zoomDiffers)
        Q_EMIT zoomChanged();
}

void QmlPtzfcontroller::requestCapabilities()
{
    if (!d_ptr->control)
        createPtzfControl();
    if (!d_ptr->control)
        return;
    const bool wasAvailable = d_ptr->ptzfAvailable;
    d_ptr->ptzfAvailable = false;
    d_ptr->supportedCommands.clear();
    if (wasAvailable) {
        const QPointer<QmlPtzfcontroller> alive(this);
        Q_EMIT ptzfAvailableChanged();
        // A handler may take the control away.
        if (!alive || !d_ptr->control)
            return;
    }
    d_ptr->control->getSupportedCommands();
}

void QmlPtzfcontroller::goToPreset()
{
    goToPreset(0);
}

void QmlPtzfcontroller::goToPreset(int preset)
{
    stop();
    const int number = preset == 0 ? d_ptr->preset : preset;
    if (d_ptr->control)
        d_ptr->control->goToPreset(static_cast<unsigned char>(number));
}

void QmlPtzfcontroller::goToTour(int tour)
{
    startTour(static_cast<uchar>(tour));
}

void QmlPtzfcontroller::startTour(uchar id)
{
    stop();
    if (d_ptr->control)
        d_ptr->control->startTour(id);
}

void QmlPtzfcontroller::stopTour()
{
    stop();
    if (d_ptr->control)
        d_ptr->control->stopCurrentTour();
}

void QmlPtzfcontroller::stop()
{
    // In silence: whoever bound the speeds keeps what it set.
    d_ptr->pan = 0;
    d_ptr->tilt = 0;
    d_ptr->zoom = 0;
    update(false);
}

void QmlPtzfcontroller::reset()
{
    update(true);
}

void QmlPtzfcontroller::update(bool reset)
{
    if (reset)
        d_ptr->control.reset();
    if (!d_ptr->control)
        createPtzfControl();
    if (d_ptr->control)
        d_ptr->sendSpeeds();
}

void QmlPtzfcontroller::createPtzfControl()
{
    const auto *camera =
        qobject_cast<Camera *>(findChannel(d_ptr->serverGroupId, d_ptr->serverId, d_ptr->channelId));
    const Server *server = camera ? camera->server() : nullptr;
    if (!server)
        return;
    connect(camera, &QObject::destroyed, this, &QmlPtzfcontroller::reset,
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::UniqueConnection));
    d_ptr->control = std::make_unique<PtzfControl>(ChannelUID(server->uniqueId(), camera->id()), false);
    PtzfControl *control = d_ptr->control.get();
    // Answers come through the event loop, so none is missed by asking first.
    control->getSupportedCommands();
    connect(control, &PtzfControl::error, this, [this](const PtzfError &error) {
        m_error = error.toString();
        Q_EMIT errorChanged();
    });
    connect(control, &PtzfControl::supportedCommands, this, &QmlPtzfcontroller::capabilitiesReceived);
}

void QmlPtzfcontroller::capabilitiesReceived(const QList<PtzfCommand> &supportedCommands)
{
    if (supportedCommands == d_ptr->supportedCommands)
        return;
    d_ptr->supportedCommands = supportedCommands;
    const bool wasAvailable = d_ptr->ptzfAvailable;
    d_ptr->ptzfAvailable = !supportedCommands.isEmpty();
    if (d_ptr->ptzfAvailable != wasAvailable)
        Q_EMIT ptzfAvailableChanged();
}

} // namespace orrin
