// SPDX-License-Identifier: GPL-3.0-or-later
#include "onvif/searchservice.h"

#include "onvif/mediatokens.h"
#include "onvif/namespaces.h"
#include "onvif/recordingwriting.h"

#include <algorithm>

namespace orrin::demo {

using namespace Qt::StringLiterals;
using namespace recordingwriting;
using recordings::Ref;
using Change = Searches::Change;
using Search = Searches::Search;

namespace {

constexpr qsizetype DefaultResults = 100;
constexpr qsizetype MaximumResults = 10'000;

SoapFault noSearch()
{
    return SoapFault::invalidArgument(u"InvalidToken"_s, u"There is no such search."_s);
}

SoapFault badTime()
{
    return SoapFault::invalidArgument(u"InvalidArgs"_s, u"The time cannot be read."_s);
}

SoapFault tooMuch()
{
    return {u"env:Receiver"_s,
            {u"ter:Action"_s, u"ter:ResourceProblem"_s},
            u"There are too many searches or results."_s,
            500};
}

/*! Which events a filter of topics asks for; all without one. */
struct Topics
{
    explicit Topics(const QString &filter)
        : recording(filter.isEmpty() || !filter.contains("Track"_L1))
        , track(filter.isEmpty() || !filter.contains("Recording/State"_L1))
    {
    }

    bool recording;
    bool track;
};

void append(QList<Change> &events, const Topics &topics, bool audio, Change event)
{
    using Subject = Change::Subject;
    if (topics.recording)
        events.append(event);
    if (!topics.track)
        return;
    event.subject = Subject::Video;
    events.append(event);
    event.subject = Subject::Audio;
    if (audio)
        events.append(event);
}

/*! How many results a request asks for. */
qsizetype resultLimit(const OnvifCall &call)
{
    const int wanted = call.operation.childText(u"MaxResults").toInt();
    return wanted > 0 ? std::min<qsizetype>(wanted, MaximumResults) : DefaultResults;
}

void writeEvent(SoapWriter &writer, const Search &search, const Change &event)
{
    const QString &recording = search.recordings.at(event.recording);
    const bool ofTrack = event.subject != Change::Subject::Recording;
    const QLatin1StringView track =
        event.subject == Change::Subject::Audio ? recordings::AudioTrack : recordings::VideoTrack;
    writer.start(ns::Schema, "Result"_L1);
    writer.element(ns::Schema, "RecordingToken"_L1, recording);
    // The token of a track is asked for with events of the whole recording as well.
    writer.element(ns::Schema, "TrackToken"_L1, QString(track));
    writer.element(ns::Schema, "Time"_L1, timeText(event.timeMs));
    writer.start(ns::Schema, "Event"_L1);
    writer.start(ns::Notification, "Topic"_L1,
                 {{"Dialect"_L1, u"http://www.onvif.org/ver10/tev/topicExpression/ConcreteSet"_s}});
    writer.text(ofTrack ? u"tns1:RecordingHistory/Track/State"_s : u"tns1:RecordingHistory/Recording/State"_s);
    writer.end();
    writer.start(ns::Notification, "Message"_L1);
    writer.start(ns::Schema, "Message"_L1, {{"UtcTime"_L1, timeText(event.timeMs)}});
    writer.start(ns::Schema, "Source"_L1);
    writer.empty(ns::Schema, "SimpleItem"_L1, {{"Name"_L1, u"RecordingToken"_s}, {"Value"_L1, recording}});
    if (ofTrack)
        writer.empty(ns::Schema, "SimpleItem"_L1, {{"Name"_L1, u"Track"_s}, {"Value"_L1, QString(track)}});
    writer.end();
    writer.start(ns::Schema, "Data"_L1);
    writer.empty(ns::Schema, "SimpleItem"_L1,
                 {{"Name"_L1, ofTrack ? u"IsDataPresent"_s : u"IsRecording"_s},
                  {"Value"_L1, event.begins ? u"true"_s : u"false"_s}});
    writer.end();
    writer.end();
    writer.end();
    writer.end();
    writer.element(ns::Schema, "StartStateEvent"_L1, event.isStartState);
    writer.end();
}

} // namespace

SearchService::SearchService(const OnvifContext &context)
    : OnvifService(context, ns::Search, u"/onvif/search_service"_s, 2, 60)
{
    add(u"GetServiceCapabilities"_s, Access::Anyone,
        [this](const OnvifCall &, SoapWriter &writer) -> std::optional<SoapFault> {
            writer.start(ns::Search, "GetServiceCapabilitiesResponse"_L1);
            writeCapabilities(writer);
            writer.end();
            return std::nullopt;
        });
    addCall(u"GetRecordingSummary"_s, &SearchService::writeSummary);
    addCall(u"GetRecordingInformation"_s, &SearchService::writeInformation);
    addCall(u"GetMediaAttributes"_s, &SearchService::writeMediaAttributes);
    addCall(u"FindRecordings"_s, &SearchService::findRecordings);
    addCall(u"GetRecordingSearchResults"_s, &SearchService::writeRecordingResults);
    addCall(u"FindEvents"_s, &SearchService::findEvents);
    addCall(u"GetEventSearchResults"_s, &SearchService::writeEventResults);
    addCall(u"EndSearch"_s, &SearchService::endSearch);
}

void SearchService::addCall(const QString &name, std::optional<SoapFault> (SearchService::*write)(
                                                     const OnvifCall &, SoapWriter &))
{
    add(name, Access::Users, [this, write](const OnvifCall &call, SoapWriter &writer) {
        return call.user->mayPlayBack() ? (this->*write)(call, writer) : notPermitted();
    });
}

void SearchService::writeCapabilities(SoapWriter &writer) const
{
    writer.empty(ns::Search, "Capabilities"_L1,
                 {{"MetadataSearch"_L1, u"false"_s}, {"GeneralStartEvents"_L1, u"true"_s}});
}

SearchService::Refs SearchService::scope(const OnvifCall &call) const
{
    Refs refs = recordings::recordingsFor(recorder(), *call.user);
    const XmlElement *scope = call.operation.child(u"Scope");
    QStringList sources;
    QStringList tokens;
    for (const XmlElement &part : scope ? scope->children : QList<XmlElement>()) {
        if (part.name == "IncludedSources"_L1)
            sources.append(part.childText(u"Token"));
        else if (part.name == "IncludedRecordings"_L1)
            tokens.append(part.text.trimmed());
    }
    refs.removeIf([&](const Ref &ref) {
        return (!sources.isEmpty() && !sources.contains(mediatokens::source(*ref.camera))) ||
               (!tokens.isEmpty() && !tokens.contains(ref.token()));
    });
    return refs;
}

std::optional<SoapFault> SearchService::begin(const OnvifCall &call, Search search, SoapWriter &writer,
                                              QLatin1StringView response)
{
    const XmlElement *scope = call.operation.child(u"Scope");
    if (scope && !scope->childText(u"RecordingInformationFilter").isEmpty())
        return SoapFault::invalidArgument(u"InvalidFilter"_s, u"Filters by expression are not supported."_s);
    const auto lifetime = durationOf(call.operation.childText(u"KeepAliveTime"));
    search.user = call.user->name;
    search.lifetime = lifetime.value_or(std::chrono::seconds(60));
    const std::optional<QString> token = m_searches.begin(std::move(search));
    if (!token)
        return tooMuch();
    writer.start(ns::Search, response);
    writer.element(ns::Search, "SearchToken"_L1, *token);
    writer.end();
    return std::nullopt;
}

std::optional<SoapFault> SearchService::writeSummary(const OnvifCall &call, SoapWriter &writer)
{
    const qint64 nowMs = context().clock.nowMs();
    const Refs refs = recordings::recordingsFor(recorder(), *call.user);
    qint64 fromMs = nowMs;
    qint64 untilMs = refs.isEmpty() ? nowMs : 0;
    for (const Ref &ref : refs) {
        fromMs = std::min(fromMs, qint64(ref.schedule(recorder()).beginMs()));
        untilMs = std::max(untilMs, qint64(ref.schedule(recorder()).endMs(nowMs)));
    }
    writer.start(ns::Search, "GetRecordingSummaryResponse"_L1);
    writer.start(ns::Search, "Summary"_L1);
    writer.element(ns::Schema, "DataFrom"_L1, timeText(fromMs));
    writer.element(ns::Schema, "DataUntil"_L1, timeText(untilMs));
    writer.element(ns::Schema, "NumberRecordings"_L1, qint64(refs.size()));
    writer.end();
    writer.end();
    return std::nullopt;
}

std::optional<SoapFault> SearchService::writeInformation(const OnvifCall &call, SoapWriter &writer)
{
    const Ref ref = recordings::recordingFor(recorder(), *call.user,
                                             call.operation.childText(u"RecordingToken"));
    if (!ref)
        return noRecording();
    writer.start(ns::Search, "GetRecordingInformationResponse"_L1);
    writer.start(ns::Search, "RecordingInformation"_L1);
    recordingwriting::writeInformation(writer, recorder(), ref, context().clock.nowMs());
    writer.end();
    writer.end();
    return std::nullopt;
}

std::optional<SoapFault> SearchService::writeMediaAttributes(const OnvifCall &call, SoapWriter &writer)
{
    const auto time = timeOf(call.operation.childText(u"Time"));
    if (!time)
        return badTime();
    QStringList wanted;
    for (const XmlElement &child : call.operation.children) {
        if (child.name == "RecordingTokens"_L1)
            wanted.append(child.text.trimmed());
    }
    const qint64 nowMs = context().clock.nowMs();
    writer.start(ns::Search, "GetMediaAttributesResponse"_L1);
    const Refs refs = recordings::recordingsFor(recorder(), *call.user);
    for (const Ref &ref : refs) {
        const auto span = ref.schedule(recorder()).spanFrom(*time, nowMs);
        if ((!wanted.isEmpty() && !wanted.contains(ref.token())) || !span || span->beginMs > *time)
            continue;
        writer.start(ns::Search, "MediaAttributes"_L1);
        writer.element(ns::Schema, "RecordingToken"_L1, ref.token());
        writer.start(ns::Schema, "TrackAttributes"_L1);
        writer.start(ns::Schema, "TrackInformation"_L1);
        writer.element(ns::Schema, "TrackToken"_L1, QString(recordings::VideoTrack));
        writer.element(ns::Schema, "TrackType"_L1, u"Video"_s);
        writer.element(ns::Schema, "Description"_L1, ref.profile->name);
        writer.element(ns::Schema, "DataFrom"_L1, timeText(span->beginMs));
        writer.element(ns::Schema, "DataTo"_L1, timeText(span->endMs));
        writer.end();
        writer.start(ns::Schema, "VideoAttributes"_L1);
        writer.element(ns::Schema, "Bitrate"_L1, qint64(ref.profile->bitrateKbit));
        writer.element(ns::Schema, "Width"_L1, qint64(ref.profile->size.width()));
        writer.element(ns::Schema, "Height"_L1, qint64(ref.profile->size.height()));
        static const QStringList Encodings{u"H264"_s, u"H265"_s, u"JPEG"_s};
        writer.element(ns::Schema, "Encoding"_L1, Encodings.at(int(ref.camera->codec)));
        writer.element(ns::Schema, "Framerate"_L1, qint64(ref.profile->rate));
        writer.end();
        writer.end();
        writer.element(ns::Schema, "From"_L1, timeText(span->beginMs));
        writer.element(ns::Schema, "Until"_L1, timeText(span->endMs));
        writer.end();
    }
    writer.end();
    return std::nullopt;
}

std::optional<SoapFault> SearchService::findRecordings(const OnvifCall &call, SoapWriter &writer)
{
    Search search;
    const Refs refs = scope(call);
    for (const Ref &ref : refs)
        search.recordings.append(ref.token());
    if (const int most = call.operation.childText(u"MaxMatches").toInt(); most > 0)
        search.recordings.resize(std::min<qsizetype>(most, search.recordings.size()));
    return begin(call, std::move(search), writer, "FindRecordingsResponse"_L1);
}

std::optional<SoapFault> SearchService::writeRecordingResults(const OnvifCall &call, SoapWriter &writer)
{
    Search *search = m_searches.use(call.operation.childText(u"SearchToken"), call.user->name,
                                    Search::Kind::Recordings);
    if (!search)
        return noSearch();
    const qsizetype end = std::min(search->given + resultLimit(call), search->recordings.size());
    writer.start(ns::Search, "GetRecordingSearchResultsResponse"_L1);
    writer.start(ns::Search, "ResultList"_L1);
    writer.element(ns::Schema, "SearchState"_L1,
                   end == search->recordings.size() ? u"Completed"_s : u"Searching"_s);
    for (; search->given < end; ++search->given) {
        const Ref ref =
            recordings::recordingFor(recorder(), *call.user, search->recordings.at(search->given));
        if (!ref)
            continue;
        writer.start(ns::Schema, "RecordingInformation"_L1);
        recordingwriting::writeInformation(writer, recorder(), ref, context().clock.nowMs());
        writer.end();
    }
    writer.end();
    writer.end();
    return std::nullopt;
}

std::optional<SoapFault> SearchService::findEvents(const OnvifCall &call, SoapWriter &writer)
{
    const auto start = timeOf(call.operation.childText(u"StartPoint"));
    const QString endText = call.operation.childText(u"EndPoint");
    const qint64 nowMs = context().clock.nowMs();
    const auto end = endText.isEmpty() ? std::optional(nowMs) : timeOf(endText);
    if (!start || !end)
        return badTime();
    const auto [fromMs, untilMs] = std::minmax(*start, *end);
    const bool withState = call.operation.childText(u"IncludeStartState") == "true"_L1;
    const Topics topics(call.operation.childText(u"SearchFilter"));
    Search search;
    search.kind = Search::Kind::Events;
    const Refs refs = scope(call);
    for (const Ref &ref : refs) {
        Change event;
        event.recording = int(search.recordings.size());
        search.recordings.append(ref.token());
        const QList<Span> spans =
            ref.schedule(recorder()).spans(fromMs, untilMs, nowMs, Searches::MaximumEvents);
        if (withState) {
            const auto recordedAt = [&](qint64 timeMs) {
                const auto span = ref.schedule(recorder()).spanFrom(timeMs, nowMs);
                return span && span->beginMs <= timeMs;
            };
            event.timeMs = *start;
            event.isStartState = true;
            event.begins = recordedAt(*start);
            append(search.events, topics, ref.hasAudio(), event);
            event.isStartState = false;
        }
        for (const Span &span : spans) {
            event.begins = true;
            event.timeMs = span.beginMs;
            if (span.beginMs > fromMs)
                append(search.events, topics, ref.hasAudio(), event);
            event.begins = false;
            event.timeMs = span.endMs;
            // What is recorded until now has not ended.
            if (span.endMs < untilMs && span.endMs < nowMs)
                append(search.events, topics, ref.hasAudio(), event);
        }
        if (search.events.size() > Searches::MaximumEvents)
            return tooMuch();
    }
    const bool backward = *end < *start;
    std::ranges::stable_sort(search.events, [backward](const Change &a, const Change &b) {
        if (a.isStartState != b.isStartState)
            return a.isStartState;
        return backward ? a.timeMs > b.timeMs : a.timeMs < b.timeMs;
    });
    if (const int most = call.operation.childText(u"MaxMatches").toInt(); most > 0)
        search.events.resize(std::min<qsizetype>(most, search.events.size()));
    return begin(call, std::move(search), writer, "FindEventsResponse"_L1);
}

std::optional<SoapFault> SearchService::writeEventResults(const OnvifCall &call, SoapWriter &writer)
{
    Search *search =
        m_searches.use(call.operation.childText(u"SearchToken"), call.user->name, Search::Kind::Events);
    if (!search)
        return noSearch();
    const qsizetype end = std::min(search->given + resultLimit(call), search->events.size());
    writer.start(ns::Search, "GetEventSearchResultsResponse"_L1);
    writer.start(ns::Search, "ResultList"_L1);
    writer.element(ns::Schema, "SearchState"_L1,
                   end == search->events.size() ? u"Completed"_s : u"Searching"_s);
    for (; search->given < end; ++search->given)
        writeEvent(writer, *search, search->events.at(search->given));
    writer.end();
    writer.end();
    return std::nullopt;
}

std::optional<SoapFault> SearchService::endSearch(const OnvifCall &call, SoapWriter &writer)
{
    if (!m_searches.end(call.operation.childText(u"SearchToken"), call.user->name))
        return noSearch();
    writer.start(ns::Search, "EndSearchResponse"_L1);
    writer.element(ns::Search, "Endpoint"_L1, timeText(context().clock.nowMs()));
    writer.end();
    return std::nullopt;
}

} // namespace orrin::demo
