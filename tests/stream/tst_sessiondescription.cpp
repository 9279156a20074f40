// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/codecsetup.h"
#include "core/stream/rtsp/parameterlist.h"
#include "core/stream/rtsp/sessiondescription.h"

#include <QTest>

using namespace orrin;
using namespace orrin::rtsp;
using Kind = MediaDescription::Kind;

static const QByteArray Camera = "v=0\r\no=- 1 1 IN IP4 10.0.0.1\r\ns=Camera\r\nt=0 0\r\na=control:*\r\na=range:npt=now-\r\n"
                                 "m=video 0 RTP/AVP 96 97\r\na=rtpmap:97 JPEG/90000\r\na=rtpmap:96 h264/90000\r\n"
                                 "a=fmtp:96 packetization-mode=1;sprop-parameter-sets=Z0IAKeKQ,aM48gA==\r\na=control:trackID=1\r\n"
                                 "m=audio 0 RTP/AVP 0\r\na=control:trackID=2\r\n"
                                 "m=application 0 RTP/AVP 107\r\na=rtpmap:107 vnd.onvif.metadata/90000\r\n";

class TestSessionDescription : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void parse_readsMediaInOrder();
    void parse_takesTextWithoutOriginAndWithBareLineFeeds();
    void parse_readsStaticTypesAndChannels();
    void parse_isNothing_whenTooLargeOrEmpty();
    void parse_boundsMedia();
    void parse_survivesNonsense_data();
    void parse_survivesNonsense();
    void codec_isTold_data();
    void codec_isTold();
    void parameterList_readsQuotesAndEscapes();
    void parameterList_isBounded();
};

void TestSessionDescription::parse_readsMediaInOrder()
{
    const auto session = SessionDescription::parse(Camera);
    QVERIFY(session);
    QCOMPARE(session->control, QByteArray("*"));
    QCOMPARE(session->range, QByteArray("npt=now-"));
    QCOMPARE(session->media.size(), 3);
    const MediaDescription &video = session->media[0];
    QCOMPARE(video.kind, Kind::Video);
    QCOMPARE(video.payloadType, 96);
    QCOMPARE(video.encoding, QByteArray("H264"));
    QCOMPARE(video.clockRate, 90000);
    QCOMPARE(video.control, QByteArray("trackID=1"));
    QCOMPARE(ParameterList(video.fmtp, ';').value("sprop-parameter-sets"), QByteArray("Z0IAKeKQ,aM48gA=="));
    QCOMPARE(session->media[1].kind, Kind::Audio);
    QCOMPARE(session->media[2].kind, Kind::Application);
}

void TestSessionDescription::parse_takesTextWithoutOriginAndWithBareLineFeeds()
{
    const auto session = SessionDescription::parse("v=0\nm=video 0 RTP/AVP 26\na=control:rtsp://h/x\n");
    QVERIFY(session);
    QCOMPARE(session->media[0].encoding, QByteArray("JPEG"));
    QCOMPARE(session->media[0].control, QByteArray("rtsp://h/x"));
}

void TestSessionDescription::parse_readsStaticTypesAndChannels()
{
    const auto session =
        SessionDescription::parse("m=audio 0 RTP/AVP 8\r\nm=audio 0 RTP/AVP 97\r\na=rtpmap:97 L16/48000/2\r\n");
    QVERIFY(session);
    QCOMPARE(session->media[0].encoding, QByteArray("PCMA"));
    QCOMPARE(session->media[0].clockRate, 8000);
    QCOMPARE(session->media[1].channels, 2);
    QCOMPARE(session->media[1].clockRate, 48000);
}

void TestSessionDescription::parse_isNothing_whenTooLargeOrEmpty()
{
    QVERIFY(!SessionDescription::parse(""));
    QVERIFY(!SessionDescription::parse("v=0\r\ns=x\r\n"));
    QVERIFY(!SessionDescription::parse(Camera + QByteArray(70'000, 'x')));
}

void TestSessionDescription::parse_boundsMedia()
{
    const auto session = SessionDescription::parse(QByteArray("m=video 0 RTP/AVP 96\n").repeated(500));
    QVERIFY(session);
    QCOMPARE(session->media.size(), SessionDescription::MaxMedia);
}

void TestSessionDescription::parse_survivesNonsense_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("no words") << QByteArray("m=\r\n");
    QTest::newRow("no payload type") << QByteArray("m=video 0 RTP/AVP\r\na=rtpmap:\r\na=fmtp:96\r\n");
    QTest::newRow("bad payload type") << QByteArray("m=video 0 RTP/AVP 999\r\na=rtpmap:999 H264/90000\r\n");
    QTest::newRow("negative clock") << QByteArray("m=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/-5/-7\r\n");
    QTest::newRow("attributes only") << QByteArray("a=control\r\na=:\r\na=\r\nm=video 0 x 96\r\na=:::\r\n");
    QTest::newRow("zeros") << QByteArray("m=video\0 0 RTP/AVP 96\r\n\0\0\0", 28);
}

void TestSessionDescription::parse_survivesNonsense()
{
    QFETCH(QByteArray, text);
    const auto session = SessionDescription::parse(text);
    if (session) {
        for (const MediaDescription &medium : session->media) {
            QVERIFY(medium.clockRate >= 0);
            QVERIFY(medium.channels >= 1);
            QVERIFY(medium.payloadType < 128);
        }
    }
}

void TestSessionDescription::codec_isTold_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("codec");
    QTest::newRow("H.264") << QByteArray("m=video 0 RTP/AVP 96\na=rtpmap:96 H264/90000\n") << int(VideoCodec::H264);
    QTest::newRow("H.265") << QByteArray("m=video 0 RTP/AVP 96\na=rtpmap:96 H265/90000\n") << int(VideoCodec::H265);
    QTest::newRow("MJPEG") << QByteArray("m=video 0 RTP/AVP 26\n") << int(VideoCodec::Mjpeg);
    QTest::newRow("another") << QByteArray("m=video 0 RTP/AVP 96\na=rtpmap:96 VP8/90000\n") << int(VideoCodec::Unknown);
    QTest::newRow("sound") << QByteArray("m=audio 0 RTP/AVP 96\na=rtpmap:96 H264/90000\n") << int(VideoCodec::Unknown);
    QTest::newRow("nothing") << QByteArray("m=video 0 RTP/AVP\n") << int(VideoCodec::Unknown);
}

void TestSessionDescription::codec_isTold()
{
    QFETCH(QByteArray, text);
    QFETCH(int, codec);
    struct Sink : rtp::AccessUnitSink
    {
        void accessUnitReady(const rtp::AccessUnit &) override {}
    } sink;
    const auto session = SessionDescription::parse(text);
    QVERIFY(session);
    QCOMPARE(int(rtp::videoCodecOf(session->media[0])), codec);
    QCOMPARE(rtp::createDepacketiser(session->media[0], sink) != nullptr, VideoCodec(codec) != VideoCodec::Unknown);
}

void TestSessionDescription::parameterList_readsQuotesAndEscapes()
{
    const ParameterList list("realm=\"a, \\\"b\\\"\", Nonce = xyz ,flag, empty=, last=\"open", ',');
    QCOMPARE(list.value("realm"), QByteArray("a, \"b\""));
    QCOMPARE(list.value("nonce"), QByteArray("xyz"));
    QVERIFY(list.contains("flag"));
    QCOMPARE(list.value("flag"), QByteArray());
    QVERIFY(list.contains("empty"));
    QCOMPARE(list.value("last"), QByteArray("open"));
    QVERIFY(!list.contains("none"));
}

void TestSessionDescription::parameterList_isBounded()
{
    const ParameterList list(QByteArray("a=1;").repeated(1000) + "b=2", ';');
    QVERIFY(list.contains("a"));
    QVERIFY(!list.contains("b"));
}

QTEST_APPLESS_MAIN(TestSessionDescription)
#include "tst_sessiondescription.moc"
