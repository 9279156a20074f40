// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/streamthreads.h"
#include "replayfixture.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace orrin;
using namespace std::chrono_literals;

namespace {

constexpr qint64 Base = 1'790'000'000'000; // an even second
constexpr qint64 Second = 1000;
constexpr qint64 Hour = 3'600'000;

} // namespace

class TestRecordedPlayback : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void jump_showsTheExactFrame();
    void jump_showsTheFirstFrameBehind_whenNothingIsRecordedThere();
    void jump_reportsBeyondEnd_andTheNextOneWorks();
    void jump_refusesTimesThatCannotBe();
    void jump_holdsThePlayMode();
    void step_movesByOneFrame_acrossGroupsAndGaps();
    void step_needsNoRequest_insideWhatIsKnown();
    void play_showsEachFrameInItsTime_data();
    void play_showsEachFrameInItsTime();
    void play_showsKeyFramesAbove_data();
    void play_showsKeyFramesAbove();
    void pause_holdsTheFrame_andPlayGoesOnThere();
    void direction_turnsAtTheFrameShown();
    void scrub_showsTheNewestTarget_andCollapsesTheOthers();
    void scrub_letsPlayGoOn_whenItEnds();
    void limits_areReached_andReported();
    void end_isWaitedAt_andPlayGoesOnWhenTheRecordingGrows();
    void beginning_stopsRewind();
    void gap_isSkippedAndReported();
    void break_resumesWhereItWas();
    void refusal_isToldOnce_andTheNextCommandWorks_data();
    void refusal_isToldOnce_andTheNextCommandWorks();
    void misbehaviour_endsInAFrameOrAnError_data();
    void misbehaviour_endsInAFrameOrAnError();
    void live_comesBack();
    void live_holdsWhileTheRecordingOpens();
    void track_isChanged_atTheSameMoment();
    void frames_carryZoneMaskAndKeyFlag();
    void memory_isBounded_whilePlayIsHeldBack();
    void context_playsTheSameMoment();
    void context_stepsTheOthersToTheFrame();
    void context_takesInWhoJoins();

private:
    void addLive();

    std::unique_ptr<TestReplayServer> m_server;
    std::unique_ptr<TestRtspServer> m_liveServer;
    std::unique_ptr<FakeSession> m_session;
    std::vector<std::unique_ptr<ReplayStream>> m_streams;
    ReplayStream &stream() { return *m_streams.front(); }
    ReplayStream &open(int context = -1);
    StreamTiming m_timing;
};

void TestRecordedPlayback::initTestCase()
{
    // The recorder works in this thread, in which frames are shown: where their time counts, it must not have to encode.
    TestRecording recording;
    recording.prepare(Base + 90 * Second, Base + 115 * Second);
    recording.prepare(Base, Base + 600 * Second, TestRecording::Part::KeyFrame);
}

void TestRecordedPlayback::init()
{
    m_timing = StreamTiming();
    m_timing.backOffBase = 20ms;
    m_timing.requestTimeout = 1000ms;
    m_timing.rangeSilence = 200ms;
    m_timing.scrubEnd = 150ms;
    m_timing.growthPoll = 50ms;
    m_server = std::make_unique<TestReplayServer>();
    // Ten minutes, a gap of an hour, ten minutes.
    m_server->recording.spans = {{Base, Base + 600 * Second}, {Base + Hour + 600 * Second, Base + Hour + 1200 * Second}};
    m_session = std::make_unique<FakeSession>();
    m_session->failing = PlaybackError::StreamLost;
    m_session->replayFailing = 0;
    m_session->replayEndpoint.url = m_server->url();
    m_session->replayEndpoint.trackToken = "VIDEO001";
    m_session->bounds = TrackBounds(m_server->recording.beginMs() * 3 / 10, m_server->recording.endMs() * 3 / 10);
}

void TestRecordedPlayback::cleanup()
{
    m_streams.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_session.reset();
    m_server.reset();
    m_liveServer.reset();
}

void TestRecordedPlayback::cleanupTestCase()
{
    StreamThreads::instance().shutDown();
}

void TestRecordedPlayback::addLive()
{
    m_liveServer = std::make_unique<TestRtspServer>();
    m_session->failing = 0;
    m_session->endpoints[1].url = m_liveServer->url(QStringLiteral("/high"));
}

ReplayStream &TestRecordedPlayback::open(int context)
{
    m_streams.push_back(std::make_unique<ReplayStream>(*m_session, m_timing, context));
    ReplayStream &stream = *m_streams.back();
    // What live says of itself is another test's matter.
    const bool told = QTest::qWaitFor([&stream] { return !stream.renderer().errors.isEmpty() || !stream.renderer().frames.isEmpty(); });
    Q_ASSERT(told);
    Q_UNUSED(told)
    stream.renderer().errors.clear();
    return stream;
}

void TestRecordedPlayback::jump_showsTheExactFrame()
{
    open().control().pause(0);
    QRandomGenerator random(7);
    for (int i = 0; i < 60; ++i) {
        const qint64 at = Base + random.bounded(600 * int(Second) - 100);
        stream().forget();
        stream().jump(at);
        const qint64 expected = *m_server->recording.frameAt(at * 3 / 10 * 10 / 3);
        QTRY_COMPARE(stream().shown(), expected);
        QCOMPARE(stream().state().mode(), PlayMode::Paused);
    }
    QVERIFY(stream().renderer().errors.isEmpty());
    QVERIFY(!stream().renderer().isBusyWheelActive());
}

void TestRecordedPlayback::jump_showsTheFirstFrameBehind_whenNothingIsRecordedThere()
{
    open().control().pause(0);
    stream().jump(Base + 1800 * Second);
    QTRY_COMPARE(stream().shown(), Base + Hour + 600 * Second);
    stream().jump(Base - Hour);
    QTRY_COMPARE(stream().shown(), Base);
    // The last frame before the gap is shown until the next one is due.
    stream().jump(Base + 600 * Second - 20);
    QTRY_COMPARE(stream().shown(), Base + 600 * Second - 100);
    QVERIFY(stream().renderer().errors.isEmpty());
}

void TestRecordedPlayback::jump_reportsBeyondEnd_andTheNextOneWorks()
{
    open().control().pause(0);
    stream().jump(Base + 5 * Second);
    QTRY_COMPARE(stream().shown(), Base + 5 * Second);
    stream().jump(Base + 5 * Hour);
    QTRY_COMPARE(stream().renderer().errors, QList<int>{PlaybackError::BeyondEnd});
    QCOMPARE(stream().shown(), Base + 5 * Second);
    QTRY_VERIFY(!stream().renderer().isBusyWheelActive());
    stream().jump(Base + 7 * Second + 250);
    QTRY_COMPARE(stream().shown(), Base + 7 * Second + 200);
    QCOMPARE(stream().renderer().errors.size(), 1);
}

void TestRecordedPlayback::jump_refusesTimesThatCannotBe()
{
    open().control().pause(0);
    stream().jump(-1000);
    QTRY_COMPARE(stream().renderer().errors, QList<int>{PlaybackError::NotFound});
    stream().jump(5'000'000'000'000);
    QTRY_COMPARE(stream().renderer().errors.size(), 2);
    QCOMPARE(stream().renderer().errors.last(), int(PlaybackError::BeyondEnd));
    stream().scrub(std::numeric_limits<qint64>::max() / 8);
    QTRY_COMPARE(stream().renderer().errors.size(), 3);
    QVERIFY(m_server->ranges.isEmpty());
    stream().jump(Base);
    QTRY_COMPARE(stream().shown(), Base);
}

void TestRecordedPlayback::jump_holdsThePlayMode()
{
    open();
    stream().jump(Base + 10 * Second);
    QTRY_VERIFY(stream().shown() >= Base + 10 * Second + 300);
    QCOMPARE(stream().state().mode(), PlayMode::Play);
    stream().control().rewind(2);
    stream().forget();
    stream().jump(Base + 60 * Second);
    QTRY_VERIFY(stream().shown() >= Base + 59 * Second && stream().shown() <= Base + 60 * Second - 300);
    // One of the run before may still have been on its way; behind the first of the new run comes none.
    QList<qint64> times = stream().times();
    if (times.first() < Base + 20 * Second)
        times.removeFirst();
    QCOMPARE(times.first(), Base + 60 * Second);
    QVERIFY(std::ranges::is_sorted(times, std::greater()));
    QCOMPARE(stream().state().mode(), PlayMode::Rewind);
}

void TestRecordedPlayback::step_movesByOneFrame_acrossGroupsAndGaps()
{
    open().control().pause(0);
    qint64 at = Base + 598 * Second;
    stream().jump(at);
    QTRY_COMPARE(stream().shown(), at);
    // Over the gap of an hour and into the span behind it, and back again.
    for (int i = 0; i < 40; ++i) {
        at = *m_server->recording.frameAfter(at);
        stream().control().stepForward();
        QTRY_COMPARE(stream().shown(), at);
    }
    QVERIFY(at > Base + Hour);
    for (int i = 0; i < 60; ++i) {
        at = *m_server->recording.frameBefore(at);
        stream().control().stepBack();
        QTRY_COMPARE(stream().shown(), at);
    }
    QVERIFY(at < Base + 597 * Second);
    QCOMPARE(stream().state().mode(), PlayMode::Step);
    // Many at once are that many frames.
    for (int i = 0; i < 25; ++i)
        stream().control().stepBack();
    QTRY_COMPARE(stream().shown(), at - 2500);
    QVERIFY(stream().renderer().errors.isEmpty());
}

void TestRecordedPlayback::step_needsNoRequest_insideWhatIsKnown()
{
    open().control().pause(0);
    stream().jump(Base + 20 * Second + 500);
    QTRY_COMPARE(stream().shown(), Base + 20 * Second + 500);
    const qsizetype requests = m_server->ranges.size();
    for (int i = 1; i <= 5; ++i) {
        stream().control().stepBack();
        QTRY_COMPARE(stream().shown(), Base + 20 * Second + 500 - i * 100);
    }
    QCOMPARE(m_server->ranges.size(), requests);
}

void TestRecordedPlayback::play_showsEachFrameInItsTime_data()
{
    QTest::addColumn<double>("rate");
    QTest::newRow("0.5") << 0.5;
    QTest::newRow("1") << 1.0;
    QTest::newRow("2") << 2.0;
    QTest::newRow("4") << 4.0;
    QTest::newRow("-1") << -1.0;
    QTest::newRow("-2") << -2.0;
    QTest::newRow("-4") << -4.0;
}

void TestRecordedPlayback::play_showsEachFrameInItsTime()
{
    QFETCH(double, rate);
    open().control().pause(0);
    stream().jump(Base + 100 * Second);
    QTRY_COMPARE(stream().shown(), Base + 100 * Second);
    QElapsedTimer timer;
    timer.start();
    if (rate < 0)
        stream().control().rewind(int(-rate));
    else if (rate > 2)
        stream().control().fastForward(int(rate));
    else
        stream().play(rate);
    const int count = std::abs(rate) < 1 ? 8 : 25;
    const qint64 step = rate < 0 ? -100 : 100;
    QTRY_VERIFY(qAbs(stream().shown() - Base - 100 * Second) >= count * 100);
    const double passed = double(timer.elapsed());
    // Each frame, in order.
    QVERIFY(!stream().times().contains(-1));
    QVERIFY(stream().goesBy(step));
    const double expected = count * 100 / std::abs(rate);
    QVERIFY2(passed > expected * 0.85, qPrintable(QString::number(passed)));
    QVERIFY2(passed < expected * 1.5 + 400, qPrintable(QString::number(passed)));
    QCOMPARE(stream().state().mode(), rate < 0 ? PlayMode::Rewind : rate > 2 ? PlayMode::FastForward : PlayMode::Play);
    QCOMPARE(stream().state().seekSpeed(), rate > 0 && rate <= 2 ? 1 : int(rate));
    QVERIFY(!stream().renderer().isBusyWheelActive());
}

void TestRecordedPlayback::play_showsKeyFramesAbove_data()
{
    QTest::addColumn<int>("rate");
    QTest::newRow("8") << 8;
    QTest::newRow("64") << 64;
    QTest::newRow("-16") << -16;
    QTest::newRow("-128") << -128;
}

void TestRecordedPlayback::play_showsKeyFramesAbove()
{
    QFETCH(int, rate);
    open().control().pause(0);
    stream().jump(Base + 300 * Second);
    QTRY_COMPARE(stream().shown(), Base + 300 * Second);
    stream().forget();
    if (rate > 0)
        stream().control().fastForward(rate);
    else
        stream().control().rewind(-rate);
    QTRY_VERIFY(!stream().renderer().frames.isEmpty());
    QElapsedTimer timer;
    timer.start();
    const qint64 first = stream().shown();
    const qint64 firstNumber = stream().numbers().last();
    QTRY_VERIFY(stream().numbers().last() >= firstNumber + 15);
    const double seconds = double(timer.elapsed()) / 1000;
    const QList<qint64> times = stream().times();
    QVERIFY(!times.contains(-1));
    for (qsizetype i = 0; i < times.size(); ++i) {
        QCOMPARE(times[i] % 1000, 0); // a key frame
        if (i > 0)
            QVERIFY((times[i] - times[i - 1]) * rate > 0);
    }
    // The clock leaves frames out rather than fall behind.
    const double reached = double(times.last() - first) / 1000 / seconds;
    QVERIFY2(reached / rate > 0.6 && reached / rate < 1.6, qPrintable(QString::number(reached)));
}

void TestRecordedPlayback::pause_holdsTheFrame_andPlayGoesOnThere()
{
    open();
    stream().jump(Base + 10 * Second);
    QTRY_VERIFY(stream().shown() >= Base + 10 * Second + 500);
    stream().control().pause(0);
    QSignalSpy never(&stream().processor(), &QObject::destroyed);
    never.wait(100);
    const qint64 held = stream().shown();
    const qint64 number = stream().numbers().last();
    never.wait(250);
    QCOMPARE(stream().shown(), held);
    QCOMPARE(stream().state().mode(), PlayMode::Paused);
    stream().forget();
    stream().play(1.0);
    QTRY_VERIFY(stream().times().size() >= 3);
    QCOMPARE(stream().times().first() - held, 100 * (stream().numbers().first() - number));
    QVERIFY(stream().goesBy(100));
}

void TestRecordedPlayback::direction_turnsAtTheFrameShown()
{
    open().control().pause(0);
    stream().jump(Base + 50 * Second);
    QTRY_COMPARE(stream().shown(), Base + 50 * Second);
    stream().forget();
    stream().play(2.0);
    QTRY_VERIFY(stream().times().size() >= 6);
    stream().control().rewind(2);
    QTRY_VERIFY(stream().shown() != 0 && stream().shown() < Base + 50 * Second - 500);
    QList<qint64> times = stream().times();
    const auto top = std::ranges::max_element(times);
    QVERIFY(std::ranges::is_sorted(times.begin(), top + 1));
    QVERIFY(std::ranges::is_sorted(top, times.end(), std::greater()));
    const QList<qint64> numbers = stream().numbers();
    for (qsizetype i = 1; i < times.size(); ++i)
        QVERIFY(qAbs(times[i] - times[i - 1]) <= 100 * (numbers[i] - numbers[i - 1]));
}

void TestRecordedPlayback::scrub_showsTheNewestTarget_andCollapsesTheOthers()
{
    open().control().pause(0);
    stream().jump(Base);
    QTRY_COMPARE(stream().shown(), Base);
    const qsizetype requests = m_server->ranges.size();
    for (int i = 0; i < 100; ++i)
        stream().scrub(Base + i * 5 * Second + 350);
    QCOMPARE(stream().state().mode(), PlayMode::Scrub);
    QTRY_COMPARE(stream().shown(), Base + 99 * 5 * Second + 300);
    QVERIFY2(m_server->ranges.size() - requests < 20, qPrintable(QString::number(m_server->ranges.size() - requests)));
}

void TestRecordedPlayback::scrub_letsPlayGoOn_whenItEnds()
{
    open();
    stream().jump(Base + 10 * Second);
    QTRY_VERIFY(stream().shown() > Base + 10 * Second);
    stream().scrub(Base + 30 * Second);
    QTRY_VERIFY(stream().shown() >= Base + 30 * Second);
    QTRY_COMPARE(stream().state().mode(), PlayMode::Play);
    QTRY_VERIFY(stream().shown() >= Base + 30 * Second + 300);
    stream().control().pause(0);
    stream().scrub(Base + 40 * Second);
    QTRY_COMPARE(stream().shown(), Base + 40 * Second);
    QSignalSpy never(&stream().processor(), &QObject::destroyed);
    never.wait(400);
    QCOMPARE(stream().shown(), Base + 40 * Second);
}

void TestRecordedPlayback::limits_areReached_andReported()
{
    open().control().pause(0);
    stream().control().jumpToStart();
    QTRY_COMPARE(stream().shown(), Base);
    stream().control().stepBack();
    QTRY_COMPARE(stream().state().limit(), PlaybackState::Limit::Beginning);
    QCOMPARE(stream().shown(), Base);
    stream().control().jumpToEnd();
    QTRY_COMPARE(stream().shown(), m_server->recording.endMs() - 100);
    QTRY_COMPARE(stream().state().limit(), PlaybackState::Limit::End);
    stream().control().stepForward();
    QSignalSpy never(&stream().processor(), &QObject::destroyed);
    never.wait(300);
    QCOMPARE(stream().shown(), m_server->recording.endMs() - 100);
    stream().control().stepBack();
    QTRY_COMPARE(stream().shown(), m_server->recording.endMs() - 200);
    QTRY_COMPARE(stream().state().limit(), PlaybackState::Limit::Inside);
    QVERIFY(stream().renderer().errors.isEmpty());
}

void TestRecordedPlayback::end_isWaitedAt_andPlayGoesOnWhenTheRecordingGrows()
{
    open().control().pause(0);
    const qint64 end = m_server->recording.endMs();
    stream().jump(end - 500);
    QTRY_COMPARE(stream().shown(), end - 500);
    stream().play(1.0);
    QTRY_COMPARE(stream().shown(), end - 100);
    QTRY_COMPARE(stream().state().limit(), PlaybackState::Limit::End);
    QCOMPARE(stream().state().mode(), PlayMode::Play);
    QVERIFY(!stream().renderer().isBusyWheelActive());
    stream().forget();
    m_server->recording.spans.last().endMs += 2 * Second;
    QTRY_COMPARE(stream().shown(), end + 2 * Second - 100);
    QCOMPARE(stream().times().first(), end);
    QVERIFY(stream().renderer().errors.isEmpty());
}

void TestRecordedPlayback::beginning_stopsRewind()
{
    open().control().pause(0);
    stream().jump(Base + 700);
    QTRY_COMPARE(stream().shown(), Base + 700);
    stream().control().rewind(2);
    QTRY_COMPARE(stream().shown(), Base);
    QTRY_COMPARE(stream().state().limit(), PlaybackState::Limit::Beginning);
    QCOMPARE(stream().state().mode(), PlayMode::Paused);
    stream().play(1.0);
    QTRY_VERIFY(stream().shown() >= Base + 200);
    QCOMPARE(stream().state().limit(), PlaybackState::Limit::Inside);
}

void TestRecordedPlayback::gap_isSkippedAndReported()
{
    open().control().pause(0);
    const qint64 before = Base + 600 * Second - 100;
    const qint64 behind = Base + Hour + 600 * Second;
    stream().jump(before - 500);
    QTRY_COMPARE(stream().shown(), before - 500);
    QElapsedTimer timer;
    timer.start();
    stream().play(1.0);
    QTRY_VERIFY(stream().shown() >= behind + 300);
    QVERIFY(timer.elapsed() < 4000);
    QVERIFY(stream().times().contains(before));
    QVERIFY(stream().times().contains(behind));
    QCOMPARE(stream().state().gapBegin() * 10 / 3, before);
    QCOMPARE(stream().state().gapEnd() * 10 / 3, behind);
    stream().forget();
    stream().control().rewind(2);
    QTRY_VERIFY(stream().shown() != 0 && stream().shown() <= before - 300);
    QVERIFY(stream().times().contains(before));
}

void TestRecordedPlayback::break_resumesWhereItWas()
{
    open();
    m_server->setMode(TestReplayServer::Mode::Break);
    stream().jump(Base + 10 * Second);
    QTRY_COMPARE(stream().renderer().errors, QList<int>{PlaybackError::StreamLost});
    m_server->setMode(TestReplayServer::Mode::Normal);
    QTRY_VERIFY(stream().shown() >= Base + 13 * Second);
    const QList<qint64> times = stream().times();
    QCOMPARE(times.first(), Base + 10 * Second);
    QVERIFY2(stream().goesBy(100), qPrintable(QString::number(times.size())));
    QCOMPARE(stream().renderer().errors.size(), 1);
    QVERIFY(m_session->replayRequests >= 2);
    // And once more while paused: the next command opens what is needed.
    stream().control().pause(0);
    m_server->closeAll();
    stream().jump(Base + 20 * Second);
    QTRY_COMPARE(stream().shown(), Base + 20 * Second);
}

void TestRecordedPlayback::refusal_isToldOnce_andTheNextCommandWorks_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("no right") << int(PlaybackError::NotPermitted);
    QTest::newRow("no replay") << int(PlaybackError::Unsupported);
    QTest::newRow("no recording") << int(PlaybackError::NotFound);
}

void TestRecordedPlayback::refusal_isToldOnce_andTheNextCommandWorks()
{
    QFETCH(int, code);
    addLive();
    open();
    m_session->replayFailing = code;
    stream().jump(Base);
    QTRY_COMPARE(stream().renderer().errors, QList<int>{code});
    QVERIFY(!stream().renderer().isBusyWheelActive());
    QCOMPARE(m_session->replayRequests, 1);
    const qsizetype frames = stream().renderer().frames.size();
    stream().control().live(0);
    QTRY_VERIFY(stream().renderer().frames.size() > frames + 3);
    QCOMPARE(stream().state().mode(), PlayMode::Live);
    QCOMPARE(m_liveServer->connections, 1);
    m_session->replayFailing = 0;
    stream().jump(Base + 3 * Second);
    QTRY_VERIFY(stream().times().contains(Base + 3 * Second));
    QCOMPARE(stream().renderer().errors.size(), 1);
}

void TestRecordedPlayback::misbehaviour_endsInAFrameOrAnError_data()
{
    using Mode = TestReplayServer::Mode;
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("works"); // the frame comes all the same
    QTest::newRow("no replay option") << int(Mode::RefuseDescribe) << false;
    QTest::newRow("play forbidden") << int(Mode::RefusePlay) << false;
    QTest::newRow("range unknown") << int(Mode::RangeNotFound) << false;
    QTest::newRow("late answers") << int(Mode::LateAnswers) << true;
    QTest::newRow("no answer") << int(Mode::NoAnswer) << false;
    QTest::newRow("another range") << int(Mode::OtherRange) << false;
    QTest::newRow("next key frame") << int(Mode::NextKeyFrame) << true;
    QTest::newRow("no mark at the end") << int(Mode::NoEndMark) << true;
    QTest::newRow("no end") << int(Mode::NoEnd) << true;
    QTest::newRow("old packets") << int(Mode::OldPackets) << true;
    QTest::newRow("session gone") << int(Mode::SessionGone) << false;
    QTest::newRow("noise") << int(Mode::Damage) << false;
}

void TestRecordedPlayback::misbehaviour_endsInAFrameOrAnError()
{
    QFETCH(int, mode);
    QFETCH(bool, works);
    open().control().pause(0);
    // Two that go well, so that there is something to mix up.
    for (const qint64 at : {Base + 100 * Second, Base + 200 * Second}) {
        stream().jump(at);
        QTRY_COMPARE(stream().shown(), at);
    }
    m_server->setMode(TestReplayServer::Mode(mode));
    if (TestReplayServer::Mode(mode) == TestReplayServer::Mode::RefuseDescribe)
        m_server->closeAll();
    for (const qint64 at : {Base + 300 * Second + 450, Base + 400 * Second + 750}) {
        stream().jump(at);
        if (works)
            QTRY_COMPARE(stream().shown(), at - 50);
    }
    if (!works) {
        QTRY_VERIFY_WITH_TIMEOUT(!stream().renderer().errors.isEmpty(), 10'000);
        // Nothing that is not what was asked for was shown.
        QCOMPARE(stream().shown(), Base + 200 * Second);
    }
    m_server->setMode(TestReplayServer::Mode::Normal);
    const qsizetype told = stream().renderer().errors.size();
    stream().jump(Base + 500 * Second + 150);
    // An attempt that the recorder refused just before takes with it, and tells, what was asked for meanwhile.
    QTRY_VERIFY_WITH_TIMEOUT(stream().shown() == Base + 500 * Second + 100 || stream().renderer().errors.size() > told, 10'000);
    if (stream().shown() != Base + 500 * Second + 100)
        stream().jump(Base + 500 * Second + 150);
    QTRY_COMPARE_WITH_TIMEOUT(stream().shown(), Base + 500 * Second + 100, 10'000);
    QTRY_VERIFY(!stream().renderer().isBusyWheelActive());
    QVERIFY(!stream().times().contains(-1));
    if (works)
        QVERIFY(stream().renderer().errors.isEmpty());
}

void TestRecordedPlayback::live_comesBack()
{
    addLive();
    open();
    QTRY_VERIFY(stream().renderer().frames.size() >= 3);
    stream().jump(Base + 10 * Second);
    QTRY_VERIFY(stream().shown() >= Base + 10 * Second);
    QTRY_COMPARE(m_liveServer->open, 0);
    stream().forget();
    stream().control().live(0);
    QCOMPARE(stream().state().mode(), PlayMode::Live);
    // Live frames have no time in their pixels.
    QTRY_VERIFY(stream().renderer().frames.size() >= 5 && stream().shown() == -1);
    QTRY_COMPARE(m_server->open, 0);
    stream().jump(Base + 20 * Second);
    QTRY_VERIFY(stream().shown() >= Base + 20 * Second);
    QVERIFY(stream().renderer().errors.isEmpty());
}

void TestRecordedPlayback::live_holdsWhileTheRecordingOpens()
{
    addLive();
    open();
    QTRY_VERIFY(stream().renderer().frames.size() >= 3);
    m_session->silent = true;
    stream().control().pause(0);
    stream().control().stepBack();
    QSignalSpy never(&stream().processor(), &QObject::destroyed);
    never.wait(100);
    const qsizetype frames = stream().renderer().frames.size();
    never.wait(200);
    QCOMPARE(stream().renderer().frames.size(), frames);
    stream().control().live(0);
    QTRY_VERIFY(stream().renderer().frames.size() > frames + 3);
    QCOMPARE(m_liveServer->connections, 1);
}

void TestRecordedPlayback::track_isChanged_atTheSameMoment()
{
    open().control().pause(0);
    stream().jump(Base + 30 * Second + 400);
    QTRY_COMPARE(stream().shown(), Base + 30 * Second + 400);
    QCOMPARE(m_session->lastTrack, 1);
    stream().forget();
    stream().control().setTrackId(2);
    QCOMPARE(stream().processor().trackIdBase(), 2U << 24);
    QTRY_COMPARE(stream().shown(), Base + 30 * Second + 400);
    QCOMPARE(m_session->lastTrack, 2);
    stream().forget();
    stream().control().setStreamPreference(3);
    QTRY_COMPARE(stream().shown(), Base + 30 * Second + 400);
    QCOMPARE(m_session->lastReplayQuality, StreamQuality::Low);
    stream().control().stepForward();
    QTRY_COMPARE(stream().shown(), Base + 30 * Second + 500);
}

void TestRecordedPlayback::frames_carryZoneMaskAndKeyFlag()
{
    m_session->replayEndpoint.timeZone = QTimeZone::fromSecondsAheadOfUtc(-18000);
    m_session->replayEndpoint.privacyMask = "1;0,0 5000,0 5000,5000";
    open().control().pause(0);
    stream().jump(Base + 30 * Second);
    QTRY_COMPARE(stream().shown(), Base + 30 * Second);
    const Image image = stream().renderer().frames.last().image();
    QCOMPARE(image.qDateTimeServerTimeZone().offsetFromUtc(), -18000);
    QCOMPARE(image.extension(ImageHeaderExtension::PrivacyMask), m_session->replayEndpoint.privacyMask);
    QCOMPARE(image.extension(ImageHeaderExtension::Codec), QByteArray("H264"));
    QCOMPARE(image.flags(), 0x10);
    stream().control().stepForward();
    QTRY_COMPARE(stream().shown(), Base + 30 * Second + 100);
    QCOMPARE(stream().renderer().frames.last().imageRef().flags(), 0);
}

void TestRecordedPlayback::memory_isBounded_whilePlayIsHeldBack()
{
    // More than the system takes in for a client that does not read.
    m_server->recording.spans = {{Base, Base + Hour}};
    open();
    stream().jump(Base + 10 * Second);
    QTRY_VERIFY(stream().shown() >= Base + 10 * Second);
    // Held back, the recorder sends what is played; else all of it.
    const bool held = QTest::qWaitFor([this] {
        const int sent = m_server->frames;
        QTest::qWait(400);
        return m_server->frames - sent < 100;
    }, 30'000);
    QVERIFY(held);
    QVERIFY2(m_server->frames < 20'000, qPrintable(QString::number(m_server->frames)));
    const qint64 shown = stream().shown();
    QTRY_VERIFY(stream().shown() > shown + 500);
}

void TestRecordedPlayback::context_playsTheSameMoment()
{
    for (int i = 0; i < 3; ++i)
        open(4);
    stream().control().pause(0);
    m_streams[1]->jump(Base + 40 * Second);
    for (const auto &each : m_streams)
        QTRY_COMPARE(each->shown(), Base + 40 * Second);
    m_streams[2]->play(2.0);
    QTRY_VERIFY(stream().shown() >= Base + 41 * Second);
    for (int i = 0; i < 20; ++i) {
        QList<qint64> shown;
        for (const auto &each : m_streams)
            shown.append(each->shown());
        const auto [low, high] = std::ranges::minmax(shown);
        QVERIFY2(high - low <= 100, qPrintable(QString::number(high - low)));
        QTest::qWait(20);
    }
    for (const auto &each : m_streams)
        QCOMPARE(each->state().mode(), PlayMode::Play);
    stream().control().pause(0);
    for (const auto &each : m_streams)
        QCOMPARE(each->state().mode(), PlayMode::Paused);
}

void TestRecordedPlayback::context_stepsTheOthersToTheFrame()
{
    open(5);
    open(5);
    stream().control().pause(0);
    stream().jump(Base + 40 * Second);
    for (const auto &each : m_streams)
        QTRY_COMPARE(each->shown(), Base + 40 * Second);
    m_streams[1]->control().stepBack();
    for (const auto &each : m_streams)
        QTRY_COMPARE(each->shown(), Base + 40 * Second - 100);
}

void TestRecordedPlayback::context_takesInWhoJoins()
{
    open(6).control().pause(0);
    stream().jump(Base + 40 * Second);
    QTRY_COMPARE(stream().shown(), Base + 40 * Second);
    open(6).control().live(0);
    QTRY_COMPARE(m_streams[1]->shown(), Base + 40 * Second);
    QCOMPARE(stream().state().mode(), PlayMode::Paused);
    m_streams[1]->control().live(0);
    QCOMPARE(stream().state().mode(), PlayMode::Live);
}

QTEST_GUILESS_MAIN(TestRecordedPlayback)
#include "tst_recordedplayback.moc"
