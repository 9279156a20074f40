// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/recordingcatalogue.h"
#include "core/session/onvif/recordingservice.h"
#include "core/stream/replay/replaytime.h"
#include "core/stream/rtp/ntptime.h"

#include <contract/core/recordedspans.h>

#include <QSignalSpy>
#include <QTest>

using namespace orrin;

namespace {

XmlElement parsed(const QByteArray &xml)
{
    return XmlElement::parse(xml).value_or(XmlElement());
}

recordingservice::Recording recording(const QString &token, const QString &source, qint64 fromMs = 1000, qint64 toMs = 5000)
{
    recordingservice::Recording recording;
    recording.token = token;
    recording.sourceId = source;
    recording.fromMs = fromMs;
    recording.toMs = toMs;
    recording.tracks = {{QStringLiteral("V"), recordingservice::Track::Kind::Video, fromMs, toMs},
                        {QStringLiteral("A"), recordingservice::Track::Kind::Audio, fromMs + 500, toMs}};
    return recording;
}

ChannelDescription channel(int id, const QList<TrackType::Flag> &types)
{
    ChannelDescription channel;
    channel.id = id;
    channel.name = QStringLiteral("Camera %1").arg(id);
    for (const TrackType::Flag type : types)
        channel.tracks.append({int(channel.tracks.size()) + 1, {}, type, true});
    return channel;
}

} // namespace

class TestRecordingService : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void recordings_areRead();
    void recordings_areBounded();
    void changes_areReadOfTracksAlone();
    void pixels_areRead();
    void times_ofNonsenseAreZero();
    void catalogue_findsTracksAndQualities();
    void catalogue_takesTheBetterOneFirst_withoutSizes();
    void catalogue_findsTheChannelByItsName();
    void catalogue_followsWhatGrows();
    void spans_areMergedAndTold();
    void milliseconds_ofATimeAreThoseThatRoundToIt();
    void clock_isWrittenAsRtspHasIt();
};

void TestRecordingService::recordings_areRead()
{
    const auto result = recordingservice::readRecordings(parsed(
        "<R><ResultList><SearchState>Completed</SearchState><RecordingInformation><RecordingToken>r1</RecordingToken><Source>"
        "<SourceId>src</SourceId><Name>Gate</Name></Source><EarliestRecording>2026-03-01T00:00:00Z</EarliestRecording>"
        "<LatestRecording>2026-03-02T00:00:00.250Z</LatestRecording><Track><TrackToken>V1</TrackToken><TrackType>Video</TrackType>"
        "<DataFrom>2026-03-01T00:00:00Z</DataFrom><DataTo>2026-03-01T02:00:00+01:00</DataTo></Track></RecordingInformation>"
        "<RecordingInformation><RecordingToken/></RecordingInformation></ResultList></R>"));
    QVERIFY(result.completed);
    QCOMPARE(result.items.size(), 1);
    const auto &found = result.items.first();
    QCOMPARE(found.token, QStringLiteral("r1"));
    QCOMPARE(found.sourceId, QStringLiteral("src"));
    QCOMPARE(found.toMs - found.fromMs, 86'400'250);
    QCOMPARE(found.tracks.size(), 1);
    QCOMPARE(found.tracks.first().kind, recordingservice::Track::Kind::Video);
    QCOMPARE(found.tracks.first().toMs - found.tracks.first().fromMs, 3'600'000);
    QVERIFY(!recordingservice::readRecordings(parsed("<R><ResultList><SearchState>Searching</SearchState></ResultList></R>")).completed);
    QVERIFY(recordingservice::readRecordings(parsed("<R/>")).completed);
}

void TestRecordingService::recordings_areBounded()
{
    QByteArray tracks;
    for (int i = 0; i < 500; ++i)
        tracks += "<Track><TrackToken>t</TrackToken></Track>";
    QByteArray xml = "<R><ResultList>";
    for (int i = 0; i < 5000; ++i)
        xml += "<RecordingInformation><RecordingToken>x" + QByteArray::number(i) + "</RecordingToken>" + (i == 0 ? tracks : QByteArray())
            + "</RecordingInformation>";
    const auto result = recordingservice::readRecordings(parsed(xml + "</ResultList></R>"));
    QCOMPARE(result.items.size(), recordingservice::RecordingLimit);
    QCOMPARE(result.items.first().tracks.size(), recordingservice::TrackLimit);
}

void TestRecordingService::changes_areReadOfTracksAlone()
{
    const auto event = [](const QByteArray &name, const QByteArray &value, const QByteArray &source, const QByteArray &state) {
        return "<Result><RecordingToken>r1</RecordingToken><TrackToken>V1</TrackToken><Time>2026-03-01T10:00:00Z</Time><Event><Message>"
               "<Message><Source>" + source + "</Source><Data><SimpleItem Name=\"" + name + "\" Value=\"" + value
               + "\"/></Data></Message></Message></Event><StartStateEvent>" + state + "</StartStateEvent></Result>";
    };
    const auto result = recordingservice::readDataChanges(
        parsed("<R><ResultList><SearchState>Searching</SearchState>" + event("IsRecording", "true", {}, "false")
               + event("IsDataPresent", "true", {}, "true")
               + event("IsDataPresent", "false", "<SimpleItem Name=\"Track\" Value=\"V2\"/>", "false") + "</ResultList></R>"));
    QVERIFY(!result.completed);
    QCOMPARE(result.items.size(), 2);
    QVERIFY(result.items[0].present && result.items[0].isStartState);
    QCOMPARE(result.items[0].track, QStringLiteral("V1"));
    QVERIFY(!result.items[1].present && !result.items[1].isStartState);
    QCOMPARE(result.items[1].track, QStringLiteral("V2"));
}

void TestRecordingService::pixels_areRead()
{
    const auto pixels = recordingservice::readPixels(
        parsed("<R><MediaAttributes><RecordingToken>a</RecordingToken><TrackAttributes><VideoAttributes><Width>640</Width>"
               "<Height>360</Height></VideoAttributes></TrackAttributes></MediaAttributes><MediaAttributes><RecordingToken>b</RecordingToken>"
               "</MediaAttributes></R>"));
    QCOMPARE(pixels.size(), 1);
    QCOMPARE(pixels.value(QStringLiteral("a")), 230'400);
}

void TestRecordingService::times_ofNonsenseAreZero()
{
    for (const QByteArray &text : {QByteArray(), QByteArray("yesterday"), QByteArray("9999999999999"), QByteArray(5000, '2'),
                                   QByteArray("2026-13-45T99:99:99Z")}) {
        const auto result = recordingservice::readRecordings(
            parsed("<R><ResultList><RecordingInformation><RecordingToken>r</RecordingToken><EarliestRecording>" + text
                   + "</EarliestRecording></RecordingInformation></ResultList></R>"));
        QCOMPARE(result.items.size(), 1);
        QCOMPARE(result.items.first().fromMs, 0);
    }
}

void TestRecordingService::catalogue_findsTracksAndQualities()
{
    RecordingCatalogue catalogue;
    const QList<ChannelDescription> channels{channel(1, {TrackType::Track1, TrackType::Track2, TrackType::Audio}), channel(2, {TrackType::Track1})};
    catalogue.assemble({recording(QStringLiteral("a"), QStringLiteral("s1")), recording(QStringLiteral("b"), QStringLiteral("s1")),
                        recording(QStringLiteral("c"), QStringLiteral("s1")), recording(QStringLiteral("d"), QStringLiteral("s1")),
                        recording(QStringLiteral("e"), QStringLiteral("unknown"))},
                       channels, {{QStringLiteral("s1"), 1}, {QStringLiteral("s2"), 2}},
                       {{QStringLiteral("a"), 100}, {QStringLiteral("b"), 900}});
    QCOMPARE(catalogue.place(1, 1, StreamQuality::High)->recording, QStringLiteral("b"));
    QCOMPARE(catalogue.place(1, 1, StreamQuality::Low)->recording, QStringLiteral("a"));
    QCOMPARE(catalogue.place(1, 2, StreamQuality::High)->recording, QStringLiteral("c"));
    QCOMPARE(catalogue.place(1, 2, StreamQuality::Low)->recording, QStringLiteral("d"));
    QCOMPARE(catalogue.place(1, 1, StreamQuality::High)->track, QStringLiteral("V"));
    QCOMPARE(catalogue.place(1, 3, StreamQuality::High)->track, QStringLiteral("A"));
    QCOMPARE(catalogue.place(1, 3, StreamQuality::High)->fromMs, 1500);
    QVERIFY(!catalogue.place(1, 4, StreamQuality::High));
    QVERIFY(!catalogue.place(2, 1, StreamQuality::High));
    QVERIFY(!catalogue.place(7, 1, StreamQuality::High));
}

void TestRecordingService::catalogue_takesTheBetterOneFirst_withoutSizes()
{
    RecordingCatalogue catalogue;
    catalogue.assemble({recording(QStringLiteral("x"), QStringLiteral("s")), recording(QStringLiteral("y"), QStringLiteral("s"))},
                       {channel(1, {TrackType::Track1})}, {{QStringLiteral("s"), 1}}, {});
    QCOMPARE(catalogue.place(1, 1, StreamQuality::High)->recording, QStringLiteral("x"));
    QCOMPARE(catalogue.place(1, 1, StreamQuality::Low)->recording, QStringLiteral("y"));
}

void TestRecordingService::catalogue_findsTheChannelByItsName()
{
    RecordingCatalogue catalogue;
    auto named = recording(QStringLiteral("x"), QStringLiteral("rtsp://somewhere"));
    named.sourceName = QStringLiteral("Camera 2");
    catalogue.assemble({named}, {channel(1, {TrackType::Track1}), channel(2, {TrackType::Track1})}, {}, {});
    QVERIFY(!catalogue.place(1, 1, StreamQuality::High));
    QCOMPARE(catalogue.place(2, 1, StreamQuality::Low)->recording, QStringLiteral("x"));
}

void TestRecordingService::catalogue_followsWhatGrows()
{
    RecordingCatalogue catalogue;
    catalogue.assemble({recording(QStringLiteral("x"), QStringLiteral("s"))}, {channel(1, {TrackType::Track1})}, {{QStringLiteral("s"), 1}}, {});
    catalogue.update(recording(QStringLiteral("x"), QStringLiteral("s"), 1000, 9000));
    catalogue.update(recording(QStringLiteral("strange"), QStringLiteral("s"), 0, 1));
    QCOMPARE(catalogue.place(1, 1, StreamQuality::High)->toMs, 9000);
}

void TestRecordingService::spans_areMergedAndTold()
{
    RecordedSpans spans;
    QSignalSpy changed(&spans, &RecordedSpans::changed);
    QCOMPARE(spans.state(), RecordedSpans::State::Unknown);
    spans.setSpans({{500, 700}, {100, 200}, {200, 300}, {650, 900}, {40, 40}, {60, 50}});
    QCOMPARE(spans.spans(), (QList<RecordedSpan>{{100, 300}, {500, 900}}));
    QCOMPARE(changed.count(), 1);
    spans.setSpans({{500, 900}, {100, 300}});
    QCOMPARE(changed.count(), 1);
    spans.setUnavailable();
    spans.setUnavailable();
    QCOMPARE(changed.count(), 2);
    QVERIFY(spans.spans().isEmpty());
    QList<RecordedSpan> many;
    for (qint64 i = 0; i < RecordedSpans::SpanLimit + 10; ++i)
        many.append({i * 10, i * 10 + 5});
    spans.setSpans(many);
    QCOMPARE(spans.spans().size(), RecordedSpans::SpanLimit);
    QCOMPARE(spans.spans().last(), many.last());
}

void TestRecordingService::milliseconds_ofATimeAreThoseThatRoundToIt()
{
    for (Time300 time = 537'000'000'000; time < 537'000'000'400; ++time) {
        const auto rounded = [](qint64 ms) { return rtp::toTime300(std::chrono::milliseconds(ms)); };
        QCOMPARE(rounded(replay::firstMs(time)), time);
        QCOMPARE(rounded(replay::lastMs(time)), time);
        QCOMPARE(rounded(replay::firstMs(time) - 1), time - 1);
        QCOMPARE(rounded(replay::lastMs(time) + 1), time + 1);
    }
    QVERIFY(replay::isPossible(0));
    QVERIFY(!replay::isPossible(-1));
    QVERIFY(!replay::isPossible(4'200'000'000LL * 300));
}

void TestRecordingService::clock_isWrittenAsRtspHasIt()
{
    QCOMPARE(replay::clockText(1'772'366'400'250), QByteArray("20260301T120000.250Z"));
    QCOMPARE(replay::clockText(-5), QByteArray("19700101T000000.000Z"));
    QCOMPARE(replay::clockText(std::numeric_limits<qint64>::max()), QByteArray("21000101T000000.000Z"));
}

QTEST_GUILESS_MAIN(TestRecordingService)
#include "tst_recordingservice.moc"
