// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/session/onvif/xmlelement.h"

#include <contract/core/export.h>

#include <QHash>
#include <QList>
#include <QString>

#include <optional>

/*! Reading the answers of a device's recording search service. Plain functions over parsed XML; times are milliseconds since 1970 UTC. */
namespace orrin::recordingservice {

/*! What is read of one answer at most. */
inline constexpr qsizetype RecordingLimit = 4096;
inline constexpr qsizetype TrackLimit = 64;
inline constexpr qsizetype EventLimit = 4096;

struct Track
{
    enum class Kind { Video, Audio, Other };

    QString token;
    Kind kind = Kind::Other;
    qint64 fromMs = 0;
    qint64 toMs = 0;
};

struct Recording
{
    QString token;
    QString sourceId; //!< of the source that is recorded, as the device names it
    QString sourceName;
    qint64 fromMs = 0;
    qint64 toMs = 0;
    QList<Track> tracks;
};

/*! A track began or ceased to have data. */
struct DataChange
{
    QString recording;
    QString track;
    qint64 ms = 0;
    bool present = false;
    bool isStartState = false; //!< how it is where the search begins
};

template <typename Item>
struct SearchResult
{
    QList<Item> items;
    bool completed = false;
};

/*! Answers of FindRecordings and FindEvents; empty without a token. */
ORRINSDK_CORE_EXPORT QString readSearchToken(const XmlElement &answer);

/*! Answer of GetRecordingSearchResults; recordings without a token are left out. */
ORRINSDK_CORE_EXPORT SearchResult<Recording> readRecordings(const XmlElement &answer);

/*! Answer of GetRecordingInformation. */
ORRINSDK_CORE_EXPORT std::optional<Recording> readRecording(const XmlElement &answer);

/*! Answer of GetMediaAttributes: pixels of the video by the recording's token. */
ORRINSDK_CORE_EXPORT QHash<QString, qint64> readPixels(const XmlElement &answer);

/*! Answer of GetEventSearchResults: what it tells of the data of tracks. */
ORRINSDK_CORE_EXPORT SearchResult<DataChange> readDataChanges(const XmlElement &answer);

/*! As the services write a moment. */
ORRINSDK_CORE_EXPORT QString timeText(qint64 ms);

} // namespace orrin::recordingservice
