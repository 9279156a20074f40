// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ptz/cameraptz.h"

#include <map>
#include <memory>

namespace orrin {

/*! The cameras of one standing link that were asked for something, each with its queue. Main thread. */
class OnvifPtz
{
    Q_DISABLE_COPY_MOVE(OnvifPtz)
public:
    OnvifPtz(DeviceLink *link, const OnvifTimings &timings);
    ~OnvifPtz();

    void request(int channelId, const PtzRequest &request, QObject *context, Session::PtzCallback callback);

    /*! There is no connection any more: nothing is sent after this. With \a tell, what waits is answered so. */
    void end(bool tell);

private:
    /*! Null for a channel that nothing can be asked of. */
    CameraPtz *camera(int channelId);
    bool isSteerable(int channelId) const;

    QPointer<DeviceLink> m_link;
    const OnvifTimings m_timings;
    std::map<int, std::unique_ptr<CameraPtz>> m_cameras;
};

} // namespace orrin
