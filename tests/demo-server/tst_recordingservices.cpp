// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"
#include "httpprobe.h"

#include <QDateTime>
#include <QJsonArray>
#include <QTest>
#include <QXmlStreamReader>

using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray Recording = "http://www.onvif.org/ver10/recording/wsdl";
const QByteArray Search = "http://www.onvif.org/ver10/search/wsdl";
const QByteArray Replay = "http://www.onvif.org/ver10/replay/wsdl";

constexpr qint64 Minute = 60'000;
constexpr qint64 Hour = 60 * Minute;

QString timeText(qint64 timeMs)
{
    return QDateTime::fromMSecsSinceEpoch(timeMs, QTimeZone::UTC).toString(Qt::ISODateWithMs);
}

qint64 timeOf(const QString &text)
{
    return QDateTime::fromString(text, Qt::ISODateWithMs).toMSecsSinceEpoch();
}

/*! The texts of all elements with this local name. */
QStringList texts(const QByteArray &document, QLatin1StringView name)
{
    QStringList result;
    QXmlStreamReader xml(document);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == name)
            result.append(xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed());
    }
    return xml.hasError() ? QStringList{u"not well formed"_s} : result;
}

/*! The values of all simple items with this name. */
QStringList items(const QByteArray &document, QLatin1StringView name)
{
    QStringList result;
    QXmlStreamReader xml(document);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == "SimpleItem"_L1 &&
            xml.attributes().value("Name"_L1) == name)
            result.append(xml.attributes().value("Value"_L1).toString());
    }
    return result;
}

} // namespace

class TestRecordingServices : public QObject
{
    Q_OBJECT

private:
    DemoServerProcess m_server;
    HttpProbe m_probe{u"operator"_s, u"orrin-operator"_s};
    const qint64 m_hour = pastHour();

    /*! The begin of an hour that has passed, away from the long gap of the week. */
    static qint64 pastHour()
    {
        qint64 hour = QDateTime::currentMSecsSinceEpoch() / Hour * Hour - 4 * Hour;
        while ((hour / (24 * Hour)) % 7 == 0)
            hour -= 12 * Hour;
        return hour;
    }

    HttpProbe::Answer call(HttpProbe &probe, const QByteArray &name, const QByteArray &ns,
                           const QByteArray &content = {}, int recorder = 1)
    {
        const QString path = ns == Recording ? u"recording"_s : ns == Search ? u"search"_s : u"replay"_s;
        return probe.soap(m_server.url(u"/onvif/%1_service"_s.arg(path), recorder),
                          "<x:" + name + " xmlns:x=\"" + ns + "\" xmlns:tt=\"http://www.onvif.org/ver10/schema\">" +
                              content + "</x:" + name + '>');
    }

    HttpProbe::Answer call(const QByteArray &name, const QByteArray &ns, const QByteArray &content = {},
                           int recorder = 1)
    {
        return call(m_probe, name, ns, content, recorder);
    }

    static QByteArray element(const QByteArray &name, const QByteArray &text)
    {
        return "<x:" + name + '>' + text + "</x:" + name + '>';
    }

    QByteArray beginSearch(const QByteArray &name, const QByteArray &content)
    {
        const auto answer = call(name, Search, content + element("KeepAliveTime", "PT30S"));
        return answer.status == 200 ? texts(answer.body, "SearchToken"_L1).value(0).toLatin1() : QByteArray();
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void services_areAnnounced()
    {
        HttpProbe probe;
        const auto answer =
            probe.soap(m_server.url(u"/onvif/device_service"_s),
                       "<d:GetServices xmlns:d=\"http://www.onvif.org/ver10/device/wsdl\">"
                       "<d:IncludeCapability>true</d:IncludeCapability></d:GetServices>");
        QCOMPARE(answer.status, 200);
        const QStringList names = texts(answer.body, "Namespace"_L1);
        for (const QByteArray &ns : {Recording, Search, Replay})
            QVERIFY(names.contains(QString::fromLatin1(ns)));
        QVERIFY(answer.contains("ReversePlayback=\"true\""));
        for (const QByteArray &ns : {Recording, Search, Replay})
            QCOMPARE(call(probe, "GetServiceCapabilities", ns).status, 200);
    }

    void everything_needsTheRightToPlayBack()
    {
        HttpProbe stranger;
        HttpProbe guest(u"guest"_s, u"orrin-guest"_s);
        const QList<std::pair<QByteArray, QByteArray>> calls{
            {"GetRecordings", Recording},        {"GetRecordingSummary", Search},
            {"GetRecordingInformation", Search}, {"GetMediaAttributes", Search},
            {"FindRecordings", Search},          {"GetRecordingSearchResults", Search},
            {"FindEvents", Search},              {"GetEventSearchResults", Search},
            {"EndSearch", Search},               {"GetReplayUri", Replay}};
        for (const auto &[name, ns] : calls) {
            QCOMPARE(call(stranger, name, ns).status, 401);
            QCOMPARE(call(guest, name, ns).status, 403);
        }
        QCOMPARE(guest.get(m_server.url(u"/orrin/v1/spans?source=VS_1&track=1"_s)).status, 403);
    }

    void recordings_areListedWithTheirTracks()
    {
        const auto answer = call("GetRecordings", Recording);
        QCOMPARE(answer.status, 200);
        const QStringList tokens = texts(answer.body, "RecordingToken"_L1);
        QCOMPARE(tokens.size(), 14);
        for (const QString &token : {u"R_1_1_main"_s, u"R_1_1_sub"_s, u"R_1_2_main"_s, u"R_6_1_sub"_s})
            QVERIFY(tokens.contains(token));
        QCOMPARE(texts(answer.body, "SourceId"_L1).count(u"VS_1"_s), 4);
        // Cameras 1 (two tracks), 2 and 4 hear something.
        QCOMPARE(texts(answer.body, "TrackType"_L1).count(u"Audio"_s), 8);
        const auto south = call("GetRecordings", Recording, {}, 2);
        QVERIFY(!texts(south.body, "SourceId"_L1).contains(u"VS_6"_s));
    }

    void search_findsRecordings_andTheirBounds()
    {
        const QByteArray scope =
            element("Scope", "<tt:IncludedSources><tt:Token>VS_3</tt:Token></tt:IncludedSources>"
                             "<tt:IncludedSources><tt:Token>VS_5</tt:Token></tt:IncludedSources>");
        const QByteArray token = beginSearch("FindRecordings", scope);
        QVERIFY(!token.isEmpty());
        const auto part = call("GetRecordingSearchResults", Search,
                               element("SearchToken", token) + element("MaxResults", "3"));
        QCOMPARE(texts(part.body, "SearchState"_L1), QStringList{u"Searching"_s});
        QCOMPARE(texts(part.body, "RecordingToken"_L1),
                 (QStringList{u"R_3_1_main"_s, u"R_3_1_sub"_s, u"R_5_1_main"_s}));
        const auto rest = call("GetRecordingSearchResults", Search, element("SearchToken", token));
        QCOMPARE(texts(rest.body, "SearchState"_L1), QStringList{u"Completed"_s});
        QCOMPARE(texts(rest.body, "RecordingToken"_L1), QStringList{u"R_5_1_sub"_s});
        // Nothing was recorded, so begin and end are the same.
        QCOMPARE(texts(rest.body, "EarliestRecording"_L1), texts(rest.body, "LatestRecording"_L1));
        QCOMPARE(texts(rest.body, "RecordingStatus"_L1), QStringList{u"Stopped"_s});
        const qint64 now = QDateTime::currentMSecsSinceEpoch();
        QVERIFY(now - timeOf(texts(part.body, "EarliestRecording"_L1).value(0)) < 5 * Minute);
        QVERIFY(qAbs(now - timeOf(texts(part.body, "LatestRecording"_L1).value(0))) < 5000);
        QCOMPARE(texts(part.body, "RecordingStatus"_L1).value(0), u"Recording"_s);
        QCOMPARE(call("EndSearch", Search, element("SearchToken", token)).status, 200);
        QCOMPARE(call("EndSearch", Search, element("SearchToken", token)).status, 400);
        QCOMPARE(call("GetRecordingSearchResults", Search, element("SearchToken", token)).status, 400);
    }

    void summary_andInformation_tellBounds()
    {
        const auto summary = call("GetRecordingSummary", Search);
        QCOMPARE(texts(summary.body, "NumberRecordings"_L1), QStringList{u"14"_s});
        const qint64 from = timeOf(texts(summary.body, "DataFrom"_L1).value(0));
        const qint64 until = timeOf(texts(summary.body, "DataUntil"_L1).value(0));
        QVERIFY(until - from >= 30 * 24 * Hour && until - from <= 30 * 24 * Hour + Hour + 10'000);
        const auto one =
            call("GetRecordingInformation", Search, element("RecordingToken", "R_2_1_main"));
        QCOMPARE(timeOf(texts(one.body, "EarliestRecording"_L1).value(0)), from);
        QCOMPARE(texts(one.body, "TrackToken"_L1), (QStringList{u"VIDEO000"_s, u"AUDIO001"_s}));
        QCOMPARE(call("GetRecordingInformation", Search, element("RecordingToken", "R_99_1_main")).status,
                 400);
        const auto attributes =
            call("GetMediaAttributes", Search,
                 element("RecordingTokens", "R_2_1_main") +
                     element("Time", timeText(m_hour + 5 * Minute).toLatin1()));
        QCOMPARE(texts(attributes.body, "Width"_L1), QStringList{u"1280"_s});
        QCOMPARE(timeOf(texts(attributes.body, "Until"_L1).value(0)), m_hour + 20 * Minute);
        const auto gap = call("GetMediaAttributes", Search,
                              element("RecordingTokens", "R_2_1_main") +
                                  element("Time", timeText(m_hour + 21 * Minute).toLatin1()));
        QVERIFY(!gap.contains("MediaAttributes>"));
    }

    void events_tellTheGaps()
    {
        const QByteArray window = element("StartPoint", timeText(m_hour).toLatin1()) +
                                  element("EndPoint", timeText(m_hour + Hour).toLatin1());
        const QByteArray scope =
            element("Scope", "<tt:IncludedRecordings>R_2_1_main</tt:IncludedRecordings>");
        const QByteArray state = element("IncludeStartState", "true");
        const QByteArray recordings =
            element("SearchFilter", "tns1:RecordingHistory/Recording/State");
        QByteArray token = beginSearch("FindEvents", window + scope + recordings + state);
        auto answer = call("GetEventSearchResults", Search, element("SearchToken", token));
        QCOMPARE(texts(answer.body, "SearchState"_L1), QStringList{u"Completed"_s});
        QCOMPARE(items(answer.body, "IsRecording"_L1), (QStringList{u"true"_s, u"false"_s, u"true"_s}));
        QCOMPARE(texts(answer.body, "Time"_L1),
                 (QStringList{timeText(m_hour), timeText(m_hour + 20 * Minute), timeText(m_hour + 23 * Minute)}));
        QCOMPARE(texts(answer.body, "StartStateEvent"_L1),
                 (QStringList{u"true"_s, u"false"_s, u"false"_s}));

        const QByteArray back = element("StartPoint", timeText(m_hour + Hour).toLatin1()) +
                                element("EndPoint", timeText(m_hour).toLatin1());
        const QByteArray tracks = element("SearchFilter", "tns1:RecordingHistory/Track/State");
        token = beginSearch("FindEvents", back + scope + tracks + element("IncludeStartState", "false"));
        answer = call("GetEventSearchResults", Search, element("SearchToken", token));
        QCOMPARE(items(answer.body, "IsDataPresent"_L1),
                 (QStringList{u"true"_s, u"true"_s, u"false"_s, u"false"_s}));
        QCOMPARE(items(answer.body, "Track"_L1).mid(0, 2),
                 (QStringList{u"VIDEO000"_s, u"AUDIO001"_s}));
        QCOMPARE(texts(answer.body, "Time"_L1).value(0), timeText(m_hour + 23 * Minute));
        QCOMPARE(call("FindEvents", Search, scope).status, 400);
    }

    void searches_haveABound()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        HttpProbe probe(u"operator"_s, u"orrin-operator"_s);
        int made = 0;
        int status = 200;
        for (int i = 0; i < 40 && status == 200; ++i) {
            status = probe
                         .soap(server.url(u"/onvif/search_service"_s),
                               "<x:FindRecordings xmlns:x=\"" + Search + "\"><x:KeepAliveTime>PT60S</x:KeepAliveTime></x:FindRecordings>")
                         .status;
            made += status == 200;
        }
        QCOMPARE(made, 16);
        QCOMPARE(status, 500);
    }

    void replayUri_leadsToTheRecording()
    {
        const auto answer = call("GetReplayUri", Replay, element("RecordingToken", "R_1_2_sub"));
        QCOMPARE(texts(answer.body, "Uri"_L1),
                 QStringList{u"rtsps://127.0.0.1:%1/recording/1/2/sub"_s.arg(m_server.rtspPort())});
        QCOMPARE(call("GetReplayUri", Replay, element("RecordingToken", "R_1_9_sub")).status, 400);
        QCOMPARE(texts(call("GetReplayConfiguration", Replay).body, "SessionTimeout"_L1),
                 QStringList{u"PT60S"_s});
    }

    void spans_areGivenWithinTheWindow()
    {
        const auto spans = [this](const QString &query, int recorder = 1) {
            return m_probe.get(m_server.url(u"/orrin/v1/spans?"_s + query, recorder));
        };
        const QString window =
            u"&from=%1&to=%2"_s.arg(QString::number(m_hour), QString::number(m_hour + Hour));
        const auto answer = spans(u"source=VS_2&track=1"_s + window);
        QCOMPARE(answer.status, 200);
        const QJsonArray expected{
            QJsonArray{QString::number(m_hour), QString::number(m_hour + 20 * Minute)},
            QJsonArray{QString::number(m_hour + 23 * Minute), QString::number(m_hour + Hour)}};
        QCOMPARE(answer.json().value("spans"_L1).toArray(), expected);
        QCOMPARE(answer.json().value("more"_L1).toBool(true), false);
        const QJsonArray alarms =
            spans(u"source=VS_1&track=2"_s + window).json().value("spans"_L1).toArray();
        QVERIFY(alarms.size() >= 12 && alarms.size() <= 13);
        const auto all = spans(u"source=VS_1&track=2"_s);
        QCOMPARE(all.json().value("spans"_L1).toArray().size(), 1000);
        QVERIFY(all.json().value("more"_L1).toBool());
        const auto empty = spans(u"source=VS_5&track=1"_s).json();
        QVERIFY(empty.value("spans"_L1).toArray().isEmpty());
        QCOMPARE(empty.value("begin"_L1), empty.value("end"_L1));
        QCOMPARE(spans(u"source=VS_1&track=7"_s).status, 404);
        QCOMPARE(spans(u"source=VS_6&track=1"_s, 2).status, 404);
        QCOMPARE(spans(u"source=VS_1&track=1&from=x"_s).status, 400);
        QCOMPARE(spans(u"source=VS_1&track=1&from=5&to=4"_s).status, 400);
    }

    void site_namesTheRecordings_toThoseWhoMayPlayBack()
    {
        const auto firstTrack = [this](HttpProbe &probe) {
            return probe.get(m_server.url(u"/orrin/v1/site"_s))
                .json()
                .value("cameras"_L1)
                .toArray()
                .at(0)
                .toObject()
                .value("tracks"_L1)
                .toArray()
                .at(0)
                .toObject()
                .value("recordings"_L1)
                .toObject();
        };
        QCOMPARE(firstTrack(m_probe).value("high"_L1).toString(), u"R_1_1_main"_s);
        QCOMPARE(firstTrack(m_probe).value("low"_L1).toString(), u"R_1_1_sub"_s);
        HttpProbe guest(u"guest"_s, u"orrin-guest"_s);
        QVERIFY(firstTrack(guest).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestRecordingServices)
#include "tst_recordingservices.moc"
