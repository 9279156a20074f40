// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <contract/core/recordedspans.h>
#include <contract/core/trackbounds.h>

#include <QSharedPointer>

namespace orrin {

/*! The connection of a stream to its server. Main thread; owned by the server's session. */
class Connection
{
public:
    virtual ~Connection() = default;

    /*! The bounds, as last learnt, of what \a trackAndChannel names: a stream's trackIdBase() or-ed with its channel id.
        Never null; begin and end are 0 while nothing is known. */
    virtual QSharedPointer<TrackBounds> createTrackBounds(unsigned trackAndChannel) = 0;

    /*! When the track \a trackId of a channel was recorded. Never null; one object for all who ask for the same track, filled in the
        background. */
    virtual QSharedPointer<RecordedSpans> createRecordedSpans(int channelId, int trackId)
    {
        Q_UNUSED(channelId)
        Q_UNUSED(trackId)
        return QSharedPointer<RecordedSpans>::create();
    }

    /*! Milliseconds to add to the client's UTC clock to get the server's. */
    virtual long long getCachedServerUTCOffsetToClientUTCMSecs() const = 0;
};

} // namespace orrin
