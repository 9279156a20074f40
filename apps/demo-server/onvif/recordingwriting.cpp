// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/recordingwriting.h"

#include "onvif/mediatokens.h"
#include "onvif/namespaces.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTimeZone>

namespace orrin::demo::recordingwriting {

using namespace Qt::StringLiterals;

namespace {

void writeTrack(SoapWriter &writer, QLatin1StringView token, const QString &type, const QString &description,
                qint64 fromMs, qint64 untilMs)
{
    writer.start(ns::Schema, "Track"_L1);
    writer.element(ns::Schema, "TrackToken"_L1, QString(token));
    writer.element(ns::Schema, "TrackType"_L1, type);
    writer.element(ns::Schema, "Description"_L1, description);
    writer.element(ns::Schema, "DataFrom"_L1, timeText(fromMs));
    writer.element(ns::Schema, "DataTo"_L1, timeText(untilMs));
    writer.end();
}

} // namespace

QString timeText(qint64 timeMs)
{
    return QDateTime::fromMSecsSinceEpoch(timeMs, QTimeZone::UTC).toString(Qt::ISODateWithMs);
}

std::optional<qint64> timeOf(const QString &text)
{
    const QDateTime time = QDateTime::fromString(text.left(40), Qt::ISODateWithMs);
    return time.isValid() ? std::optional(time.toMSecsSinceEpoch()) : std::nullopt;
}

std::optional<std::chrono::seconds> durationOf(const QString &text)
{
    static const QRegularExpression form(
        u"^PT(?:([0-9]{1,6})H)?(?:([0-9]{1,6})M)?(?:([0-9]{1,6})(?:\\.[0-9]{1,6})?S)?$"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return std::chrono::seconds(match.captured(1).toInt() * 3600LL + match.captured(2).toInt() * 60LL +
                                match.captured(3).toInt());
}

QString contentOf(const recordings::Ref &ref)
{
    return u"%1, %2"_s.arg(ref.track->name, ref.profile->name);
}

void writeSource(SoapWriter &writer, QLatin1StringView name, const recordings::Ref &ref)
{
    writer.start(ns::Schema, name);
    writer.element(ns::Schema, "SourceId"_L1, mediatokens::source(*ref.camera));
    writer.element(ns::Schema, "Name"_L1, ref.camera->name);
    writer.element(ns::Schema, "Location"_L1, QString());
    writer.element(ns::Schema, "Description"_L1, contentOf(ref));
    writer.element(ns::Schema, "Address"_L1, mediatokens::source(*ref.camera));
    writer.end();
}

void writeInformation(SoapWriter &writer, const RecorderInfo &recorder, const recordings::Ref &ref,
                      qint64 nowMs)
{
    const RecordingSchedule schedule = ref.schedule(recorder);
    const qint64 fromMs = schedule.beginMs();
    const qint64 untilMs = schedule.endMs(nowMs);
    writer.element(ns::Schema, "RecordingToken"_L1, ref.token());
    writeSource(writer, "Source"_L1, ref);
    writer.element(ns::Schema, "EarliestRecording"_L1, timeText(fromMs));
    writer.element(ns::Schema, "LatestRecording"_L1, timeText(untilMs));
    writer.element(ns::Schema, "Content"_L1, contentOf(ref));
    writeTrack(writer, recordings::VideoTrack, u"Video"_s, ref.profile->name, fromMs, untilMs);
    if (ref.hasAudio())
        writeTrack(writer, recordings::AudioTrack, u"Audio"_s, ref.profile->name, fromMs, untilMs);
    const bool isRecording = ref.track->enabled && untilMs + 1000 > nowMs && fromMs < untilMs;
    writer.element(ns::Schema, "RecordingStatus"_L1, isRecording ? u"Recording"_s : u"Stopped"_s);
}

SoapFault notPermitted()
{
    return SoapFault::notPermitted();
}

SoapFault noRecording()
{
    return SoapFault::invalidArgument(u"InvalidToken"_s, u"There is no such recording."_s);
}

} // namespace orrin::demo::recordingwriting
