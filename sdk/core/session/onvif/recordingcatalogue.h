// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/mediaendpoint.h"
#include "core/session/onvif/recordingservice.h"
#include "core/session/sitedescription.h"

#include <contract/core/export.h>

#include <QHash>
#include <QList>

#include <optional>
#include <utility>

namespace orrin {

/*! Which recording holds which track of which channel. A value.

    A device tells of each recording which source it records. Those of one source are the video tracks of its channel, in the order in which the device
    names them; where there are several for each track they are its qualities, and the one of the most pixels is the high one. */
class ORRINSDK_CORE_EXPORT RecordingCatalogue
{
public:
    struct Place
    {
        QString recording;
        QString track;
        qint64 fromMs = 0;
        qint64 toMs = 0;
    };

    /*! \a channelsBySource are channels by the tokens of their sources, \a pixels of recordings by their tokens. */
    void assemble(const QList<recordingservice::Recording> &recordings, const QList<ChannelDescription> &channels,
                  const QHash<QString, int> &channelsBySource, const QHash<QString, qint64> &pixels);
    /*! What a recording holds by now. */
    void update(const recordingservice::Recording &recording);

    std::optional<Place> place(int channelId, int trackId, StreamQuality quality) const;

private:
    struct Qualities
    {
        QString high;
        QString low;
        bool audio = false;
    };

    QHash<QString, recordingservice::Recording> m_recordings;
    QHash<std::pair<int, int>, Qualities> m_tracks; // by channel and track
};

} // namespace orrin
