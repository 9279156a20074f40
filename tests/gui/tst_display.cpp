// SPDX-License-Identifier: GPL-3.0-or-later
#include "../codecs/testpicture.h"
#include "recordingrenderer.h"

#include <contract/gui/display.h>

#include <QTest>

#include <memory>
#include <thread>

using namespace orrin;

class TestDisplay : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void setVideoFrame_delivers_byTheEventLoop();
    void setVideoFrame_replaces_whatWaits();
    void errorsAndBusy_keepTheirOrder();
    void frame_comesAfterWhatWasBefore_whenReplaced();
    void errors_areBounded();
    void frames_arriveOnCreationThread_fromOthers();
    void delivery_stops_whenRendererIsTakenOff();
    void delivery_survives_whenRendererEndsTheDisplay();
    void renderer_ends_whenTakenOff();
    void delay_isKept();

private:
    static VideoFrame frame(quint64 id) { return VideoFrame(testPicture(16, 16, 50, 128, 128), id, 1); }
};

void TestDisplay::setVideoFrame_delivers_byTheEventLoop()
{
    orrin::Display display;
    const auto renderer = QSharedPointer<RecordingRenderer>::create();
    display.setRenderer(renderer);
    QCOMPARE(display.renderer(), renderer.staticCast<ImageRenderingInterface>());
    display.setVideoFrame(frame(1));
    QVERIFY(renderer->calls.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(renderer->calls, QStringList{QStringLiteral("frame 1")});
    QCOMPARE(display.deliveredFrames(), 1U);
    QCOMPARE(display.replacedFrames(), 0U);
}

void TestDisplay::setVideoFrame_replaces_whatWaits()
{
    orrin::Display display;
    const auto renderer = QSharedPointer<RecordingRenderer>::create();
    display.setRenderer(renderer);
    for (quint64 id = 1; id <= 5; ++id)
        display.setVideoFrame(frame(id));
    QCoreApplication::processEvents();
    QCOMPARE(renderer->calls, QStringList{QStringLiteral("frame 5")});
    QCOMPARE(display.deliveredFrames(), 1U);
    QCOMPARE(display.replacedFrames(), 4U);
}

void TestDisplay::errorsAndBusy_keepTheirOrder()
{
    orrin::Display display;
    const auto renderer = QSharedPointer<RecordingRenderer>::create();
    display.setRenderer(renderer);
    display.setBusy(true);
    display.setError(PlaybackError(PlaybackError::StreamLost), 7);
    display.setError(PlaybackError(PlaybackError::BeyondEnd), 8);
    display.setBusy(false);
    QCoreApplication::processEvents();
    QCOMPARE(renderer->calls, (QStringList{QStringLiteral("busy"), QStringLiteral("error 5 7"), QStringLiteral("error 8 8"),
                                           QStringLiteral("idle")}));
}

void TestDisplay::frame_comesAfterWhatWasBefore_whenReplaced()
{
    orrin::Display display;
    const auto renderer = QSharedPointer<RecordingRenderer>::create();
    display.setRenderer(renderer);
    display.setVideoFrame(frame(1));
    display.setError(PlaybackError(PlaybackError::StreamLost), 0);
    display.setVideoFrame(frame(2));
    display.setBusy(false);
    QCoreApplication::processEvents();
    QCOMPARE(renderer->calls,
             (QStringList{QStringLiteral("error 5 0"), QStringLiteral("frame 2"), QStringLiteral("idle")}));
}

void TestDisplay::errors_areBounded()
{
    orrin::Display display;
    const auto renderer = QSharedPointer<RecordingRenderer>::create();
    display.setRenderer(renderer);
    display.setVideoFrame(frame(1));
    for (int i = 0; i < 100; ++i)
        display.setError(PlaybackError(PlaybackError::StreamLost), i);
    QCoreApplication::processEvents();
    QCOMPARE(renderer->calls.size(), 65);
    QCOMPARE(renderer->calls.first(), QStringLiteral("frame 1"));
    QCOMPARE(renderer->calls.at(1), QStringLiteral("error 5 36"));
    QCOMPARE(renderer->calls.last(), QStringLiteral("error 5 99"));
}

void TestDisplay::frames_arriveOnCreationThread_fromOthers()
{
    constexpr int Frames = 2000;
    orrin::Display display;
    const auto renderer = QSharedPointer<RecordingRenderer>::create();
    display.setRenderer(renderer);
    std::thread sender([&display] {
        for (quint64 id = 1; id <= Frames; ++id) {
            display.setVideoFrame(frame(id));
            display.setDelay(qint64(id));
            if (id % 100 == 0)
                display.setBusy(id % 200 == 0);
        }
    });
    QTRY_VERIFY(!renderer->frames.isEmpty() && renderer->frames.last().id() == Frames);
    sender.join();
    QVERIFY(renderer->onOwnThread);
    QCOMPARE(display.deliveredFrames() + display.replacedFrames(), quint64(Frames));
    quint64 last = 0;
    for (const VideoFrame &shown : std::as_const(renderer->frames)) {
        QVERIFY(shown.id() > last);
        last = shown.id();
    }
}

void TestDisplay::delivery_stops_whenRendererIsTakenOff()
{
    orrin::Display display;
    const auto renderer = QSharedPointer<RecordingRenderer>::create();
    display.setRenderer(renderer);
    display.setVideoFrame(frame(1));
    display.setRenderer({});
    QCoreApplication::processEvents();
    QVERIFY(renderer->calls.isEmpty());
    QCOMPARE(display.deliveredFrames(), 0U);
}

void TestDisplay::delivery_survives_whenRendererEndsTheDisplay()
{
    auto display = std::make_unique<orrin::Display>();
    const auto renderer = QSharedPointer<RecordingRenderer>::create();
    display->setRenderer(renderer);
    renderer->onFrame = [&display] { display.reset(); };
    display->setVideoFrame(frame(1));
    display->setError(PlaybackError(PlaybackError::StreamLost), 0);
    QCoreApplication::processEvents();
    QCOMPARE(renderer->calls, QStringList{QStringLiteral("frame 1")});
    QVERIFY(!display);
}

void TestDisplay::renderer_ends_whenTakenOff()
{
    orrin::Display display;
    auto renderer = QSharedPointer<RecordingRenderer>::create();
    const QWeakPointer<RecordingRenderer> watch = renderer;
    display.setRenderer(renderer);
    renderer.clear();
    QVERIFY(!watch.isNull());
    display.setRenderer({});
    QVERIFY(watch.isNull());
}

void TestDisplay::delay_isKept()
{
    orrin::Display display;
    QCOMPARE(display.delay(), 0);
    display.setDelay(123);
    QCOMPARE(display.delay(), 123);
    QVERIFY(display.qObject());
    QCOMPARE(display.qObject()->thread(), QThread::currentThread());
}

QTEST_GUILESS_MAIN(TestDisplay)
#include "tst_display.moc"
