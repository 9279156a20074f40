// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/recordingreader.h"

#include "core/session/onvif/devicelink.h"
#include "core/session/onvif/onvifnames.h"

#include <QPointer>
#include <QXmlStreamNamespaceDeclaration>

#include <utility>

namespace orrin {

namespace {

// Of one search; a device that never completes is believed no longer.
constexpr int MaxRounds = 200;
constexpr int MaxChanges = 100'000;
constexpr int ResultsPerRound = 500;

KDSoapValue number(const QString &name, int value)
{
    return SoapClient::argument(name, QString::number(value), onvif::SearchNamespace);
}

KDSoapValue text(const QString &name, const QString &value)
{
    return SoapClient::argument(name, value, onvif::SearchNamespace);
}

} // namespace

RecordingReader::RecordingReader(DeviceLink *link, QObject *parent) : QObject(parent), m_link(link) {}
RecordingReader::~RecordingReader() = default;

SoapClient::Request RecordingReader::searchRequest(const QString &method) const
{
    return {m_link->serviceUrl(m_link->services.search), onvif::SearchNamespace, method};
}

void RecordingReader::call(const SoapClient::Request &request, Handler handler)
{
    m_link->soap.call(request, [self = QPointer<RecordingReader>(this), handler](const SoapAnswer &answer) {
        if (self)
            (self.data()->*handler)(answer);
    });
}

void RecordingReader::read()
{
    if (m_reading)
        return;
    m_reading = true;
    m_found.clear();
    m_pixels.clear();
    m_rounds = 0;
    SoapClient::Request request = searchRequest(QStringLiteral("FindRecordings"));
    request.arguments.append(SoapClient::argument(QStringLiteral("Scope"), KDSoapValueList(), onvif::SearchNamespace));
    request.arguments.append(text(QStringLiteral("KeepAliveTime"), QStringLiteral("PT30S")));
    call(request, &RecordingReader::onFound);
}

void RecordingReader::whenKnown(KnownCallback callback)
{
    m_waiting.push_back(std::move(callback));
    if (m_reading)
        return;
    if (m_known)
        QMetaObject::invokeMethod(this, [this] { finish(); }, Qt::QueuedConnection);
    else
        read();
}

void RecordingReader::onFound(const SoapAnswer &answer)
{
    m_searchToken = answer.isAnswer() ? recordingservice::readSearchToken(answer.body) : QString();
    if (m_searchToken.isEmpty())
        fail(answer);
    else
        fetchRecordings();
}

void RecordingReader::fetchRecordings()
{
    SoapClient::Request request = searchRequest(QStringLiteral("GetRecordingSearchResults"));
    request.arguments.append(text(QStringLiteral("SearchToken"), m_searchToken));
    request.arguments.append(number(QStringLiteral("MaxResults"), ResultsPerRound));
    request.arguments.append(text(QStringLiteral("WaitTime"), QStringLiteral("PT2S")));
    call(request, &RecordingReader::onRecordings);
}

void RecordingReader::onRecordings(const SoapAnswer &answer)
{
    if (!answer.isAnswer()) {
        fail(answer);
        return;
    }
    auto result = recordingservice::readRecordings(answer.body);
    m_found += result.items;
    const bool full = m_found.size() >= recordingservice::RecordingLimit;
    if (!result.completed && !full && ++m_rounds < MaxRounds) {
        fetchRecordings();
        return;
    }
    endSearch(std::exchange(m_searchToken, QString()));
    readPixels();
}

void RecordingReader::readPixels()
{
    // Asked where each recording ends: most have data there.
    QHash<qint64, QStringList> byTime;
    for (const recordingservice::Recording &recording : std::as_const(m_found)) {
        if (recording.toMs > recording.fromMs)
            byTime[(recording.toMs - 1) / 60'000].append(recording.token);
    }
    if (byTime.isEmpty()) {
        m_known = true;
        finish();
        return;
    }
    const auto most = std::max_element(byTime.keyValueBegin(), byTime.keyValueEnd(),
                                       [](const auto &a, const auto &b) { return a.second.size() < b.second.size(); });
    const QStringList tokens = (*most).second;
    qint64 time = 0;
    for (const recordingservice::Recording &recording : std::as_const(m_found)) {
        if (recording.token == tokens.first())
            time = recording.toMs - 2000;
    }
    SoapClient::Request request = searchRequest(QStringLiteral("GetMediaAttributes"));
    for (const QString &token : tokens)
        request.arguments.append(text(QStringLiteral("RecordingTokens"), token));
    request.arguments.append(text(QStringLiteral("Time"), recordingservice::timeText(time)));
    m_link->soap.call(request, [self = QPointer<RecordingReader>(this)](const SoapAnswer &answer) {
        if (!self)
            return;
        // An optional part of the service.
        if (answer.isAnswer())
            self->m_pixels = recordingservice::readPixels(answer.body);
        self->m_known = true;
        self->finish();
    });
}

void RecordingReader::finish()
{
    if (std::exchange(m_reading, false)) {
        m_error.reset();
        m_catalogue.assemble(m_found, m_link->assembled.description.channels, m_link->assembled.channelsBySource, m_pixels);
        m_found.clear();
    }
    const QPointer<RecordingReader> guard(this);
    for (const KnownCallback &callback : std::exchange(m_waiting, {})) {
        callback();
        if (!guard)
            return;
    }
}

void RecordingReader::fail(const SoapAnswer &answer)
{
    m_reading = false;
    if (answer.kind == SoapAnswer::Kind::NoAnswer)
        m_error = PlaybackError(PlaybackError::StreamLost);
    else if (answer.isNotAuthorised() || answer.hasSubcode(u"NotAuthorized") || answer.hasSubcode(u"OperationProhibited"))
        m_error = PlaybackError(PlaybackError::NotPermitted);
    else
        m_error = PlaybackError(PlaybackError::Unsupported);
    finish();
}

void RecordingReader::refresh(int channelId, int trackId, StreamQuality quality, PlaceCallback callback)
{
    const auto known = m_catalogue.place(channelId, trackId, quality);
    if (!known) {
        QMetaObject::invokeMethod(this, [callback = std::move(callback)] { callback(std::nullopt); }, Qt::QueuedConnection);
        return;
    }
    SoapClient::Request request = searchRequest(QStringLiteral("GetRecordingInformation"));
    request.arguments.append(text(QStringLiteral("RecordingToken"), known->recording));
    m_link->soap.call(request, [self = QPointer<RecordingReader>(this), channelId, trackId, quality,
                                callback = std::move(callback)](const SoapAnswer &answer) {
        if (!self)
            return;
        if (answer.isAnswer()) {
            if (const auto recording = recordingservice::readRecording(answer.body))
                self->m_catalogue.update(*recording);
        }
        callback(self->m_catalogue.place(channelId, trackId, quality));
    });
}

void RecordingReader::requestUri(const Place &place, UriCallback callback)
{
    SoapClient::Request request{m_link->serviceUrl(m_link->services.replay), onvif::ReplayNamespace, QStringLiteral("GetReplayUri")};
    KDSoapValueList transport;
    transport.append(SoapClient::argument(QStringLiteral("Protocol"), QStringLiteral("RTSP"), onvif::SchemaNamespace));
    KDSoapValueList setup;
    setup.append(SoapClient::argument(QStringLiteral("Stream"), QStringLiteral("RTP-Unicast"), onvif::SchemaNamespace));
    setup.append(SoapClient::argument(QStringLiteral("Transport"), transport, onvif::SchemaNamespace));
    request.arguments.append(SoapClient::argument(QStringLiteral("StreamSetup"), setup, onvif::ReplayNamespace));
    request.arguments.append(SoapClient::argument(QStringLiteral("RecordingToken"), place.recording, onvif::ReplayNamespace));
    m_link->soap.call(request, [self = QPointer<RecordingReader>(this), callback = std::move(callback)](const SoapAnswer &answer) {
        if (self)
            callback(answer);
    });
}

void RecordingReader::requestChanges(const Place &place, qint64 fromMs, qint64 toMs, ChangesCallback callback)
{
    SoapClient::Request request = searchRequest(QStringLiteral("FindEvents"));
    request.arguments.append(text(QStringLiteral("StartPoint"), recordingservice::timeText(fromMs)));
    request.arguments.append(text(QStringLiteral("EndPoint"), recordingservice::timeText(toMs)));
    KDSoapValueList scope;
    scope.append(SoapClient::argument(QStringLiteral("IncludedRecordings"), place.recording, onvif::SchemaNamespace));
    request.arguments.append(SoapClient::argument(QStringLiteral("Scope"), scope, onvif::SearchNamespace));
    KDSoapValue topic = SoapClient::argument(QStringLiteral("TopicExpression"), QStringLiteral("tns1:RecordingHistory/Track/State"),
                                             onvif::NotificationNamespace);
    topic.childValues().attributes().append(
        KDSoapValue(QStringLiteral("Dialect"), QStringLiteral("http://www.onvif.org/ver10/tev/topicExpression/ConcreteSet")));
    topic.addNamespaceDeclaration(QXmlStreamNamespaceDeclaration(QStringLiteral("tns1"), QStringLiteral("http://www.onvif.org/ver10/topics")));
    KDSoapValueList filter;
    filter.append(topic);
    request.arguments.append(SoapClient::argument(QStringLiteral("SearchFilter"), filter, onvif::SearchNamespace));
    request.arguments.append(text(QStringLiteral("IncludeStartState"), QStringLiteral("true")));
    request.arguments.append(text(QStringLiteral("KeepAliveTime"), QStringLiteral("PT30S")));
    m_link->soap.call(request, [self = QPointer<RecordingReader>(this), callback = std::move(callback)](const SoapAnswer &answer) {
        if (!self)
            return;
        const QString token = answer.isAnswer() ? recordingservice::readSearchToken(answer.body) : QString();
        if (token.isEmpty())
            callback(std::nullopt);
        else
            self->fetchChanges(token, {}, 0, callback);
    });
}

void RecordingReader::fetchChanges(const QString &token, QList<recordingservice::DataChange> changes, int rounds,
                                   ChangesCallback callback)
{
    SoapClient::Request request = searchRequest(QStringLiteral("GetEventSearchResults"));
    request.arguments.append(text(QStringLiteral("SearchToken"), token));
    request.arguments.append(number(QStringLiteral("MaxResults"), ResultsPerRound));
    request.arguments.append(text(QStringLiteral("WaitTime"), QStringLiteral("PT2S")));
    m_link->soap.call(request, [self = QPointer<RecordingReader>(this), token, changes = std::move(changes), rounds,
                                callback = std::move(callback)](const SoapAnswer &answer) mutable {
        if (!self)
            return;
        if (!answer.isAnswer()) {
            callback(std::nullopt);
            return;
        }
        const auto result = recordingservice::readDataChanges(answer.body);
        changes += result.items;
        if (!result.completed && rounds + 1 < MaxRounds && changes.size() < MaxChanges) {
            self->fetchChanges(token, std::move(changes), rounds + 1, std::move(callback));
            return;
        }
        self->endSearch(token);
        callback(changes);
    });
}

// Searches take a place at the device until they are ended.
void RecordingReader::endSearch(const QString &token)
{
    SoapClient::Request request = searchRequest(QStringLiteral("EndSearch"));
    request.arguments.append(text(QStringLiteral("SearchToken"), token));
    m_link->soap.call(request, [](const SoapAnswer &) {});
}

} // namespace orrin
