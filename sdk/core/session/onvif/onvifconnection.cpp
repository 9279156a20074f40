// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/onvifconnection.h"

namespace orrin {

QSharedPointer<TrackBounds> OnvifConnection::createTrackBounds(unsigned trackAndChannel)
{
    Q_UNUSED(trackAndChannel)
    return QSharedPointer<TrackBounds>::create(0, 0);
}

} // namespace orrin
