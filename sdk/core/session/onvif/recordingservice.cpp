// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/recordingservice.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>

namespace orrin::recordingservice {

namespace {

/*! 0 for what is no time. A time without a zone is UTC. */
qint64 timeOf(const QString &text)
{
    QDateTime time = QDateTime::fromString(text.left(64), Qt::ISODateWithMs);
    if (!time.isValid())
        return 0;
    if (time.timeSpec() == Qt::LocalTime)
        time.setTimeZone(QTimeZone::utc());
    return time.toMSecsSinceEpoch();
}

Track::Kind kindOf(const QString &name)
{
    if (name == QLatin1StringView("Video"))
        return Track::Kind::Video;
    return name == QLatin1StringView("Audio") ? Track::Kind::Audio : Track::Kind::Other;
}

Recording recordingOf(const XmlElement &element)
{
    Recording recording;
    recording.token = element.child(u"RecordingToken").value();
    recording.sourceId = element.at({u"Source", u"SourceId"}).value();
    recording.sourceName = element.at({u"Source", u"Name"}).value();
    recording.fromMs = timeOf(element.child(u"EarliestRecording").value());
    recording.toMs = timeOf(element.child(u"LatestRecording").value());
    for (const XmlElement *track : element.all(u"Track")) {
        if (recording.tracks.size() >= TrackLimit)
            break;
        recording.tracks.append({track->child(u"TrackToken").value(), kindOf(track->child(u"TrackType").value()),
                                 timeOf(track->child(u"DataFrom").value()), timeOf(track->child(u"DataTo").value())});
    }
    return recording;
}

bool isCompleted(const XmlElement &list)
{
    const QString state = list.child(u"SearchState").value();
    return state != QLatin1StringView("Searching") && state != QLatin1StringView("Queued");
}

/*! The value of the simple item of that name below \a element. */
QString itemOf(const XmlElement &element, QStringView name)
{
    for (const XmlElement *item : element.all(u"SimpleItem")) {
        if (item->attribute(u"Name") == name)
            return item->attribute(u"Value");
    }
    return {};
}

} // namespace

QString readSearchToken(const XmlElement &answer)
{
    return answer.child(u"SearchToken").value();
}

SearchResult<Recording> readRecordings(const XmlElement &answer)
{
    SearchResult<Recording> result;
    const XmlElement &list = answer.child(u"ResultList");
    result.completed = isCompleted(list);
    for (const XmlElement *element : list.all(u"RecordingInformation")) {
        Recording recording = recordingOf(*element);
        if (!recording.token.isEmpty() && result.items.size() < RecordingLimit)
            result.items.append(std::move(recording));
    }
    return result;
}

std::optional<Recording> readRecording(const XmlElement &answer)
{
    Recording recording = recordingOf(answer.child(u"RecordingInformation"));
    return recording.token.isEmpty() ? std::nullopt : std::optional(std::move(recording));
}

QHash<QString, qint64> readPixels(const XmlElement &answer)
{
    QHash<QString, qint64> pixels;
    for (const XmlElement *element : answer.all(u"MediaAttributes")) {
        qint64 most = 0;
        for (const XmlElement *track : element->all(u"TrackAttributes")) {
            const XmlElement &video = track->child(u"VideoAttributes");
            most = std::max(most, video.child(u"Width").value().toLongLong() * video.child(u"Height").value().toLongLong());
        }
        if (most > 0 && pixels.size() < RecordingLimit)
            pixels.insert(element->child(u"RecordingToken").value(), most);
    }
    return pixels;
}

SearchResult<DataChange> readDataChanges(const XmlElement &answer)
{
    SearchResult<DataChange> result;
    const XmlElement &list = answer.child(u"ResultList");
    result.completed = isCompleted(list);
    for (const XmlElement *element : list.all(u"Result")) {
        const XmlElement &message = element->at({u"Event", u"Message", u"Message"});
        const QString present = itemOf(message.child(u"Data"), u"IsDataPresent");
        DataChange change;
        change.ms = timeOf(element->child(u"Time").value());
        if (present.isEmpty() || change.ms == 0 || result.items.size() >= EventLimit)
            continue;
        change.recording = element->child(u"RecordingToken").value();
        change.track = itemOf(message.child(u"Source"), u"Track");
        if (change.track.isEmpty())
            change.track = element->child(u"TrackToken").value();
        change.present = present == QLatin1StringView("true") || present == QLatin1StringView("1");
        change.isStartState = element->child(u"StartStateEvent").value() == QLatin1StringView("true");
        result.items.append(change);
    }
    return result;
}

QString timeText(qint64 ms)
{
    return QDateTime::fromMSecsSinceEpoch(ms, QTimeZone::utc()).toString(Qt::ISODateWithMs);
}

} // namespace orrin::recordingservice
