// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/maskpainter.h"
#include "testpicture.h"

#include <QTest>

#include <limits>

using namespace orrin;

class TestMaskPainter : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rectangle_paintsExactlyItsPixels();
    void triangle_paintsHalf();
    void starCrossing_followsOddEvenRule();
    void neighbours_leaveNoGapAndNoOverlap();
    void chroma_isPainted_whereAnyPixelIs();
    void oddPicture_isPaintedToTheEdge();
    void hostilePoints_stayInside();

private:
    int count(const VideoFrame &frame, int value) const;
};

int TestMaskPainter::count(const VideoFrame &frame, int value) const
{
    int found = 0;
    for (int y = 0; y < frame.height(); ++y) {
        for (int x = 0; x < frame.width(); ++x)
            found += frame.bitsY()[y * frame.imageRef().planes().strideY + x] == value;
    }
    return found;
}

void TestMaskPainter::rectangle_paintsExactlyItsPixels()
{
    VideoFrame frame(testPicture(100, 50, 200, 90, 90));
    MaskPainter painter(frame.detachPlanes(), 100, 50, {});
    painter.fill({{0.1, 0.2}, {0.3, 0.2}, {0.3, 0.6}, {0.1, 0.6}});
    QCOMPARE(count(frame, 16), 20 * 20);
    const int stride = frame.imageRef().planes().strideY;
    QCOMPARE(frame.bitsY()[10 * stride + 10], 16);
    QCOMPARE(frame.bitsY()[29 * stride + 29], 16);
    QCOMPARE(frame.bitsY()[9 * stride + 10], 200);
    QCOMPARE(frame.bitsY()[10 * stride + 9], 200);
    QCOMPARE(frame.bitsY()[30 * stride + 29], 200);
    QCOMPARE(frame.bitsY()[29 * stride + 30], 200);
}

void TestMaskPainter::triangle_paintsHalf()
{
    VideoFrame frame(testPicture(64, 64, 200, 90, 90));
    MaskPainter painter(frame.detachPlanes(), 64, 64, {});
    painter.fill({{0, 0}, {1, 0}, {1, 1}});
    QVERIFY(qAbs(count(frame, 16) - 64 * 64 / 2) <= 64);
}

void TestMaskPainter::starCrossing_followsOddEvenRule()
{
    VideoFrame frame(testPicture(100, 100, 200, 90, 90));
    MaskPainter painter(frame.detachPlanes(), 100, 100, {});
    // Two turns round the same square: the inside is crossed twice and stays.
    painter.fill({{0.2, 0.2}, {0.8, 0.2}, {0.8, 0.8}, {0.2, 0.8}, {0.2, 0.2}, {0.8, 0.2}, {0.8, 0.8}, {0.2, 0.8}});
    QCOMPARE(count(frame, 16), 0);
    // Two polygons are filled each by itself.
    painter.fill({{0.2, 0.2}, {0.8, 0.2}, {0.8, 0.8}, {0.2, 0.8}});
    painter.fill({{0.2, 0.2}, {0.8, 0.2}, {0.8, 0.8}, {0.2, 0.8}});
    QCOMPARE(count(frame, 16), 60 * 60);
}

void TestMaskPainter::neighbours_leaveNoGapAndNoOverlap()
{
    int painted = 0;
    for (const auto &polygon : {std::vector<QPointF>{{0, 0}, {1, 0}, {0, 1}}, std::vector<QPointF>{{1, 0}, {1, 1}, {0, 1}}}) {
        VideoFrame frame(testPicture(97, 53, 200, 90, 90));
        MaskPainter painter(frame.detachPlanes(), 97, 53, {});
        painter.fill(polygon);
        painted += count(frame, 16);
    }
    QCOMPARE(painted, 97 * 53);
}

void TestMaskPainter::chroma_isPainted_whereAnyPixelIs()
{
    VideoFrame frame(testPicture(16, 16, 200, 90, 91));
    MaskPainter painter(frame.detachPlanes(), 16, 16, {});
    painter.fill({{5.0 / 16, 5.0 / 16}, {7.0 / 16, 5.0 / 16}, {7.0 / 16, 6.0 / 16}, {5.0 / 16, 6.0 / 16}});
    const int stride = frame.imageRef().planes().strideUV;
    QCOMPARE(frame.bitsU()[2 * stride + 2], 128);
    QCOMPARE(frame.bitsV()[2 * stride + 3], 128);
    QCOMPARE(frame.bitsU()[2 * stride + 1], 90);
    QCOMPARE(frame.bitsV()[2 * stride + 4], 91);
    QCOMPARE(frame.bitsU()[3 * stride + 2], 90);
}

void TestMaskPainter::oddPicture_isPaintedToTheEdge()
{
    VideoFrame frame(testPicture(17, 9, 200, 90, 90));
    MaskPainter painter(frame.detachPlanes(), 17, 9, {});
    painter.fill({{0, 0}, {1, 0}, {1, 1}, {0, 1}});
    QCOMPARE(count(frame, 16), 17 * 9);
    QCOMPARE(frame.bitsU()[3 * frame.imageRef().planes().strideUV + 7], 128);
}

void TestMaskPainter::hostilePoints_stayInside()
{
    VideoFrame frame(testPicture(16, 16, 200, 90, 90));
    MaskPainter painter(frame.detachPlanes(), 16, 16, {});
    const double huge = std::numeric_limits<double>::max();
    painter.fill({{-huge, -huge}, {huge, -huge}, {huge, huge}, {-huge, huge}});
    QCOMPARE(count(frame, 16), 256);
    painter.fill({});
    painter.fill({{0, 0}, {1, 1}});
    painter.fill({{0.5, 0.5}, {0.5, 0.5}, {0.5, 0.5}});
}

QTEST_APPLESS_MAIN(TestMaskPainter)
#include "tst_maskpainter.moc"
