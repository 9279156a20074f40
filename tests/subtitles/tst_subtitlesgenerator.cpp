// SPDX-License-Identifier: GPL-3.0-or-later
#include "subtitlestream.h"

#include <contract/core/subtitlesgenerator.h>

#include <QTest>

#include <limits>

using namespace orrin;

namespace {

struct Moment
{
    StreamState state = StreamState::Live;
    int speed = 1;
    qint64 serverMs = SubtitleStream::ServerNowMs;
    qint64 clientMs = SubtitleStream::ClientNowMs;
};

QString textOf(const QString &subtitleTemplate, const VideoFrame &frame, const Moment &moment = {},
               bool plain = false)
{
    SubtitlesGenerator generator;
    generator.compileSubtitleTemplate(subtitleTemplate, plain);
    generator.setParameters(frame, moment.serverMs, moment.clientMs, moment.state, moment.speed);
    return generator.generate();
}

} // namespace

class tst_SubtitlesGenerator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_site = std::make_unique<SubtitleStream>();
        QVERIFY(m_site->server);
        QVERIFY(m_site->stream->channel());
    }
    void cleanup() { m_site.reset(); }

    void text_isEmpty_beforeTheFirstTemplate()
    {
        SubtitlesGenerator generator;
        QCOMPARE(generator.generate(), QString());
        generator.setParameters(SubtitleStream::frame(), 1, 1, StreamState::Live, 1);
        QCOMPARE(generator.generate(), QString());
    }

    void text_isEmpty_whenTemplateIs() { QCOMPARE(textOf(QString(), SubtitleStream::frame()), QString()); }

    void text_holdsLiteralsAlone_whenThereIsNoFrame()
    {
        SubtitlesGenerator generator;
        generator.compileSubtitleTemplate(QStringLiteral("a<ServerName><Time:hh><Width><Type>b"), false);
        QCOMPARE(generator.generate(), QStringLiteral("ab"));
        generator.setParameters(VideoFrame(), 1, 1, StreamState::Live, 1);
        QCOMPARE(generator.generate(), QStringLiteral("ab"));
    }

    void text_isThatOfTheWholeTemplate()
    {
        const QString text =
            textOf(QStringLiteral("<font color='white'><ServerName> - [<SortID>] <CameraName><p><Date1a:dd "
                                  "MMM><D3a: yyyy><D1a: - >"
                                  "<Time:hh:mm:ss.zzz> <TimeAgo:(- ><TimeAgo><TimeAgo:)></font><p><b><font "
                                  "color='#66FF66'><Live><Play>"
                                  "</font><font color='#ff8066'><Paused><Frame2></font><font "
                                  "color='#FFFF66'><FwdRew> <SeekSpeedAbs>"
                                  "</font>  <font color='#FF6666'><Rec></font></b>"),
                   SubtitleStream::frame(), {StreamState::Rewind, -8});
        QCOMPARE(
            text,
            QStringLiteral(
                "<font color='white'>Harbour - [20] Gate 2<p>14 Mar 2026 - 15:09:26.540 (- "
                "00:01:23)</font><p>"
                "<b><font color='#66FF66'></font><font color='#ff8066'></font><font color='#FFFF66'>REWIND 8"
                "</font>  <font color='#FF6666'></font></b>"));
    }

    void text_followsNewParameters_withTheSameTemplate()
    {
        SubtitlesGenerator generator;
        generator.compileSubtitleTemplate(QStringLiteral("<Live><Paused>"), false);
        generator.setParameters(SubtitleStream::frame(), 1, 1, StreamState::Live, 1);
        QCOMPARE(generator.generate(), QStringLiteral("LIVE"));
        generator.setParameters(SubtitleStream::frame(), 1, 1, StreamState::Paused, 0);
        QCOMPARE(generator.generate(), QStringLiteral("PAUSED"));
    }

    void names_bringNoMarkup_intoStyledText()
    {
        m_site->connector->lastSession()->describe(SubtitleStream::site(QStringLiteral("<b>\"A & B\"")));
        const QString name = QStringLiteral("<CameraName>");
        QTRY_COMPARE(textOf(name, SubtitleStream::frame()), QStringLiteral("&lt;b&gt;&quot;A &amp; B&quot;"));
        QCOMPARE(textOf(name, SubtitleStream::frame(), {}, true), QStringLiteral("<b>\"A & B\""));
    }

    void names_areThoseOfTheFramesStream()
    {
        FakeStreamProcessor other(8);
        const VideoFrame ofOther(SubtitleStream::frame().image(), 1, 8);
        SubtitlesGenerator generator;
        generator.compileSubtitleTemplate(QStringLiteral("<ServerName><CameraName><SortID><SID><CID>"),
                                          false);
        generator.setParameters(SubtitleStream::frame(), 1, 1, StreamState::Live, 1);
        QCOMPARE(generator.generate(), QStringLiteral("HarbourGate 22012"));
        generator.setParameters(ofOther, 1, 1, StreamState::Live, 1);
        QCOMPARE(generator.generate(), QString());
        generator.setParameters(SubtitleStream::frame(), 1, 1, StreamState::Live, 1);
        m_site->stream.reset();
        generator.setParameters(SubtitleStream::frame(), 1, 1, StreamState::Live, 1);
        QCOMPARE(generator.generate(), QString());
    }

    void cameraName_comesFromTheFrame_whenItsStreamIsGone()
    {
        m_site->stream.reset();
        Image image = SubtitleStream::frame().image();
        image.setExtension(ImageHeaderExtension::CameraName, "Quay");
        QCOMPARE(textOf(QStringLiteral("<CameraName>"), VideoFrame(image, 1, 7)), QStringLiteral("Quay"));
    }

    void date_isInTheServersZone()
    {
        Image image = SubtitleStream::frame().image();
        image.setTimeZone(QTimeZone("Asia/Tokyo"));
        QCOMPARE(textOf(QStringLiteral("<Date1a:dd.MM.> <Time>"), VideoFrame(image)),
                 QStringLiteral("15.03. 00:09:26"));
    }

    void date_hasUsualFormats_withoutArgument()
    {
        QCOMPARE(textOf(QStringLiteral("<Date1a> <D3a> <Time>"), SubtitleStream::frame()),
                 QStringLiteral("14 Mar 2026 15:09:26"));
        QCOMPARE(textOf(QStringLiteral("<D1a>"), SubtitleStream::frame()), QString());
    }

    void date_isEmpty_whenFrameHasNoTime()
    {
        Image image = SubtitleStream::frame().image();
        image.setTime(0);
        QCOMPARE(textOf(QStringLiteral("<Date1a:dd><D3a:yyyy><D1a: - "
                                       "><Time:hh><TimeAgo><TimeAgo:x><ServerVideoTime><ClientVideoTime>"
                                       "<ImageEntryTimeMinusServerVideoTime>"),
                        VideoFrame(image)),
                 QString());
    }

    void timeAgo_shows_data()
    {
        QTest::addColumn<qint64>("behindMs");
        QTest::addColumn<QString>("text");
        QTest::newRow("in time") << qint64(0) << QString();
        QTest::newRow("ahead") << qint64(-5000) << QString();
        QTest::newRow("just below two seconds") << qint64(1999) << QString();
        QTest::newRow("two seconds") << qint64(2000) << QStringLiteral("(00:00:02)");
        QTest::newRow("an hour") << qint64(3'723'999) << QStringLiteral("(01:02:03)");
        QTest::newRow("just below a day") << qint64(86'399'999) << QStringLiteral("(23:59:59)");
        QTest::newRow("days") << qint64(3 * 86'400'000LL + 14'706'000) << QStringLiteral("(3 d 04:05:06)");
    }

    void timeAgo_shows()
    {
        QFETCH(qint64, behindMs);
        Moment moment;
        moment.serverMs = SubtitleStream::CapturedMs + behindMs;
        QTEST(textOf(QStringLiteral("<TimeAgo:(><TimeAgo><TimeAgo:)>"), SubtitleStream::frame(), moment),
              "text");
    }

    void states_haveTheirWords_data()
    {
        QTest::addColumn<StreamState>("state");
        QTest::addColumn<int>("speed");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, StreamState state, int speed, const char *text) {
            QTest::newRow(name) << state << speed << QString::fromLatin1(text);
        };
        //                                                   Live|Play|Paused|Frame2|FwdRew|SeekSpeedAbs
        row("stopped", StreamState::Stopped, 0, "|||||");
        row("live", StreamState::Live, 1, "LIVE|||||");
        row("play", StreamState::Play, 1, "|PLAY||||");
        row("play, double", StreamState::Play, 2, "|PLAY||||2");
        row("paused", StreamState::Paused, 0, "||PAUSED|||");
        row("forward", StreamState::FastForward, 16, "||||FORWARD|16");
        row("forward by one", StreamState::FastForward, 1, "||||FORWARD|1");
        row("rewind", StreamState::Rewind, -4, "||||REWIND|4");
        row("rewind, the lowest", StreamState::Rewind, std::numeric_limits<int>::min(),
            "||||REWIND|2147483648");
        row("step", StreamState::Step, 0, "|||FRAME||");
        row("scrub", StreamState::Scrub, 0, "|||||");
        row("no such state", StreamState(99), 0, "|||||");
    }

    void states_haveTheirWords()
    {
        QFETCH(StreamState, state);
        QFETCH(int, speed);
        QTEST(textOf(QStringLiteral("<Live>|<Play>|<Paused>|<Frame2>|<FwdRew>|<SeekSpeedAbs>"),
                     SubtitleStream::frame(), {state, speed}),
              "text");
    }

    void states_takeWordFromArgument_whileTheyHold()
    {
        const QString text = QStringLiteral("<Live:direct><Paused:held>");
        QCOMPARE(textOf(text, SubtitleStream::frame(), {StreamState::Live, 1}), QStringLiteral("direct"));
        QCOMPARE(textOf(text, SubtitleStream::frame(), {StreamState::Paused, 0}), QStringLiteral("held"));
        QCOMPARE(textOf(text, SubtitleStream::frame(), {StreamState::Play, 1}), QString());
    }

    void recording_shows_data()
    {
        QTest::addColumn<qint64>("endMs");
        QTest::addColumn<QString>("text");
        const qint64 now = SubtitleStream::ServerNowMs;
        QTest::newRow("to this moment") << now << QStringLiteral("REC");
        QTest::newRow("not told for a while") << now - 59'000 << QStringLiteral("REC");
        QTest::newRow("ended a minute ago") << now - 60'000 << QString();
        QTest::newRow("nothing recorded") << qint64(0) << QString();
    }

    void recording_shows()
    {
        QFETCH(qint64, endMs);
        m_site->stream->setFakeConnection(&m_site->connection);
        m_site->stream->base = 0x100;
        m_site->connection.end = dateTimeToTime300(QDateTime::fromMSecsSinceEpoch(endMs, QTimeZone::utc()));
        QTEST(textOf(QStringLiteral("<Rec>"), SubtitleStream::frame()), "text");
        QCOMPARE(m_site->connection.asked, QList<unsigned>{0x102});
    }

    void recording_isAskedFor_onlyByATemplateThatTellsIt()
    {
        m_site->stream->setFakeConnection(&m_site->connection);
        QCOMPARE(textOf(QStringLiteral("<CID>"), SubtitleStream::frame()), QStringLiteral("2"));
        QVERIFY(m_site->connection.asked.isEmpty());
    }

    void recording_isNotKnown_withoutConnection()
    {
        QCOMPARE(textOf(QStringLiteral("<Rec>"), SubtitleStream::frame()), QString());
    }

    void timings_areEmpty_whenFrameTellsNone()
    {
        Image image = SubtitleStream::frame().image();
        image.setExtension(FrameFactsExtension, "x");
        QCOMPARE(
            textOf(
                QStringLiteral(
                    "<ImageEntryTimeMinusServerVideoTime><ElapsedMSecsSinceImageLoad><DecodingDurationMSecs2>"
                    "<FrameRateHuman>"),
                VideoFrame(image)),
            QString());
    }

    void frameRate_isShort_data()
    {
        QTest::addColumn<double>("rate");
        QTest::addColumn<QString>("text");
        QTest::newRow("unknown") << 0.0 << QString();
        QTest::newRow("whole") << 30.0 << QStringLiteral("30 fps");
        QTest::newRow("half") << 12.5 << QStringLiteral("12.5 fps");
        QTest::newRow("rounded") << 29.97 << QStringLiteral("30 fps");
        QTest::newRow("ten") << 10.0 << QStringLiteral("10 fps");
    }

    void frameRate_isShort()
    {
        QFETCH(double, rate);
        FrameFacts facts = SubtitleStream::documentedFacts();
        facts.framesPerSecond = rate;
        QTEST(textOf(QStringLiteral("<FrameRateHuman>"), SubtitleStream::frame(0, facts)), "text");
    }

    void frameType_tellsCodecAndKind()
    {
        const QString type = QStringLiteral("<Type>|<PixelFormat>|<Width>");
        QCOMPARE(textOf(type, SubtitleStream::frame(0x10)), QStringLiteral("H264 key frame|YUV 4:2:0|640"));
        QCOMPARE(textOf(type, SubtitleStream::frame(0)), QStringLiteral("H264 frame|YUV 4:2:0|640"));
        QCOMPARE(textOf(type, VideoFrame(Image::fromAudio(ImageKind::AudioPcm16, "12", 8000, 1))),
                 QStringLiteral("sound||"));
        Image hostile = SubtitleStream::frame(0).image();
        hostile.setExtension(ImageHeaderExtension::Codec, "<i>");
        QCOMPARE(textOf(QStringLiteral("<Type>"), VideoFrame(hostile)), QStringLiteral("&lt;i&gt; frame"));
    }

    void size_isInLowestTerms()
    {
        const QString text = QStringLiteral("<MegaPixels> <Width>x<Height> <ScaleWidth>:<ScaleHeight>");
        QCOMPARE(textOf(text, makeFrame(QSize(1366, 768), Yuv{1})), QStringLiteral("1.0 1366x768 683:384"));
        QCOMPARE(textOf(text, makeFrame(QSize(8, 6), Yuv{1})), QStringLiteral("0.0 8x6 4:3"));
    }

private:
    std::unique_ptr<SubtitleStream> m_site;
};

QTEST_GUILESS_MAIN(tst_SubtitlesGenerator)
#include "tst_subtitlesgenerator.moc"
