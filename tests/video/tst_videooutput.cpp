// SPDX-License-Identifier: GPL-3.0-or-later
// What gestures on the component VideoOutput do to the picture in it.
#include "video/qmlvideodisplay.h"

#include "support/testframes.h"

#include <QPointingDevice>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace orrin;
using namespace Qt::StringLiterals;

namespace {

constexpr QSizeF tileSize(320, 180);
const QRectF wholePicture(QPointF(), tileSize);

bool isNear(const QRectF &rect, const QRectF &expected)
{
    const auto near = [](double a, double b) { return qAbs(a - b) < 0.01; };
    return near(rect.x(), expected.x()) && near(rect.y(), expected.y()) && near(rect.width(), expected.width())
        && near(rect.height(), expected.height());
}

} // namespace

#define COMPARE_RECTS(actual, expected)                                                                                            \
    QVERIFY2(isNear(actual, expected), qPrintable(QDebug::toString(actual) + u" is not "_s + QDebug::toString(expected)))

class tst_VideoOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void wheel_zoomsByAStep_aroundThePointer();
    void wheel_zoomsOut_whenItTurnsSideways();
    void drag_movesThePicture_byPixels();
    void pinch_zoomsByTheDifference_aroundItsCentre();
    void zoom_isForgotten_withTheStreamAndWithAnError();
    void frame_hidesThePanel_andTellsTwice();

private:
    QRectF shown() const { return m_display->zoomRect(); }
    void turnWheel(QPointF position, QPoint angle);

    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<QQuickItem> m_tile;
    QmlVideoDisplay *m_display = nullptr;
    std::unique_ptr<QPointingDevice> m_touch{QTest::createTouchDevice()};
};

void tst_VideoOutput::init()
{
    m_engine = std::make_unique<QQmlEngine>();
    // A host that has no settings.
    m_engine->rootContext()->setContextProperty(u"settings"_s, static_cast<QObject *>(nullptr));
    QQmlComponent component(m_engine.get(), "orrinsdkqml", "VideoOutput");
    m_tile.reset(qobject_cast<QQuickItem *>(component.create()));
    QVERIFY2(m_tile, qPrintable(component.errorString()));
    m_window = std::make_unique<QQuickWindow>();
    m_window->resize(tileSize.toSize());
    m_tile->setSize(tileSize);
    m_tile->setParentItem(m_window->contentItem());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_display = m_tile->findChild<QmlVideoDisplay *>();
    QVERIFY(m_display);
    m_display->setVideoFrame(makeFrame(QSize(640, 360), Yuv{120}));
    COMPARE_RECTS(shown(), wholePicture);
}

void tst_VideoOutput::cleanup()
{
    m_tile.reset();
    m_window.reset();
    m_engine.reset();
}

void tst_VideoOutput::turnWheel(QPointF position, QPoint angle)
{
    QWheelEvent event(position, m_window->mapToGlobal(position), {}, angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_window.get(), &event);
}

void tst_VideoOutput::wheel_zoomsByAStep_aroundThePointer()
{
    turnWheel({160, 90}, {0, 120});
    COMPARE_RECTS(shown(), QRectF(-10, -5.625, 340, 191.25));
    turnWheel({160, 90}, {0, 1200});
    const double twice = 1.0625 * 1.0625;
    QVERIFY(qAbs(shown().width() - 320 * twice) < 0.01);
    turnWheel({160, 90}, {0, -120});
    QVERIFY(qAbs(shown().width() - 320 * twice * 0.9375) < 0.01);
    m_display->resetZoom();
    // What lies under the pointer stays there.
    turnWheel({0, 0}, {0, 120});
    COMPARE_RECTS(shown(), QRectF(0, 0, 340, 191.25));
    m_display->resetZoom();
    turnWheel({240, 135}, {0, 120});
    COMPARE_RECTS(shown(), QRectF(-15, -8.4375, 340, 191.25));
}

void tst_VideoOutput::wheel_zoomsOut_whenItTurnsSideways()
{
    turnWheel({160, 90}, {0, 120});
    turnWheel({160, 90}, {120, 0});
    // Not below the whole picture.
    COMPARE_RECTS(shown(), wholePicture);
}

void tst_VideoOutput::drag_movesThePicture_byPixels()
{
    m_display->zoom(2, 0, 0);
    COMPARE_RECTS(shown(), QRectF(-160, -90, 640, 360));
    QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {100, 80});
    QTest::mouseMove(m_window.get(), {130, 70});
    COMPARE_RECTS(shown(), QRectF(-130, -100, 640, 360));
    QTest::mouseMove(m_window.get(), {140, 70});
    COMPARE_RECTS(shown(), QRectF(-120, -100, 640, 360));
    QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, {140, 70});
    QTest::mouseMove(m_window.get(), {200, 100});
    COMPARE_RECTS(shown(), QRectF(-120, -100, 640, 360));
}

void tst_VideoOutput::pinch_zoomsByTheDifference_aroundItsCentre()
{
    QTest::touchEvent(m_window.get(), m_touch.get()).press(0, {140, 90}).press(1, {180, 90});
    const QObject *area = m_tile->childItems().constFirst();
    for (const QQuickItem *child : m_tile->childItems()) {
        if (QByteArrayView(child->metaObject()->className()).startsWith("VideoDisplayInputArea"))
            area = child;
    }
    QSignalSpy started(area, SIGNAL(pinchStarted(QVariant)));
    QSignalSpy updated(area, SIGNAL(pinchUpdated(QVariant)));
    double last = 320;
    // Moves are delivered with the next frame.
    QSignalSpy frames(m_window.get(), &QQuickWindow::frameSwapped);
    for (int step = 1; step <= 8; ++step) {
        QTest::touchEvent(m_window.get(), m_touch.get()).move(0, {140 - 10 * step, 90}).move(1, {180 + 10 * step, 90});
        frames.clear();
        m_window->update();
        QVERIFY(frames.wait());
        QVERIFY(shown().width() >= last - 0.01);
        last = shown().width();
    }
    QCOMPARE(started.size(), 1);
    QVERIFY(updated.size() > 2);
    QVERIFY2(last > 400, qPrintable(QString::number(last)));
    // Its centre is that of the tile.
    QVERIFY(qAbs(shown().center().x() - 160) < 1);
    QTest::touchEvent(m_window.get(), m_touch.get()).release(0, {60, 90}).release(1, {260, 90});
}

void tst_VideoOutput::zoom_isForgotten_withTheStreamAndWithAnError()
{
    for (const char *id : {"serverGroupId", "serverId", "channelId"}) {
        m_display->zoom(2, 0, 0);
        QVERIFY(m_tile->setProperty(id, 4711));
        COMPARE_RECTS(shown(), wholePicture);
    }
    m_display->zoom(2, 0, 0);
    Q_EMIT m_display->errorReceived();
    COMPARE_RECTS(shown(), wholePicture);
}

void tst_VideoOutput::frame_hidesThePanel_andTellsTwice()
{
    QSignalSpy processed(m_tile.get(), SIGNAL(frameProcessed()));
    QVERIFY(QMetaObject::invokeMethod(m_tile.get(), "reset"));
    QQuickItem *panel = nullptr;
    for (QQuickItem *child : m_tile->childItems()) {
        if (QByteArrayView(child->metaObject()->className()).startsWith("VideoOutputMessage"))
            panel = child;
    }
    QVERIFY(panel);
    QVERIFY(panel->isVisible());
    m_display->setVideoFrame(makeFrame(QSize(640, 360), Yuv{80}));
    QVERIFY(!panel->isVisible());
    QCOMPARE(processed.size(), 2);
    QCOMPARE(m_tile->property("frameWidth").toDouble(), 640.0);
    QCOMPARE(m_tile->property("frameHeight").toDouble(), 360.0);
    // Neither can be written, nor can the number of the stream.
    QVERIFY(!m_tile->setProperty("frameWidth", 1.0));
    QVERIFY(!m_tile->setProperty("frameHeight", 1.0));
    QVERIFY(!m_tile->setProperty("streamId", 1));
}

QTEST_MAIN(tst_VideoOutput)
#include "tst_videooutput.moc"
