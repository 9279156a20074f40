// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/connection.h>

#include <QtTypes>

namespace orrin {

/*! The connection that streams of an ONVIF session show. Main thread; owned by the session. */
class OnvifConnection : public Connection
{
public:
    /*! Begin and end are 0: the session reads no recordings. */
    QSharedPointer<TrackBounds> createTrackBounds(unsigned trackAndChannel) override;
    long long getCachedServerUTCOffsetToClientUTCMSecs() const override { return m_clockOffsetMs; }

    void setClockOffset(qint64 offsetMs) { m_clockOffsetMs = offsetMs; }

private:
    qint64 m_clockOffsetMs = 0;
};

} // namespace orrin
