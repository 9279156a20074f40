// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ptz/onvifptz.h"

#include "core/session/onvif/devicelink.h"

#include <QCoreApplication>

#include <algorithm>

namespace orrin {

namespace {

/*! By the event loop: it may be in the middle of a call back. Goes with the application, should that end first. */
void deleteLater(std::unique_ptr<CameraPtz> camera)
{
    QCoreApplication *application = QCoreApplication::instance();
    if (!camera || !application)
        return;
    CameraPtz *ending = camera.release();
    ending->setParent(application);
    ending->deleteLater();
}

} // namespace

OnvifPtz::OnvifPtz(DeviceLink *link, const OnvifTimings &timings) : m_link(link), m_timings(timings) {}

OnvifPtz::~OnvifPtz()
{
    for (auto &[id, camera] : m_cameras) {
        camera->end(false);
        deleteLater(std::move(camera));
    }
}

bool OnvifPtz::isSteerable(int channelId) const
{
    // A device tells of its service whether or not this camera is one that moves.
    const QList<ChannelDescription> &channels = m_link->assembled.description.channels;
    return !m_link->services.ptz.isEmpty() &&
           std::any_of(channels.begin(), channels.end(), [channelId](const ChannelDescription &channel) {
               return channel.id == channelId && channel.ptzf != 0;
           });
}

CameraPtz *OnvifPtz::camera(int channelId)
{
    if (!m_link || !isSteerable(channelId))
        return nullptr;
    const auto streams = m_link->assembled.streams.constFind(channelId);
    if (streams == m_link->assembled.streams.cend())
        return nullptr;
    std::unique_ptr<CameraPtz> &camera = m_cameras[channelId];
    // The description may have been read again, with other names.
    if (camera && !(camera->target() == streams->ptz)) {
        camera->end(true);
        deleteLater(std::move(camera));
    }
    if (!camera)
        camera = std::make_unique<CameraPtz>(m_link, streams->ptz, m_timings);
    return camera.get();
}

void OnvifPtz::request(int channelId, const PtzRequest &request, QObject *context, Session::PtzCallback callback)
{
    if (CameraPtz *known = camera(channelId)) {
        known->request(request, context, std::move(callback));
        return;
    }
    if (!callback || !m_link)
        return;
    const int code = request.kind == PtzRequest::Kind::Capabilities ? PtzfError::NoError : PtzfError::NotSupported;
    QMetaObject::invokeMethod(
        context ? context : m_link.data(),
        [callback = std::move(callback), code] { callback({PtzfError(code), {}, {}}); }, Qt::QueuedConnection);
}

void OnvifPtz::end(bool tell)
{
    for (const auto &[id, camera] : m_cameras)
        camera->end(tell);
}

} // namespace orrin
