// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/ptzfcontrol.h>

#include "core/ptz/ptzfcontrol_p.h"
#include "core/session/sessionlookup.h"

#include <contract/core/camera.h>
#include <contract/core/currentuser.h>
#include <contract/core/server.h>

namespace orrin {

PtzfControlPrivate::PtzfControlPrivate(PtzfControl *q, ChannelUID uid, bool keepsMoving)
    : q(q), uid(uid), keepsMoving(keepsMoving)
{
}

void PtzfControlPrivate::request(const PtzRequest &request, Handler done)
{
    // Nothing of the control is touched after a signal: whoever hears it may delete the control.
    const auto answered = [this, done = std::move(done)](const PtzAnswer &answer) {
        if (answer.error.hasError())
            Q_EMIT q->error(answer.error);
        else if (done)
            done(answer);
    };
    if (Session *session = sessionForServer(uid.serverUid)) {
        session->requestPtz(uid.channelId, request, q, answered);
        return;
    }
    QMetaObject::invokeMethod(
        q, [answered] { answered({PtzfError(PtzfError::NotConnected)}); }, Qt::QueuedConnection);
}

bool PtzfControlPrivate::isPermitted() const
{
    const Channel *channel = channelForUid(uid);
    const Server *server = channel ? channel->server() : nullptr;
    const QSharedPointer<CurrentUser> user = server ? server->currentUser() : nullptr;
    // Whether anybody is logged in is for the session to say.
    return !user || user->isPermitted(SSPermission(SSPermission::Ptzf));
}

PtzfControl::PtzfControl(ChannelUID camera, bool keepsMoving, QObject *parent)
    : QObject(parent), d(std::make_unique<PtzfControlPrivate>(this, camera, keepsMoving))
{
}

PtzfControl::~PtzfControl()
{
    if (d->keepsMoving)
        return;
    Session *session = sessionForServer(d->uid.serverUid);
    if (!session)
        return;
    if (d->moving)
        session->requestPtz(d->uid.channelId, {PtzRequest::Kind::Move}, nullptr, nullptr);
    if (d->focusing)
        session->requestPtz(d->uid.channelId, {PtzRequest::Kind::Focus}, nullptr, nullptr);
}

Camera *PtzfControl::camera() const
{
    return qobject_cast<Camera *>(channelForUid(d->uid));
}

void PtzfControl::getSupportedCommands()
{
    if (!d->isPermitted()) {
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT supportedCommands({}); }, Qt::QueuedConnection);
        return;
    }
    d->request({PtzRequest::Kind::Capabilities},
               [this](const PtzAnswer &answer) { Q_EMIT supportedCommands(answer.commands); });
}

void PtzfControl::panTiltZoom(int pan, int tilt, int zoom)
{
    const PtzRequest request{PtzRequest::Kind::Move, pan, tilt, zoom};
    d->moving = !request.isStill();
    d->request(request);
}

void PtzfControl::focus(int speed)
{
    PtzRequest request{PtzRequest::Kind::Focus};
    request.focus = speed;
    d->focusing = speed != 0;
    d->request(request);
}

void PtzfControl::getPresets()
{
    d->request({PtzRequest::Kind::Presets},
               [this](const PtzAnswer &answer) { Q_EMIT presets(answer.presets); });
}

void PtzfControl::goToPreset(unsigned char preset)
{
    PtzRequest request{PtzRequest::Kind::GoToPreset};
    request.number = preset;
    d->request(request);
}

void PtzfControl::setPreset(unsigned char preset, const QString &name)
{
    PtzRequest request{PtzRequest::Kind::SetPreset};
    request.number = preset;
    request.name = name;
    d->request(request);
}

void PtzfControl::removePreset(unsigned char preset)
{
    PtzRequest request{PtzRequest::Kind::RemovePreset};
    request.number = preset;
    d->request(request);
}

void PtzfControl::startTour(unsigned char tour)
{
    PtzRequest request{PtzRequest::Kind::StartTour};
    request.number = tour;
    d->request(request);
}

void PtzfControl::stopCurrentTour()
{
    d->request({PtzRequest::Kind::StopTour});
}

} // namespace orrin
