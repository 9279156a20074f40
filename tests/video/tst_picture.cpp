// SPDX-License-Identifier: GPL-3.0-or-later
#include "video/qmlrendering.h"
#include "video/qmlvideodisplay.h"
#include "video/qmlvideodisplayrenderer.h"

#include "support/testframes.h"
#include "support/testvideodisplay.h"

#include <QQuickWindow>
#include <QTest>

#include <rhi/qrhi.h>

#include <atomic>

using namespace orrin;

namespace {

/*! What the renderer of a probed item holds, seen from the main thread. */
struct Probe
{
    std::atomic<quint64> textureId = 0;
    std::atomic<const void *> pipeline = nullptr;
    std::atomic<int> passes = 0;
    std::atomic<bool> skipsPasses = false;
};

class ProbedRenderer : public QmlVideoDisplayRenderer
{
public:
    explicit ProbedRenderer(Probe *probe) : m_probe(probe) {}

protected:
    void synchronize(QQuickRhiItem *item) override
    {
        QmlVideoDisplayRenderer::synchronize(item);
        m_probe->textureId = lumaTexture() ? lumaTexture()->globalResourceId() : 0;
        m_probe->pipeline = graphicsPipeline();
    }
    void render(QRhiCommandBuffer *cb) override
    {
        if (m_probe->skipsPasses)
            return;
        QmlVideoDisplayRenderer::render(cb);
        ++m_probe->passes;
    }

private:
    Probe *m_probe;
};

class ProbedDisplay : public TestVideoDisplay
{
public:
    ProbedDisplay(FakeStreamProvider *provider, QQuickItem *parent) : TestVideoDisplay(provider, parent) {}

    Probe probe;

protected:
    QQuickRhiItemRenderer *createRenderer() override { return new ProbedRenderer(&probe); }
};

constexpr Yuv White{235, 128, 128};
constexpr Yuv Pink{200, 90, 180};
constexpr Yuv Blue{60, 200, 100};
constexpr QRgb WhiteRgb = 0xFFFFFEFF;
constexpr QRgb PinkRgb = 0xFFFFBA8B;
constexpr QRgb BlueRgb = 0xFF072DC6;
constexpr Yuv Black{16, 128, 128};
constexpr QRgb BlackRgb = 0xFF000000;
constexpr QRgb GroundRgb = 0xFF1A1A1A; // 0.1 of 255

bool isNear(QRgb pixel, QRgb expected, int tolerance = 3)
{
    return qAbs(qRed(pixel) - qRed(expected)) <= tolerance &&
           qAbs(qGreen(pixel) - qGreen(expected)) <= tolerance &&
           qAbs(qBlue(pixel) - qBlue(expected)) <= tolerance;
}

/*! Four quarters: white, pink / blue, black. */
Yuv quarters(QSize size, int x, int y)
{
    const bool isLeft = x < size.width() / 2;
    return y < size.height() / 2 ? (isLeft ? White : Pink) : (isLeft ? Blue : Black);
}

QByteArray describePixel(int x, int y, QRgb pixel, QRgb expected)
{
    return QByteArray::number(x) + ',' + QByteArray::number(y) + " is " + QByteArray::number(pixel, 16) +
           ", not " + QByteArray::number(expected, 16);
}

VideoFrame makeQuarters(QSize size)
{
    return makeFrame(size, [size](int x, int y) { return quarters(size, x, y); });
}

} // namespace

#define VERIFY_PIXEL(image, x, y, expected)                                                                  \
    do {                                                                                                     \
        const QRgb pixel = (image).pixel(x, y);                                                              \
        QVERIFY2(isNear(pixel, expected), describePixel(x, y, pixel, expected).constData());                 \
    } while (false)

/*! The picture on screen: needs a display and the graphics interface that QSG_RHI_BACKEND names. */
class tst_Picture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        window = std::make_unique<QQuickWindow>();
        window->setColor(Qt::white);
        window->resize(480, 400);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        const auto expected = qgetenv("QSG_RHI_BACKEND") == "vulkan" ? QSGRendererInterface::Vulkan
                                                                     : QSGRendererInterface::OpenGL;
        QCOMPARE(window->rendererInterface()->graphicsApi(), expected);
    }

    void cleanup() { window.reset(); }

    void item_isBlack_beforeTheFirstFrame()
    {
        addItem(QRectF(40, 30, 200, 100));
        const QImage image = grab();
        VERIFY_PIXEL(image, 140, 80, 0xFF000000);
        VERIFY_PIXEL(image, 42, 32, 0xFF000000);
        VERIFY_PIXEL(image, 20, 20, 0xFFFFFFFF);
    }

    void colours_areConverted_data()
    {
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("u");
        QTest::addColumn<int>("v");
        QTest::addColumn<QRgb>("rgb");
        QTest::newRow("white") << 235 << 128 << 128 << WhiteRgb;
        QTest::newRow("pink") << 200 << 90 << 180 << PinkRgb;
        QTest::newRow("blue") << 60 << 200 << 100 << BlueRgb;
        QTest::newRow("black") << 16 << 128 << 128 << BlackRgb;
    }

    void colours_areConverted()
    {
        QFETCH(int, y);
        QFETCH(int, u);
        QFETCH(int, v);
        QFETCH(QRgb, rgb);
        addItem(QRectF(0, 0, 64, 64));
        item->setVideoFrame(makeFrame(QSize(64, 64), Yuv{std::uint8_t(y), std::uint8_t(u), std::uint8_t(v)}));
        const QImage image = grab();
        for (const QPoint point :
             {QPoint(32, 32), QPoint(0, 0), QPoint(63, 63), QPoint(63, 0), QPoint(0, 63)})
            VERIFY_PIXEL(image, point.x(), point.y(), rgb);
    }

    void picture_isUprightAndAtItsPlace()
    {
        addItem(QRectF(40, 30, 320, 240));
        item->setVideoFrame(makeQuarters(QSize(320, 240)));
        const QImage image = grab();
        VERIFY_PIXEL(image, 40 + 80, 30 + 60, WhiteRgb);
        VERIFY_PIXEL(image, 40 + 240, 30 + 60, PinkRgb);
        VERIFY_PIXEL(image, 40 + 80, 30 + 180, BlueRgb);
        VERIFY_PIXEL(image, 40 + 240, 30 + 180, BlackRgb);
        VERIFY_PIXEL(image, 40 + 1, 30 + 1, WhiteRgb);
        VERIFY_PIXEL(image, 40 + 318, 30 + 238, BlackRgb);
        VERIFY_PIXEL(image, 38, 28, 0xFFFFFFFF);
    }

    void ground_isGreyAroundThePicture()
    {
        addItem(QRectF(0, 0, 300, 200));
        item->setVideoFrame(makeFrame(QSize(100, 100), Pink));
        QImage image = grab();
        VERIFY_PIXEL(image, 20, 100, GroundRgb);
        VERIFY_PIXEL(image, 280, 100, GroundRgb);
        VERIFY_PIXEL(image, 52, 100, PinkRgb);
        VERIFY_PIXEL(image, 247, 100, PinkRgb);
        QVERIFY(qAbs(qRed(image.pixel(20, 100)) - 26) <= 1);

        item->setPreserveAspectRatio(false);
        image = grab();
        VERIFY_PIXEL(image, 20, 100, PinkRgb);
        VERIFY_PIXEL(image, 280, 100, PinkRgb);
    }

    void zoom_showsTheCornerThatWasHeld_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<QRgb>("rgb");
        QTest::newRow("top left") << -1.0 << -1.0 << WhiteRgb;
        QTest::newRow("top right") << 1.0 << -1.0 << PinkRgb;
        QTest::newRow("bottom left") << -1.0 << 1.0 << BlueRgb;
        QTest::newRow("bottom right") << 1.0 << 1.0 << BlackRgb;
    }

    void zoom_showsTheCornerThatWasHeld()
    {
        QFETCH(double, x);
        QFETCH(double, y);
        QFETCH(QRgb, rgb);
        addItem(QRectF(10, 20, 200, 200));
        item->setVideoFrame(makeQuarters(QSize(200, 200)));
        grab();
        item->zoom(2.2, x, y);
        const QImage image = grab();
        for (const QPoint point :
             {QPoint(20, 30), QPoint(200, 30), QPoint(20, 210), QPoint(200, 210), QPoint(110, 120)})
            VERIFY_PIXEL(image, point.x(), point.y(), rgb);
    }

    void pan_movesThePictureWithThePixels()
    {
        addItem(QRectF(0, 0, 200, 200));
        item->setVideoFrame(makeQuarters(QSize(200, 200)));
        item->zoom(2.0, 0.0, 0.0);
        // The cross of the quarters lies in the middle and goes 50 to the right and 30 down.
        item->addOffsetPixels(50, 30);
        const QImage image = grab();
        VERIFY_PIXEL(image, 150 - 4, 130 - 4, WhiteRgb);
        VERIFY_PIXEL(image, 150 + 4, 130 - 4, PinkRgb);
        VERIFY_PIXEL(image, 150 - 4, 130 + 4, BlueRgb);
        VERIFY_PIXEL(image, 150 + 4, 130 + 4, BlackRgb);
        item->resetZoom();
        VERIFY_PIXEL(grab(), 96, 96, WhiteRgb);
    }

    void oddSizes_areNotSkewed_data()
    {
        QTest::addColumn<QSize>("frameSize");
        QTest::addColumn<QSize>("itemSize");
        QTest::newRow("361x241") << QSize(361, 241) << QSize(361, 241);
        QTest::newRow("362x242") << QSize(362, 242) << QSize(362, 242);
        QTest::newRow("363x243") << QSize(363, 243) << QSize(363, 243);
        QTest::newRow("1365x765") << QSize(1365, 765) << QSize(455, 255);
        QTest::newRow("3x3") << QSize(3, 3) << QSize(3, 3);
    }

    void oddSizes_areNotSkewed()
    {
        QFETCH(QSize, frameSize);
        QFETCH(QSize, itemSize);
        addItem(QRectF(QPointF(5, 7), itemSize));
        // White above the diagonal from the bottom left to the top right, blue below it.
        const auto edge = [](QSize size, int y) {
            return double(size.width()) * (size.height() - y) / size.height();
        };
        item->setVideoFrame(
            makeFrame(frameSize, [&](int x, int y) { return x < edge(frameSize, y) ? White : Blue; }));
        const QImage image = grab();
        // The filter blends chroma samples over a few pixels beside the edge.
        const int margin = itemSize.width() < 10 ? 2 : 8;
        int compared = 0;
        for (int y = 0; y < itemSize.height(); ++y) {
            const int x = qRound(edge(itemSize, y));
            if (x - margin >= 0) {
                VERIFY_PIXEL(image, 5 + x - margin, 7 + y, WhiteRgb);
                ++compared;
            }
            if (x + margin < itemSize.width()) {
                VERIFY_PIXEL(image, 5 + x + margin, 7 + y, BlueRgb);
                ++compared;
            }
        }
        QVERIFY(compared > 0);
    }

    void frames_showAtOnce()
    {
        addItem(QRectF(0, 0, 64, 64));
        grab();
        const QList<std::pair<Yuv, QRgb>> colours = {{Pink, PinkRgb}, {Blue, BlueRgb}, {White, WhiteRgb}};
        for (int i = 0; i < 9; ++i) {
            item->setVideoFrame(makeFrame(QSize(64, 64), colours.at(i % 3).first));
            // A single pass: whatever it misses would show one frame late.
            VERIFY_PIXEL(grab(), 32, 32, colours.at(i % 3).second);
        }
    }

    void firstFrame_showsAtOnce_whenItWasThereBeforeTheWindow()
    {
        window.reset();
        window = std::make_unique<QQuickWindow>();
        window->resize(480, 400);
        addItem(QRectF(0, 0, 64, 64));
        item->setVideoFrame(makeFrame(QSize(64, 64), Pink));
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        VERIFY_PIXEL(grab(), 32, 32, PinkRgb);
    }

    void streamFrames_show()
    {
        addItem(QRectF(0, 0, 64, 64));
        item->setAddress(1, 1, 1);
        provider.last->rendering()->setVideoFrame(makeFrame(QSize(64, 64), Blue));
        VERIFY_PIXEL(grab(), 32, 32, BlueRgb);
    }

    void mask_isPaintedIntoThePicture()
    {
        addItem(QRectF(0, 0, 64, 64));
        item->setAddress(1, 1, 1);
        Image header;
        header.setExtension(ImageHeaderExtension::PrivacyMask, "1;0,0 5000,0 5000,10000 0,10000");
        provider.last->rendering()->setVideoFrame(
            makeFrame(QSize(64, 64), [](int, int) { return Pink; }, header));
        const QImage image = grab();
        VERIFY_PIXEL(image, 16, 32, BlackRgb);
        VERIFY_PIXEL(image, 48, 32, PinkRgb);
    }

    void size_mayChangeBetweenFrames()
    {
        addItem(QRectF(0, 0, 200, 200));
        const QList<QSize> sizes = {QSize(64, 64), QSize(128, 48), QSize(33, 99), QSize(64, 64)};
        for (const QSize &size : sizes) {
            item->setVideoFrame(makeQuarters(size));
            const QImage image = grab();
            const QRectF rect = item->zoomRect();
            const auto at = [&rect](double x, double y) {
                return QPoint(int(rect.x() + rect.width() * x), int(rect.y() + rect.height() * y));
            };
            VERIFY_PIXEL(image, at(0.2, 0.2).x(), at(0.2, 0.2).y(), WhiteRgb);
            VERIFY_PIXEL(image, at(0.8, 0.2).x(), at(0.8, 0.2).y(), PinkRgb);
            VERIFY_PIXEL(image, at(0.2, 0.8).x(), at(0.2, 0.8).y(), BlueRgb);
            VERIFY_PIXEL(image, at(0.8, 0.8).x(), at(0.8, 0.8).y(), BlackRgb);
        }
    }

    void item_mayChangeItsSize()
    {
        addItem(QRectF(0, 0, 64, 64));
        item->setVideoFrame(makeQuarters(QSize(64, 64)));
        grab();
        item->setSize(QSizeF(300, 300));
        const QImage image = grab();
        VERIFY_PIXEL(image, 140, 140, WhiteRgb);
        VERIFY_PIXEL(image, 160, 140, PinkRgb);
        VERIFY_PIXEL(image, 140, 160, BlueRgb);
        VERIFY_PIXEL(image, 160, 160, BlackRgb);
    }

    void textures_areKept_whileTheSizeStands()
    {
        addItem(QRectF(0, 0, 64, 64));
        item->setVideoFrame(makeFrame(QSize(64, 64), Blue));
        grab();
        const quint64 texture = item->probe.textureId;
        const void *pipeline = item->probe.pipeline;
        QVERIFY(texture);
        QVERIFY(pipeline);
        for (int i = 0; i < 100; ++i) {
            const bool isPink = i % 2 == 0;
            item->setVideoFrame(makeFrame(QSize(64, 64), isPink ? Pink : Blue));
            VERIFY_PIXEL(grab(), 32, 32, isPink ? PinkRgb : BlueRgb);
            QCOMPARE(item->probe.textureId.load(), texture);
            QCOMPARE(item->probe.pipeline.load(), pipeline);
        }
        item->setVideoFrame(makeFrame(QSize(66, 64), White));
        VERIFY_PIXEL(grab(), 32, 32, WhiteRgb);
        QVERIFY(item->probe.textureId != texture);
        QCOMPARE(item->probe.pipeline.load(), pipeline);
    }

    void newestFrame_shows_whenManyWereNeverDrawn()
    {
        addItem(QRectF(0, 0, 64, 64));
        item->setVideoFrame(makeFrame(QSize(64, 64), Blue));
        grab();
        // More than there are update batches.
        item->probe.skipsPasses = true;
        for (int i = 0; i < 100; ++i) {
            item->setVideoFrame(makeFrame(QSize(64 + i % 2, 64), Pink));
            grab();
        }
        item->probe.skipsPasses = false;
        item->setVideoFrame(makeFrame(QSize(64, 64), White));
        VERIFY_PIXEL(grab(), 32, 32, WhiteRgb);
    }

    void frame_shows_whenItsPassCameLater()
    {
        addItem(QRectF(0, 0, 64, 64));
        item->setVideoFrame(makeFrame(QSize(64, 64), Blue));
        grab();
        item->probe.skipsPasses = true;
        item->setVideoFrame(makeFrame(QSize(64, 64), Pink));
        grab();
        item->probe.skipsPasses = false;
        item->zoom(1.5, 0, 0);
        VERIFY_PIXEL(grab(), 32, 32, PinkRgb);
    }

    void pictureStays_whenAFrameHasNoChroma()
    {
        addItem(QRectF(0, 0, 64, 64));
        item->setPreserveAspectRatio(false);
        item->setVideoFrame(makeFrame(QSize(64, 64), Pink));
        grab();
        item->setVideoFrame(makeFrame(QSize(1, 1), White));
        VERIFY_PIXEL(grab(), 32, 32, PinkRgb);
        item->setVideoFrame(makeFrame(QSize(2, 2), Blue));
        VERIFY_PIXEL(grab(), 32, 32, BlueRgb);
    }

private:
    void addItem(const QRectF &rect)
    {
        item = new ProbedDisplay(&provider, window->contentItem());
        item->setPosition(rect.topLeft());
        item->setSize(rect.size());
    }

    /*! One pass, and what it shows. */
    QImage grab() { return window->grabWindow().convertToFormat(QImage::Format_RGB32); }

    FakeStreamProvider provider;
    std::unique_ptr<QQuickWindow> window;
    QPointer<ProbedDisplay> item;
};

QTEST_MAIN(tst_Picture)
#include "tst_picture.moc"
