// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/ptzfcontrol.h>
#include <contract/util/requestid.h>

#include <QList>

#include <memory>

namespace orrin {

class QmlPtzfcontrollerPrivate
{
public:
    /*! Sends the speeds, each scaled from its range. */
    void sendSpeeds() const;

    std::unique_ptr<PtzfControl> control;
    int serverGroupId = -1;
    int serverId = -1;
    int channelId = -1;
    RequestId streamId;
    int pan = 0;
    int panRange = PtzfControl::FullSpeed;
    int tilt = 0;
    int tiltRange = PtzfControl::FullSpeed;
    int zoom = 0;
    int zoomRange = PtzfControl::FullSpeed;
    unsigned char preset = 0;
    QList<PtzfCommand> supportedCommands;
    bool ptzfAvailable = false;
};

} // namespace orrin
