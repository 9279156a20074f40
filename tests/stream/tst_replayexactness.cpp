// SPDX-License-Identifier: GPL-3.0-or-later
// Recorded video of the demo server through the whole SDK: the moment drawn in the pixels is the moment that each frame tells, and the frame
// shown is the one that was asked for.
#include "../../apps/demo-server/timestrip.h"
#include "demoserverprocess.h"
#include "onedisplay.h"

#include <contract/core/abstractstreamprocessor.h>
#include <contract/core/channel.h>
#include <contract/core/connection.h>
#include <contract/core/connectionmanager.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/server.h>
#include <contract/core/servergroup.h>
#include <contract/core/splinkedfactory.h>

#include <QRandomGenerator>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

constexpr Time300 Second = 300;
constexpr Time300 Hour = 3600 * Second;
constexpr Time300 FrameStep = 20; // 15 a second
constexpr int WaitMs = 10'000;

/*! Frame n was captured n / 15 s after 1970, cut to milliseconds. */
qint64 drawnMs(Time300 time)
{
    return time / FrameStep * 1000 / 15;
}

bool isExact(const VideoFrame &frame)
{
    const Image &image = frame.imageRef();
    const auto strip = timestrip::read(image.planes().y, image.planes().strideY, image.width(), image.height());
    return strip && image.time() % FrameStep == 0 && qint64(strip->timeMs) == drawnMs(image.time());
}

} // namespace

class TestReplayExactness : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();

    void bounds_areThoseOfTheRecorder();
    void spans_haveTheGapsOfTheRecorder();
    void jumpsAndSteps_showTheVeryFrame_data();
    void jumpsAndSteps_showTheVeryFrame();
    void play_showsWhatItTells_data();
    void play_showsWhatItTells();
    void limits_areTheFirstAndTheLastFrame();
    void gaps_areSkipped();
    void context_keepsTwoCamerasAtOneMoment();

private:
    Channel *channel(int recorder, int id) const;
    void open(int recorder, int id);
    QSharedPointer<AbstractStreamProcessor> start(int recorder, int id, int context = -1);
    RecordingRenderer &renderer() const { return *m_display->renderer; }
    Time300 shown() const { return renderer().frames.isEmpty() ? 0 : renderer().frames.last().imageRef().time(); }
    bool waitFor(Time300 time) const
    {
        return QTest::qWaitFor([this, time] { return shown() == time; }, WaitMs);
    }

    test::DemoServerProcess m_server;
    QTemporaryDir m_folder;
    ConnectionManager *m_manager = nullptr;
    std::unique_ptr<SPLinkedFactory> m_factory;
    QSharedPointer<OneDisplay> m_display;
    QSharedPointer<AbstractStreamProcessor> m_stream;
};

void TestReplayExactness::initTestCase()
{
    QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
    OrrinSDK::initInstance(u"orrin-tests"_s, u"replay"_s, nullptr, m_folder.filePath(u"test.log"_s));
    m_manager = OrrinSDK::instance()->connectionManager();
    QSignalSpy complete(m_manager, &ConnectionManager::initialConnectionComplete);
    m_manager->connectToServer(u"admin"_s, u"orrin-admin"_s, CorvaneUrl(u"127.0.0.1:%1"_s.arg(m_server.port()), 8601), true);
    QVERIFY(complete.wait(12'000));
}

void TestReplayExactness::cleanupTestCase()
{
    OrrinSDK::shutdown();
}

void TestReplayExactness::cleanup()
{
    m_stream.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_display.reset();
    m_factory.reset();
}

Channel *TestReplayExactness::channel(int recorder, int id) const
{
    for (Server *server : m_manager->servers()) {
        if (server->name() == (recorder == 1 ? u"North"_s : u"South"_s))
            return server->channelById(id);
    }
    return nullptr;
}

QSharedPointer<AbstractStreamProcessor> TestReplayExactness::start(int recorder, int id, int context)
{
    Channel *found = channel(recorder, id);
    m_display = QSharedPointer<OneDisplay>::create();
    m_factory = std::make_unique<SPLinkedFactory>(QSharedPointer<SPMFactory>(new GuiSPMFactory(m_display)), nullptr, nullptr, nullptr);
    auto stream = found ? m_factory->createProcessor(found->uid(), context) : nullptr;
    if (stream)
        stream->start();
    return stream;
}

void TestReplayExactness::open(int recorder, int id)
{
    m_stream = start(recorder, id);
    QVERIFY(m_stream);
    m_stream->inputControl()->pause(0);
}

void TestReplayExactness::bounds_areThoseOfTheRecorder()
{
    open(1, 1);
    Connection *connection = m_stream->connection();
    QVERIFY(connection);
    const auto bounds = [&] { return connection->createTrackBounds(m_stream->trackIdBase() | 1u); };
    QTRY_VERIFY_WITH_TIMEOUT(bounds()->end() > 0, WaitMs);
    const qint64 now = QDateTime::currentMSecsSinceEpoch() * 3 / 10;
    QVERIFY(qAbs(bounds()->end() - now) < 60 * Second);
    QVERIFY(qAbs(now - bounds()->begin() - 30 * 24 * Hour) < 2 * Hour);
    // It records on, and who asks again is told.
    const Time300 end = bounds()->end();
    QTRY_VERIFY_WITH_TIMEOUT(bounds()->end() > end, 20'000);
    QCOMPARE(connection->createTrackBounds(200u)->end(), 0);
}

void TestReplayExactness::spans_haveTheGapsOfTheRecorder()
{
    Channel *found = channel(1, 2);
    QVERIFY(found);
    Connection *connection = found->server()->connection();
    QVERIFY(connection);
    const auto spans = connection->createRecordedSpans(2, 1);
    QCOMPARE(spans, connection->createRecordedSpans(2, 1));
    // All of the thirty days: a gap of three minutes in each hour.
    QTRY_VERIFY_WITH_TIMEOUT(spans->spans().size() >= 30 * 24, 30'000);
    QCOMPARE(spans->state(), RecordedSpans::State::Known);
    const QList<RecordedSpan> list = spans->spans();
    for (qsizetype i = 1; i < list.size(); ++i) {
        QCOMPARE(list[i].fromMs - list[i - 1].toMs, 180'000);
        QCOMPARE(list[i].fromMs / 60'000 % 60, 23);
    }
    const auto none = connection->createRecordedSpans(2, 77);
    QTRY_COMPARE_WITH_TIMEOUT(none->state(), RecordedSpans::State::Unavailable, WaitMs);
}

void TestReplayExactness::jumpsAndSteps_showTheVeryFrame_data()
{
    QTest::addColumn<int>("recorder");
    QTest::addColumn<int>("camera");
    QTest::addColumn<int>("rounds");
    QTest::newRow("H.264") << 1 << 1 << 100;
    QTest::newRow("H.265, with gaps") << 1 << 6 << 25;
    QTest::newRow("JPEG") << 2 << 4 << 25;
}

// A jump and a step for each round.
void TestReplayExactness::jumpsAndSteps_showTheVeryFrame()
{
    QFETCH(int, recorder);
    QFETCH(int, camera);
    QFETCH(int, rounds);
    open(recorder, camera);
    const auto spans = channel(recorder, camera)->server()->connection()->createRecordedSpans(camera, 1);
    QTRY_VERIFY_WITH_TIMEOUT(!spans->spans().isEmpty() && spans->spans().first().fromMs < QDateTime::currentMSecsSinceEpoch() - 3 * 86'400'000,
                             30'000);
    const auto recorded = [&spans](Time300 time) {
        const qint64 ms = time * 10 / 3;
        return std::ranges::any_of(spans->spans(), [ms](const auto &span) { return ms >= span.fromMs + 100 && ms < span.toMs - 100; });
    };
    const qint64 base = QDateTime::currentMSecsSinceEpoch() * 3 / 10 - 48 * Hour;
    QRandomGenerator random(11);
    for (int i = 0; i < rounds; ++i) {
        const Time300 at = base + random.bounded(24 * 3600 * 300);
        if (!recorded(at))
            continue;
        const Time300 expected = at / FrameStep * FrameStep;
        m_stream->inputControl()->jump(at, 1);
        QVERIFY2(waitFor(expected), qPrintable(u"round %1: %2 from %3 to %4"_s.arg(i).arg(at).arg(expected).arg(shown())));
        QVERIFY(isExact(renderer().frames.last()));
        const bool back = random.bounded(2);
        if (!recorded(at - Second) || !recorded(at + Second))
            continue;
        if (back)
            m_stream->inputControl()->stepBack();
        else
            m_stream->inputControl()->stepForward();
        QVERIFY2(waitFor(expected + (back ? -FrameStep : FrameStep)), qPrintable(u"step %1 to %2"_s.arg(i).arg(shown())));
        QVERIFY(isExact(renderer().frames.last()));
        renderer().frames.clear();
    }
    QVERIFY2(renderer().errors.isEmpty(), qPrintable(renderer().calls.filter(u"error"_s).join(u", "_s)));
}

void TestReplayExactness::play_showsWhatItTells_data()
{
    QTest::addColumn<int>("camera");
    QTest::addColumn<double>("rate");
    for (const double rate : {0.5, 1.0, 2.0, 4.0, 16.0, 64.0, 1024.0, -1.0, -2.0, -4.0, -16.0, -256.0})
        QTest::newRow(qPrintable(QString::number(rate))) << 1 << rate;
    QTest::newRow("H.265 1") << 6 << 1.0;
    QTest::newRow("H.265 -2") << 6 << -2.0;
    QTest::newRow("H.265 32") << 6 << 32.0;
}

void TestReplayExactness::play_showsWhatItTells()
{
    QFETCH(int, camera);
    QFETCH(double, rate);
    open(1, camera);
    m_stream->inputControl()->setStreamPreference(3);
    // At half past an hour two days ago, where this one has no gap.
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    const Time300 start = (now - now % 3600 - 48 * 3600 - 1200) * Second;
    m_stream->inputControl()->jump(start, 1);
    QVERIFY(waitFor(start));
    renderer().frames.clear();
    SPAbstractInputControl *control = m_stream->inputControl();
    if (rate < 0) {
        control->rewind(int(-rate));
    } else if (rate > 2) {
        control->fastForward(int(rate));
    } else {
        control->setSpeed(rate);
        control->play(SPInputControlInterface::FromHere, SPInputControlInterface::NoMark);
    }
    QTRY_VERIFY_WITH_TIMEOUT(!renderer().frames.isEmpty(), WaitMs);
    QElapsedTimer timer;
    timer.start();
    const Time300 first = shown();
    // Two seconds' worth of it, however long a busy machine needs to draw that.
    const auto covered = [&] { return double(shown() - first) / 300 / rate; };
    QTRY_VERIFY_WITH_TIMEOUT(covered() >= 2 && renderer().frames.size() >= 8, 3 * WaitMs);
    QVERIFY2(covered() < double(timer.elapsed()) / 1000 * 1.2 + 0.5, qPrintable(u"%1 in %2 ms"_s.arg(covered()).arg(timer.elapsed())));
    const QList<VideoFrame> frames = renderer().frames;
    for (qsizetype i = 0; i < frames.size(); ++i) {
        QVERIFY(isExact(frames[i]));
        if (i == 0)
            continue;
        const Time300 step = frames[i].imageRef().time() - frames[i - 1].imageRef().time();
        if (std::abs(rate) > 4)
            QVERIFY(step * rate > 0);
        else // each frame; one whose number is missing was replaced before the display was free
            QCOMPARE(step, Time300(rate > 0 ? FrameStep : -FrameStep) * Time300(frames[i].id() - frames[i - 1].id()));
    }
    QVERIFY(renderer().errors.isEmpty());
}

void TestReplayExactness::limits_areTheFirstAndTheLastFrame()
{
    open(1, 1);
    m_stream->inputControl()->jumpToStart();
    const auto bounds = [this] { return m_stream->connection()->createTrackBounds(m_stream->trackIdBase() | 1u); };
    QTRY_VERIFY_WITH_TIMEOUT(!renderer().frames.isEmpty() && isExact(renderer().frames.last()) && shown() == bounds()->begin(), WaitMs);
    m_stream->inputControl()->stepBack();
    QTRY_COMPARE_WITH_TIMEOUT(m_stream->playbackState()->limit(), PlaybackState::Limit::Beginning, WaitMs);
    m_stream->inputControl()->jumpToEnd();
    const Time300 now = QDateTime::currentMSecsSinceEpoch() * 3 / 10;
    QTRY_VERIFY2_WITH_TIMEOUT(qAbs(shown() - now) < 15 * Second, qPrintable(QString::number(shown() - now)), WaitMs);
    QVERIFY(isExact(renderer().frames.last()));
    m_stream->inputControl()->jump(now + Hour, 1);
    QTRY_COMPARE_WITH_TIMEOUT(renderer().errors, QList<int>{PlaybackError::BeyondEnd}, WaitMs);
}

void TestReplayExactness::gaps_areSkipped()
{
    open(1, 2);
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    const Time300 gap = (now - now % 3600 - 30 * 3600 + 20 * 60) * Second; // three minutes
    m_stream->inputControl()->jump(gap + 60 * Second, 1);
    QVERIFY(waitFor(gap + 180 * Second));
    m_stream->inputControl()->stepBack();
    QVERIFY(waitFor(gap - FrameStep));
    m_stream->inputControl()->setSpeed(1.0);
    m_stream->inputControl()->play(SPInputControlInterface::FromHere, SPInputControlInterface::NoMark);
    QTRY_VERIFY_WITH_TIMEOUT(shown() > gap + 181 * Second, WaitMs);
    QCOMPARE(m_stream->playbackState()->gapBegin(), gap - FrameStep);
    QCOMPARE(m_stream->playbackState()->gapEnd(), gap + 180 * Second);
}

void TestReplayExactness::context_keepsTwoCamerasAtOneMoment()
{
    const auto one = start(1, 1, 3);
    const QSharedPointer<RecordingRenderer> first = m_display->renderer;
    const auto other = start(1, 4, 3);
    const QSharedPointer<RecordingRenderer> second = m_display->renderer;
    QVERIFY(one && other);
    const auto at = [](const QSharedPointer<RecordingRenderer> &each) { return each->frames.isEmpty() ? 0 : each->frames.last().imageRef().time(); };
    const auto both = [&](Time300 time) { return QTest::qWaitFor([&] { return at(first) == time && at(second) == time; }, WaitMs); };
    const auto told = [&] { return qPrintable(u"%1 and %2"_s.arg(at(first)).arg(at(second))); };
    one->inputControl()->pause(0);
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    const Time300 start = (now - now % 3600 - 48 * 3600 - 1200) * Second;
    one->inputControl()->jump(start, 1);
    QVERIFY2(both(start), told());
    other->inputControl()->stepForward();
    QVERIFY2(both(start + FrameStep), told());
    one->inputControl()->stepBack();
    QVERIFY2(both(start), told());
    other->inputControl()->setSpeed(1.0);
    other->inputControl()->play(SPInputControlInterface::FromHere, SPInputControlInterface::NoMark);
    Time300 farthest = 0;
    const bool played = QTest::qWaitFor([&] {
        // Both are taken to the display by this thread in one turn of the event loop, or one of them in the next.
        farthest = std::max(farthest, qAbs(at(first) - at(second)));
        return at(first) > start + 3 * Second && at(second) > start + 3 * Second;
    }, 3 * WaitMs);
    QVERIFY2(played, told());
    QVERIFY2(farthest <= FrameStep, qPrintable(QString::number(farthest)));
    one->inputControl()->pause(0);
    QTRY_VERIFY_WITH_TIMEOUT(at(first) == at(second), WaitMs);
    QCOMPARE(other->playbackState()->mode(), PlayMode::Paused);
    other->inputControl()->jump(start + 3600 * Second, 1);
    QVERIFY2(both(start + 3600 * Second), told());
    for (const auto &each : {first, second}) {
        QVERIFY(isExact(each->frames.last()));
        QVERIFY(each->errors.isEmpty());
    }
}

QTEST_GUILESS_MAIN(TestReplayExactness)
#include "tst_replayexactness.moc"
