// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "resources/qmltrack.h"

#include <QPointer>

namespace orrin {

class Track;

class QmlTrackPrivate : public QObject
{
public:
    explicit QmlTrackPrivate(QmlTrack *q);

    /*! The track, or null; a track other than the last one found is listened to and announced before this returns. */
    Track *track();

    QPointer<QmlTrack> q_ptr;
    QPointer<Track> cachedTrack;
    int serverGroupId = -1;
    int serverId = -1;
    int channelId = -1;
    int trackId = 1;
};

} // namespace orrin
