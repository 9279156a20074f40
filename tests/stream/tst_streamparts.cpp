// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/processor/backoff.h"
#include "core/stream/processor/outputgate.h"
#include "core/stream/processor/requestidpool.h"
#include "core/stream/processor/streamthreads.h"
#include "core/stream/processor/trackaddress.h"

#include <contract/codecs/videoframe.h>
#include <contract/core/playbackerror.h>
#include <contract/core/playbackstate.h>

#include <QSet>
#include <QSignalSpy>
#include <QTest>

#include <atomic>
#include <thread>

using namespace orrin;
using namespace std::chrono_literals;

namespace {

class RecordingOutput : public SPAbstractOutput
{
public:
    explicit RecordingOutput(std::atomic<int> *destroyedOff = nullptr) : m_destroyedOff(destroyedOff) {}
    ~RecordingOutput() override
    {
        if (m_destroyedOff && std::this_thread::get_id() != m_thread)
            ++*m_destroyedOff;
    }
    void setVideoFrame(const VideoFrame &) override { ++frames; }
    void setDelay(long long) override {}
    void setError(const PlaybackError &, int) override { ++errors; }
    void setBusy(bool) override {}
    void close() override { ++closed; }

    std::atomic<int> frames = 0;
    int errors = 0;
    int closed = 0;

private:
    std::atomic<int> *m_destroyedOff;
    std::thread::id m_thread = std::this_thread::get_id();
};

} // namespace

class TestStreamParts : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void requestIds_areUniqueAmongTheLiving_andNever0();
    void requestIds_are0_whenAllAreTaken();
    void backOff_doublesUpToAMinute_withJitter();
    void backOff_skips_forLastingErrors();
    void gate_forwards_untilClosed();
    void gate_releasesOutputsOnTheMainThread_whenClosedDuringCalls();
    void threads_areFew_andShared();
    void threads_restart_afterShutDown();
    void trackAddress_isReadBack();
    void playbackState_signalsChangesOnly();
    void playbackError_escapesItsDetail();
};

void TestStreamParts::requestIds_areUniqueAmongTheLiving_andNever0()
{
    RequestIdPool pool;
    QSet<quint16> living;
    QList<RequestId> order;
    for (int i = 0; i < 200'000; ++i) {
        const RequestId id = pool.acquire();
        QVERIFY(id.value != 0);
        QVERIFY(!living.contains(id.value));
        living.insert(id.value);
        order.append(id);
        if (order.size() > 100) {
            const RequestId old = order.takeFirst();
            living.remove(old.value);
            pool.release(old);
        }
    }
}

void TestStreamParts::requestIds_are0_whenAllAreTaken()
{
    RequestIdPool pool;
    for (int i = 0; i < 65535; ++i)
        QVERIFY(pool.acquire().value != 0);
    QCOMPARE(pool.acquire().value, 0);
    pool.release({77});
    QCOMPARE(pool.acquire().value, 77);
}

void TestStreamParts::backOff_doublesUpToAMinute_withJitter()
{
    QSet<qint64> seen;
    for (int run = 0; run < 20; ++run) {
        BackOff backOff(1000ms);
        for (const int seconds : {1, 2, 4, 8, 16, 32, 60, 60, 60}) {
            const auto pause = backOff.next();
            QVERIFY(pause >= 800ms * seconds);
            QVERIFY(pause <= 1200ms * seconds);
            seen.insert(pause.count());
        }
        backOff.reset();
        QVERIFY(backOff.next() <= 1200ms);
    }
    QVERIFY(seen.size() > 20);
}

void TestStreamParts::backOff_skips_forLastingErrors()
{
    BackOff backOff(1000ms);
    backOff.skipTo(4);
    QVERIFY(backOff.next() >= 12800ms);
    backOff.skipTo(0);
    QVERIFY(backOff.next() >= 25600ms);
}

void TestStreamParts::gate_forwards_untilClosed()
{
    const auto output = QSharedPointer<RecordingOutput>::create();
    OutputGate gate({output});
    gate.setVideoFrame({});
    gate.setError(PlaybackError(5), 0);
    QCOMPARE(output->frames, 1);
    QCOMPARE(output->errors, 1);
    QCOMPARE(gate.outputs().size(), 1);
    gate.close();
    gate.setVideoFrame({});
    QCOMPARE(output->frames, 1);
    QCOMPARE(output->closed, 1);
    QVERIFY(gate.outputs().isEmpty());
}

void TestStreamParts::gate_releasesOutputsOnTheMainThread_whenClosedDuringCalls()
{
    std::atomic<int> destroyedOff = 0;
    for (int i = 0; i < 50; ++i) {
        auto gate = std::make_shared<OutputGate>(
            QList<QSharedPointer<SPAbstractOutput>>{QSharedPointer<RecordingOutput>::create(&destroyedOff)});
        std::atomic<bool> running = false;
        std::atomic<bool> stop = false;
        std::thread worker([&] {
            while (!stop) {
                gate->setVideoFrame({});
                running = true;
            }
        });
        while (!running)
            std::this_thread::yield();
        gate->close();
        stop = true;
        worker.join();
        gate.reset();
        QCoreApplication::processEvents();
    }
    QCOMPARE(destroyedOff, 0);
}

void TestStreamParts::threads_areFew_andShared()
{
    StreamThreads &threads = StreamThreads::instance();
    QSet<QThread *> seen;
    QList<QThread *> given;
    for (int i = 0; i < 12; ++i) {
        QThread *thread = threads.acquire();
        QVERIFY(thread->isRunning());
        seen.insert(thread);
        given.append(thread);
    }
    QCOMPARE(seen.size(), StreamThreads::maxThreads());
    QVERIFY(StreamThreads::maxThreads() <= 4);
    for (QThread *thread : std::as_const(seen))
        QVERIFY(given.count(thread) <= (12 + seen.size() - 1) / seen.size());
    for (QThread *thread : std::as_const(given))
        threads.release(thread);
    threads.shutDown();
}

void TestStreamParts::threads_restart_afterShutDown()
{
    StreamThreads &threads = StreamThreads::instance();
    threads.acquire();
    QSignalSpy told(&threads, &StreamThreads::aboutToShutDown);
    threads.shutDown();
    QCOMPARE(told.count(), 1);
    QVERIFY(threads.acquire()->isRunning());
    threads.shutDown();
}

void TestStreamParts::trackAddress_isReadBack()
{
    const unsigned address = TrackAddress::base(3) | 1234U;
    QCOMPARE(TrackAddress::trackId(address), 3);
    QCOMPARE(TrackAddress::channelId(address), 1234);
}

void TestStreamParts::playbackState_signalsChangesOnly()
{
    PlaybackState state;
    QSignalSpy modes(&state, &PlaybackState::playModeChanged);
    QSignalSpy changes(&state, &PlaybackState::stateChanged);
    state.setMode(PlayMode::Live);
    state.setMode(PlayMode::Live);
    state.setSeekSpeed(1);
    state.setSeekSpeed(1);
    QCOMPARE(modes.count(), 1);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(state.mode(), PlayMode::Live);
    QCOMPARE(state.seekSpeed(), 1);
}

void TestStreamParts::playbackError_escapesItsDetail()
{
    QCOMPARE(PlaybackError().formattedHTMLString(), QString());
    QCOMPARE(PlaybackError(PlaybackError::BeyondEnd).errorCode(), 8);
    const QString text = PlaybackError(PlaybackError::StreamLost, QStringLiteral("<b>&")).formattedHTMLString();
    QVERIFY(text.endsWith(QStringLiteral("<br/>&lt;b&gt;&amp;")));
    QVERIFY(PlaybackError(4711).formattedHTMLString().size() > 5);
}

QTEST_GUILESS_MAIN(TestStreamParts)
#include "tst_streamparts.moc"
