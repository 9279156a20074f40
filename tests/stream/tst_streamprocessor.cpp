// SPDX-License-Identifier: GPL-3.0-or-later
#include "../gui/recordingrenderer.h"
#include "core/stream/processor/streamprocessor.h"
#include "core/stream/processor/streamthreads.h"
#include "fakesession.h"
#include "testrtspserver.h"

#include <contract/core/displayoutput.h>
#include <contract/core/mask.h>
#include <contract/gui/display.h>
#include <contract/gui/guispmfactory.h>

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace orrin;
using namespace std::chrono_literals;

namespace {

constexpr int HighFirst = 40;

class OneDisplay : public DisplayFactory
{
public:
    void setDisplayDecorator(const QSharedPointer<DisplayDecorator> &) override {}
    std::shared_ptr<DisplayInterface> createDisplay(ChannelUID, QSharedPointer<PlaybackState>, WidgetType, DisplayType,
                                                    const QString &, const QString &, const QRectF &, const ZoomInfo &) override
    {
        auto display = std::make_shared<orrin::Display>();
        renderer = QSharedPointer<RecordingRenderer>::create();
        display->setRenderer(renderer);
        return display;
    }
    WidgetType type() const override { return WidgetType::QuickItem; }
    DisplayType displayType() const override { return DisplayType::Video; }

    QSharedPointer<RecordingRenderer> renderer;
};

int lumaOf(const VideoFrame &frame)
{
    return frame.bitsY()[0];
}

bool isHigh(const VideoFrame &frame)
{
    return lumaOf(frame) < 120;
}

} // namespace

class TestStreamProcessor : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void cleanupTestCase();

    void frames_reachTheRenderer_withTimesAndNumbers_data();
    void frames_reachTheRenderer_withTimesAndNumbers();
    void frames_carryArrivalTime_whenTheServerHasNone();
    void frames_carryMaskZoneAndCodec();
    void mask_isTakenBack_whenTheSiteSaysSo();
    void login_answersTheDigest();
    void busy_holdsUntilTheFirstFrame();
    void error_comesOnceAndTheStreamResumes_whenItBreaks_data();
    void error_comesOnceAndTheStreamResumes_whenItBreaks();
    void error_tellsTheReason_data();
    void error_tellsTheReason();
    void attempts_backOff_whileTheServerIsSilent();
    void restored_retriesAtOnce();
    void key_isChecked_beforeAnythingIsSent();
    void key_isAccepted_whenItIsTheTrustedOne();
    void quality_switchesWithoutAGap();
    void quality_keepsTheOldStream_whileTheNewOneFails();
    void stop_closesTheConnection_andStartOpensItAgain();
    void pause_holdsThePicture_andLiveGoesOn();
    void losses_neverShowACorruptPicture();
    void destruction_endsTheRendererAtOnce();
    void shutDown_stopsStreams();
    void silentSession_isAskedAgain();
    void replayCommands_areKept();
    void audio_isKeptIdle();

private:
    void create(bool secure = false);
    void start();
    RecordingRenderer *renderer() const { return m_display->renderer.get(); }

    std::unique_ptr<TestRtspServer> m_server;
    std::unique_ptr<FakeSession> m_session;
    QSharedPointer<OneDisplay> m_display;
    QSharedPointer<StreamProcessor> m_processor;
    StreamTiming m_timing;
};

void TestStreamProcessor::init()
{
    m_timing = {20ms, 1000ms, 500ms};
}

void TestStreamProcessor::cleanup()
{
    m_processor.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_display.reset();
    m_session.reset();
    m_server.reset();
}

void TestStreamProcessor::cleanupTestCase()
{
    StreamThreads::instance().shutDown();
}

void TestStreamProcessor::create(bool secure)
{
    m_server = std::make_unique<TestRtspServer>(secure);
    m_session = std::make_unique<FakeSession>();
    for (const auto &[quality, path] : {std::pair(StreamQuality::High, QStringLiteral("/high")),
                                        std::pair(StreamQuality::Low, QStringLiteral("/low"))}) {
        MediaEndpoint endpoint;
        endpoint.url = m_server->url(path);
        m_session->endpoints[int(quality)] = endpoint;
    }
    m_display = QSharedPointer<OneDisplay>::create();
}

void TestStreamProcessor::start()
{
    GuiSPMFactory factory(m_display);
    StreamProcessorParts parts;
    parts.channelUid = ChannelUID(77, 5);
    parts.outputs = factory.createOutputs();
    parts.findSession = [this](unsigned long long uid) { return uid == 77 ? m_session.get() : nullptr; };
    parts.timing = m_timing;
    m_processor = QSharedPointer<StreamProcessor>(new StreamProcessor(std::move(parts)), &QObject::deleteLater);
    m_processor->start();
}

void TestStreamProcessor::frames_reachTheRenderer_withTimesAndNumbers_data()
{
    QTest::addColumn<int>("times");
    QTest::addColumn<bool>("secure");
    QTest::newRow("header extension") << int(TestRtspServer::Times::Extension) << false;
    QTest::newRow("sender reports") << int(TestRtspServer::Times::SenderReport) << false;
    QTest::newRow("over TLS") << int(TestRtspServer::Times::Extension) << true;
}

void TestStreamProcessor::frames_reachTheRenderer_withTimesAndNumbers()
{
    QFETCH(int, times);
    QFETCH(bool, secure);
    create(secure);
    m_server->setTimes(TestRtspServer::Times(times));
    start();
    QVERIFY(m_processor->isActive());
    QVERIFY(m_processor->requestId().value != 0);
    QCOMPARE(m_processor->playbackState()->mode(), PlayMode::Live);
    QCOMPARE(m_session->lastChannel, 5);
    QTRY_VERIFY(renderer()->frames.size() >= 20);
    QVERIFY(renderer()->onOwnThread);
    quint64 lastId = 0;
    for (const VideoFrame &frame : std::as_const(renderer()->frames)) {
        QCOMPARE(QSize(frame.width(), frame.height()), QSize(320, 240));
        QVERIFY(frame.id() > lastId);
        lastId = frame.id();
        QCOMPARE(frame.streamId(), m_processor->requestId().value);
        // The n-th picture has luma 40 + n (up to a step of the encoder) and was captured at n * 40 ms.
        const qint64 ms = time300ToDateTimeUTC(frame.imageRef().time()).toMSecsSinceEpoch() - TestRtspServer::firstCaptureMs();
        QVERIFY(qAbs(ms - qint64(lastId - 1) * 40) <= 2);
        QVERIFY(qAbs(lumaOf(frame) - (HighFirst + int(lastId - 1) % 60)) <= 3);
        QCOMPARE(frame.imageRef().flags(), (lastId - 1) % 5 == 0 ? 0x10 : 0);
    }
    QVERIFY(renderer()->errors.isEmpty());
}

void TestStreamProcessor::frames_carryArrivalTime_whenTheServerHasNone()
{
    create();
    m_server->setTimes(TestRtspServer::Times::None);
    m_session->endpoints[1].clockOffsetMs = 3'600'000;
    start();
    QTRY_VERIFY(!renderer()->frames.isEmpty());
    const qint64 ms = time300ToDateTimeUTC(renderer()->frames.first().imageRef().time()).toMSecsSinceEpoch();
    QVERIFY(qAbs(ms - 3'600'000 - QDateTime::currentMSecsSinceEpoch()) < 5000);
}

void TestStreamProcessor::frames_carryMaskZoneAndCodec()
{
    create();
    const QByteArray mask = "1;0,0 5000,0 5000,5000";
    m_session->endpoints[1].privacyMask = mask;
    m_session->endpoints[1].timeZone = QTimeZone::fromSecondsAheadOfUtc(7200);
    start();
    QTRY_VERIFY(!renderer()->frames.isEmpty());
    const Image image = renderer()->frames.first().image();
    QCOMPARE(image.extension(ImageHeaderExtension::PrivacyMask), mask);
    QCOMPARE(image.extension(ImageHeaderExtension::Codec), QByteArray("H264"));
    QCOMPARE(image.qDateTimeServerTimeZone().offsetFromUtc(), 7200);
}

void TestStreamProcessor::mask_isTakenBack_whenTheSiteSaysSo()
{
    create();
    m_session->endpoints[1].privacyMask = "1;0,0 5000,0 5000,5000";
    start();
    QTRY_VERIFY(!renderer()->frames.isEmpty());
    SiteDescription site;
    site.channels.resize(1);
    site.channels[0].id = 5;
    Q_EMIT m_session->described(site);
    const auto newest = [this] { return renderer()->frames.last().imageRef().extension(ImageHeaderExtension::PrivacyMask); };
    QTRY_COMPARE(newest(), Mask::encode({}).toUtf8());
    site.channels[0].privacyMask = "1;0,0 1,0 1,1";
    Q_EMIT m_session->described(site);
    QTRY_COMPARE(newest(), site.channels[0].privacyMask);
}

void TestStreamProcessor::login_answersTheDigest()
{
    create();
    m_server->setUser(QStringLiteral("viewer"), QStringLiteral("secret word"));
    m_session->endpoints[1].credentials =
        QSharedPointer<Credentials>::create(Credentials{QStringLiteral("viewer"), QStringLiteral("secret word")});
    start();
    QTRY_VERIFY(!renderer()->frames.isEmpty());
    QCOMPARE(m_server->requests, (QList<QByteArray>{"DESCRIBE", "DESCRIBE", "SETUP", "PLAY"}));
    QCOMPARE(m_server->connections, 1);
}

void TestStreamProcessor::busy_holdsUntilTheFirstFrame()
{
    create();
    start();
    QTRY_VERIFY(renderer()->frames.size() >= 3);
    QTRY_VERIFY(renderer()->calls.contains(QStringLiteral("idle")));
    QCOMPARE(renderer()->calls.first(), QStringLiteral("busy"));
    QCOMPARE(renderer()->calls.count(QStringLiteral("idle")), 1);
    QVERIFY(!renderer()->isBusyWheelActive());
}

void TestStreamProcessor::error_comesOnceAndTheStreamResumes_whenItBreaks_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("connection drops") << int(TestRtspServer::Mode::DropStream);
    QTest::newRow("pictures stall") << int(TestRtspServer::Mode::StallStream);
    QTest::newRow("goodbye") << int(TestRtspServer::Mode::Bye);
}

void TestStreamProcessor::error_comesOnceAndTheStreamResumes_whenItBreaks()
{
    QFETCH(int, mode);
    // Long enough for the server's mode to change between the error and the first attempt.
    m_timing.backOffBase = 300ms;
    create();
    m_server->setMode(TestRtspServer::Mode(mode));
    start();
    QTRY_COMPARE(renderer()->errors.size(), 1);
    QCOMPARE(renderer()->errors.first(), int(PlaybackError::StreamLost));
    QTRY_VERIFY(renderer()->calls.contains(QStringLiteral("idle")));
    const qsizetype framesBefore = renderer()->frames.size();
    QVERIFY(framesBefore > 0);
    // The next attempts are refused: the same error is not told again.
    m_server->setMode(TestRtspServer::Mode::Garbage);
    const int connections = m_server->connections;
    QTRY_VERIFY(m_server->connections >= connections + 2);
    QVERIFY(renderer()->isBusyWheelActive());
    QCOMPARE(renderer()->errors.size(), 1);
    m_server->setMode(TestRtspServer::Mode::Normal);
    QTRY_VERIFY_WITH_TIMEOUT(renderer()->frames.size() > framesBefore + 10, 10'000);
    QVERIFY(!renderer()->isBusyWheelActive());
    QCOMPARE(renderer()->errors.size(), 1);
    for (qsizetype i = 1; i < renderer()->frames.size(); ++i)
        QVERIFY(renderer()->frames[i].id() > renderer()->frames[i - 1].id());
}

void TestStreamProcessor::error_tellsTheReason_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("code");
    QTest::newRow("wrong login") << int(TestRtspServer::Mode::RefuseUser) << int(PlaybackError::NotPermitted);
    QTest::newRow("unknown stream") << int(TestRtspServer::Mode::NoStream) << int(PlaybackError::NotFound);
    QTest::newRow("no video") << int(TestRtspServer::Mode::NoVideo) << int(PlaybackError::Unsupported);
    QTest::newRow("silence") << int(TestRtspServer::Mode::Silent) << int(PlaybackError::StreamLost);
    QTest::newRow("garbage") << int(TestRtspServer::Mode::Garbage) << int(PlaybackError::StreamLost);
}

void TestStreamProcessor::error_tellsTheReason()
{
    QFETCH(int, mode);
    QFETCH(int, code);
    m_timing.requestTimeout = 200ms;
    create();
    m_server->setMode(TestRtspServer::Mode(mode));
    m_session->endpoints[1].credentials =
        QSharedPointer<Credentials>::create(Credentials{QStringLiteral("u"), QStringLiteral("p")});
    start();
    QTRY_COMPARE(renderer()->errors, QList<int>{code});
    QVERIFY(renderer()->isBusyWheelActive());
}

void TestStreamProcessor::attempts_backOff_whileTheServerIsSilent()
{
    create();
    m_session->failing = PlaybackError::StreamLost;
    m_timing.backOffBase = 10ms;
    start();
    QElapsedTimer timer;
    timer.start();
    QTRY_VERIFY(m_session->requests >= 7);
    // 1 + 2 + 4 + 8 + 16 + 32 times the base, a fifth less at most.
    QVERIFY(timer.elapsed() >= 63 * 10 * 8 / 10);
    QCOMPARE(renderer()->errors.size(), 1);
}

void TestStreamProcessor::restored_retriesAtOnce()
{
    create();
    m_session->failing = PlaybackError::StreamLost;
    m_timing.backOffBase = 60'000ms;
    start();
    QCOMPARE(m_processor->connection(), m_session->connection());
    QTRY_COMPARE(renderer()->errors.size(), 1);
    Q_EMIT m_session->lost(ConnectionError());
    QCOMPARE(m_processor->connection(), nullptr);
    m_session->failing = 0;
    Q_EMIT m_session->restored();
    QCOMPARE(m_processor->connection(), m_session->connection());
    QTRY_VERIFY(!renderer()->frames.isEmpty());
}

void TestStreamProcessor::key_isChecked_beforeAnythingIsSent()
{
    create(true);
    m_session->endpoints[1].trustedKey = TestRtspServer::publicKey() + 'x';
    start();
    QTRY_COMPARE(renderer()->errors, QList<int>{PlaybackError::UntrustedKey});
    QCOMPARE(m_server->bytesReceived, 0);
    QVERIFY(m_server->requests.isEmpty());
    QVERIFY(renderer()->frames.isEmpty());
}

void TestStreamProcessor::key_isAccepted_whenItIsTheTrustedOne()
{
    create(true);
    m_session->endpoints[1].trustedKey = TestRtspServer::publicKey();
    QVERIFY(!TestRtspServer::publicKey().isEmpty());
    start();
    QTRY_VERIFY(!renderer()->frames.isEmpty());
    QVERIFY(renderer()->errors.isEmpty());
}

void TestStreamProcessor::quality_switchesWithoutAGap()
{
    create();
    start();
    QTRY_VERIFY(renderer()->frames.size() >= 5);
    QSignalSpy changes(m_processor->playbackState().get(), &PlaybackState::stateChanged);
    m_processor->inputControl()->setStreamPreference(3);
    QCOMPARE(changes.count(), 1);
    QTRY_VERIFY(!isHigh(renderer()->frames.last()));
    QTRY_COMPARE(m_server->open, 1);
    QCOMPARE(renderer()->frames.last().width(), 160);
    m_processor->inputControl()->setStreamPreference(1);
    QTRY_VERIFY(isHigh(renderer()->frames.last()));
    // No busy wheel in between, the numbers run on, and each stream begins with its own first picture.
    QCOMPARE(renderer()->calls.count(QStringLiteral("busy")), 1);
    QVERIFY(renderer()->errors.isEmpty());
    int switches = 0;
    for (qsizetype i = 1; i < renderer()->frames.size(); ++i) {
        const VideoFrame &frame = renderer()->frames[i];
        QVERIFY(frame.id() > renderer()->frames[i - 1].id());
        switches += isHigh(frame) != isHigh(renderer()->frames[i - 1]);
    }
    QCOMPARE(switches, 2);
    // A number that is missing belongs to a frame that a newer one replaced before the display was free, and to no other.
    const auto *display = dynamic_cast<const orrin::Display *>(
        m_processor->outputs().first().dynamicCast<DisplayOutput>()->presenter()->displays().first().get());
    QVERIFY(display);
    QVERIFY(display->deliveredFrames() + display->replacedFrames() >= renderer()->frames.last().id());
    QTRY_COMPARE(m_server->requests.count("TEARDOWN"), 2);
}

void TestStreamProcessor::quality_keepsTheOldStream_whileTheNewOneFails()
{
    create();
    m_session->endpoints[3].url = m_server->url(QStringLiteral("/nothing"));
    m_timing.backOffBase = 5ms;
    start();
    QTRY_VERIFY(renderer()->frames.size() >= 3);
    m_processor->inputControl()->setStreamPreference(3);
    QTRY_VERIFY(m_server->requests.count("DESCRIBE") >= 3);
    const qsizetype frames = renderer()->frames.size();
    QTRY_VERIFY(renderer()->frames.size() > frames + 5);
    QVERIFY(renderer()->errors.isEmpty());
    QVERIFY(!renderer()->isBusyWheelActive());
    m_session->endpoints[3].url = m_server->url(QStringLiteral("/low"));
    QTRY_VERIFY_WITH_TIMEOUT(!isHigh(renderer()->frames.last()), 10'000);
}

void TestStreamProcessor::stop_closesTheConnection_andStartOpensItAgain()
{
    create();
    start();
    QTRY_VERIFY(renderer()->frames.size() >= 3);
    m_processor->stop();
    QVERIFY(!m_processor->isActive());
    QCOMPARE(m_processor->playbackState()->mode(), PlayMode::Stopped);
    QTRY_COMPARE(m_server->open, 0);
    QCOMPARE(m_server->requests.last(), QByteArray("TEARDOWN"));
    QCoreApplication::processEvents();
    const qsizetype frames = renderer()->frames.size();
    QVERIFY(!renderer()->isBusyWheelActive());
    m_processor->start();
    QTRY_VERIFY(renderer()->frames.size() > frames);
    QCOMPARE(m_server->connections, 2);
    QVERIFY(renderer()->frames.last().id() > renderer()->frames[frames - 1].id());
}

void TestStreamProcessor::pause_holdsThePicture_andLiveGoesOn()
{
    create();
    start();
    QTRY_VERIFY(renderer()->frames.size() >= 3);
    m_processor->inputControl()->pause(0);
    QCOMPARE(m_processor->playbackState()->mode(), PlayMode::Paused);
    QCOMPARE(m_processor->playbackState()->seekSpeed(), 0);
    // The frame that is on its way at most.
    QSignalSpy quiet(m_processor->playbackState().get(), &QObject::destroyed);
    quiet.wait(100);
    const qsizetype frames = renderer()->frames.size();
    quiet.wait(200);
    QCOMPARE(renderer()->frames.size(), frames);
    QCOMPARE(m_server->open, 1);
    m_processor->inputControl()->live(0);
    QCOMPARE(m_processor->playbackState()->mode(), PlayMode::Live);
    QTRY_VERIFY(renderer()->frames.size() > frames + 3);
    QCOMPARE(m_server->connections, 1);
    QCOMPARE(renderer()->frames[frames].imageRef().flags() & 0x10, 0x10);
}

void TestStreamProcessor::losses_neverShowACorruptPicture()
{
    create();
    m_server->setMode(TestRtspServer::Mode::LosePackets);
    start();
    QTRY_VERIFY(renderer()->frames.size() >= 10);
    // The fourth picture was damaged and the fifth needs it; the sixth is the next key frame.
    const qint64 afterLoss = TestRtspServer::firstCaptureMs() + 5 * 40;
    for (const VideoFrame &frame : std::as_const(renderer()->frames)) {
        const qint64 ms = time300ToDateTimeUTC(frame.imageRef().time()).toMSecsSinceEpoch();
        QVERIFY(ms <= TestRtspServer::firstCaptureMs() + 2 * 40 + 2 || ms >= afterLoss - 2);
        const int picture = int((ms - TestRtspServer::firstCaptureMs() + 20) / 40);
        QVERIFY(qAbs(lumaOf(frame) - (HighFirst + picture % 60)) <= 3);
    }
    QVERIFY(renderer()->errors.isEmpty());
}

void TestStreamProcessor::destruction_endsTheRendererAtOnce()
{
    create();
    start();
    QTRY_VERIFY(renderer()->frames.size() >= 3);
    const QWeakPointer<RecordingRenderer> watch = m_display->renderer;
    m_display->renderer.reset();
    AbstractStreamProcessor *raw = m_processor.get();
    m_processor.reset();
    QCoreApplication::sendPostedEvents(raw, QEvent::DeferredDelete);
    QVERIFY(watch.isNull());
    QTRY_COMPARE(m_server->open, 0);
}

void TestStreamProcessor::shutDown_stopsStreams()
{
    create();
    start();
    QTRY_VERIFY(renderer()->frames.size() >= 3);
    StreamThreads::instance().shutDown();
    QVERIFY(!m_processor->isActive());
    QTRY_COMPARE(m_server->open, 0);
    m_processor->start();
    const qsizetype frames = renderer()->frames.size();
    QTRY_VERIFY(renderer()->frames.size() > frames + 3);
}

void TestStreamProcessor::silentSession_isAskedAgain()
{
    create();
    auto session = std::move(m_session);
    start();
    QCOMPARE(m_processor->connection(), nullptr);
    QTRY_COMPARE(renderer()->errors, QList<int>{PlaybackError::StreamLost});
    m_session = std::move(session);
    QTRY_VERIFY(!renderer()->frames.isEmpty());
    QCOMPARE(m_processor->connection(), m_session->connection());
    m_session.reset();
    QCOMPARE(m_processor->connection(), nullptr);
}

void TestStreamProcessor::replayCommands_areKept()
{
    create();
    start();
    SPAbstractInputControl *control = m_processor->inputControl();
    control->setSpeed(0.5);
    control->play(SPInputControlInterface::FromHere, SPInputControlInterface::NoMark);
    QCOMPARE(m_processor->lastCommand(), (PlaybackCommand{PlaybackCommand::Kind::Play, -4, 0.5}));
    control->rewind(8);
    QCOMPARE(m_processor->lastCommand(), (PlaybackCommand{PlaybackCommand::Kind::Rewind, -4, 8.0}));
    control->rewind(-1);
    QCOMPARE(m_processor->lastCommand().speed, 8.0);
    control->jump(3000, 1);
    QCOMPARE(m_processor->lastCommand(), (PlaybackCommand{PlaybackCommand::Kind::Jump, 3000, 1.0}));
    control->scrub(6000, SPInputControlInterface::NoMark);
    QCOMPARE(m_processor->lastCommand().kind, PlaybackCommand::Kind::Scrub);
    control->setTrackId(2);
    QCOMPARE(m_processor->trackIdBase(), 2U << 24);
    // This session plays nothing back, and says so; live goes on.
    QTRY_VERIFY(!renderer()->errors.isEmpty());
    control->live(0);
    QTRY_VERIFY(renderer()->frames.size() >= 3);
    for (const int code : std::as_const(renderer()->errors))
        QCOMPARE(code, int(PlaybackError::Unsupported));
}

void TestStreamProcessor::audio_isKeptIdle()
{
    create();
    StreamProcessorParts parts;
    parts.hasVideo = false;
    parts.findSession = [this](unsigned long long) { return m_session.get(); };
    StreamProcessor processor(std::move(parts));
    processor.start();
    processor.setPresentationMode(2);
    QCOMPARE(processor.presentationMode(), 2);
    QVERIFY(processor.isActive());
    QCOMPARE(m_session->requests, 0);
    QVERIFY(processor.inputControl());
    processor.stop();
    QVERIFY(!processor.isActive());
}

QTEST_GUILESS_MAIN(TestStreamProcessor)
#include "tst_streamprocessor.moc"
