// SPDX-License-Identifier: GPL-3.0-or-later
#include "testpicture.h"

#include <QTest>

using namespace orrin;
using orrincodecs::PixelFormat;

class TestVideoFrame : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void defaultFrame_isInvalid();
    void soundFrame_isValidButNoImage();
    void convert_givesBt601Colours_data();
    void convert_givesBt601Colours();
    void convert_coversWholePicture_whenSizeIsOdd_data();
    void convert_coversWholePicture_whenSizeIsOdd();
    void convert_cutsThePart();
    void convert_givesNull_whenNothingIsLeft();
    void convert_givesAllFormats();
    void detach_leavesCopiesAlone();
};

void TestVideoFrame::defaultFrame_isInvalid()
{
    VideoFrame frame;
    QVERIFY(!frame.isValid());
    QVERIFY(!frame.isValidImage());
    QCOMPARE(frame.bitsY(), nullptr);
    QVERIFY(frame.convertToQImage(PixelFormat::Rgb32, 0, 0, -1, -1).isNull());
    QCOMPARE(frame.detachPlanes().y, nullptr);
}

void TestVideoFrame::soundFrame_isValidButNoImage()
{
    const VideoFrame frame(Image::fromAudio(ImageKind::AudioPcm16, "abcd", 8000, 1), 3, 4);
    QVERIFY(frame.isValid());
    QVERIFY(!frame.isValidImage());
    QCOMPARE(frame.id(), 3U);
    QCOMPARE(frame.streamId(), 4);
}

void TestVideoFrame::convert_givesBt601Colours_data()
{
    QTest::addColumn<QList<int>>("yuv");
    QTest::addColumn<QRgb>("rgb");
    QTest::newRow("black") << QList<int>{16, 128, 128} << qRgb(0, 0, 0);
    QTest::newRow("white") << QList<int>{235, 128, 128} << qRgb(255, 255, 255);
    QTest::newRow("grey") << QList<int>{126, 128, 128} << qRgb(128, 128, 128);
    QTest::newRow("red") << QList<int>{82, 90, 240} << qRgb(254, 0, 0);
    QTest::newRow("blue") << QList<int>{41, 240, 110} << qRgb(0, 0, 255);
}

static int distance(QRgb a, QRgb b)
{
    return qMax(qAbs(qRed(a) - qRed(b)), qMax(qAbs(qGreen(a) - qGreen(b)), qAbs(qBlue(a) - qBlue(b))));
}

void TestVideoFrame::convert_givesBt601Colours()
{
    QFETCH(QList<int>, yuv);
    QFETCH(QRgb, rgb);
    const VideoFrame frame(testPicture(16, 16, yuv[0], yuv[1], yuv[2]));
    const QImage image = frame.convertToQImage(PixelFormat::Rgb32, 0, 0, -1, -1);
    QCOMPARE(image.size(), QSize(16, 16));
    QCOMPARE(image.format(), QImage::Format_RGB32);
    QVERIFY2(distance(image.pixel(7, 7), rgb) <= 3, qPrintable(QString::number(image.pixel(7, 7), 16)));
}

void TestVideoFrame::convert_coversWholePicture_whenSizeIsOdd_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("odd width") << 17 << 16;
    QTest::newRow("odd height") << 16 << 17;
    QTest::newRow("both odd") << 33 << 7;
    QTest::newRow("chroma fills its lines") << 9 << 9;
    QTest::newRow("one pixel") << 1 << 1;
    QTest::newRow("one column") << 1 << 8;
}

void TestVideoFrame::convert_coversWholePicture_whenSizeIsOdd()
{
    QFETCH(int, width);
    QFETCH(int, height);
    const bool hasChroma = width > 1 && height > 1;
    const VideoFrame frame(testPicture(width, height, 82, 90, 240));
    const QImage image = frame.convertToQImage(PixelFormat::Rgb32, 0, 0, -1, -1);
    QCOMPARE(image.size(), QSize(width, height));
    const QRgb expected = hasChroma ? qRgb(254, 0, 0) : qRgb(77, 77, 77);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            QVERIFY2(distance(image.pixel(x, y), expected) <= 4, qPrintable(QStringLiteral("%1,%2").arg(x).arg(y)));
    }
}

void TestVideoFrame::convert_cutsThePart()
{
    VideoFrame frame(testPicture(16, 16, 16, 128, 128));
    const auto planes = frame.detachPlanes();
    planes.y[5 * planes.strideY + 3] = 235;
    QImage image = frame.convertToQImage(PixelFormat::Rgb32, 3, 5, 4, 4);
    QCOMPARE(image.size(), QSize(4, 4));
    QVERIFY(distance(image.pixel(0, 0), qRgb(255, 255, 255)) <= 3);
    QVERIFY(distance(image.pixel(1, 0), qRgb(0, 0, 0)) <= 3);
    image = frame.convertToQImage(PixelFormat::Rgb32, -2, -2, 100, 7);
    QCOMPARE(image.size(), QSize(16, 5));
    image = frame.convertToQImage(PixelFormat::Rgb32, 10, 10, -1, 1000);
    QCOMPARE(image.size(), QSize(6, 6));
}

void TestVideoFrame::convert_givesNull_whenNothingIsLeft()
{
    const VideoFrame frame(testPicture(16, 16, 16, 128, 128));
    QVERIFY(frame.convertToQImage(PixelFormat::Rgb32, 16, 0, -1, -1).isNull());
    QVERIFY(frame.convertToQImage(PixelFormat::Rgb32, 0, 0, 0, -1).isNull());
    QVERIFY(frame.convertToQImage(PixelFormat::Rgb32, -5, 0, 5, 5).isNull());
    QVERIFY(frame.convertToQImage(PixelFormat::I420, 0, 0, -1, -1).isNull());
    QVERIFY(frame.convertToQImage(PixelFormat::Unknown, 0, 0, -1, -1).isNull());
    QVERIFY(frame.convertToQImage(PixelFormat(99), 0, 0, -1, -1).isNull());
    QVERIFY(frame.convertToQImage(PixelFormat::Rgb32, INT_MIN, INT_MIN, INT_MAX, INT_MAX).isNull());
}

void TestVideoFrame::convert_givesAllFormats()
{
    const VideoFrame frame(testPicture(17, 17, 82, 90, 240));
    const QImage rgb = frame.convertToQImage(PixelFormat::Rgb24, 0, 0, -1, -1);
    QCOMPARE(rgb.format(), QImage::Format_RGB888);
    QVERIFY(distance(rgb.pixel(16, 16), qRgb(254, 0, 0)) <= 4);
    const QImage rgba = frame.convertToQImage(PixelFormat::Rgba32, 0, 0, -1, -1);
    QCOMPARE(rgba.format(), QImage::Format_RGBA8888);
    QVERIFY(distance(rgba.pixel(16, 16), qRgb(254, 0, 0)) <= 4);
    QCOMPARE(qAlpha(rgba.pixel(3, 3)), 255);
    const QImage grey = frame.convertToQImage(PixelFormat::Grey8, 1, 1, -1, -1);
    QCOMPARE(grey.format(), QImage::Format_Grayscale8);
    QCOMPARE(grey.size(), QSize(16, 16));
    QVERIFY(qAbs(qGray(grey.pixel(5, 5)) - 77) <= 2);
    QCOMPARE(int(PixelFormat::Rgb32), 5);
}

void TestVideoFrame::detach_leavesCopiesAlone()
{
    VideoFrame frame(testPicture(17, 9, 50, 60, 70), 11, 12);
    const VideoFrame copy = frame;
    const auto planes = frame.detachPlanes();
    QVERIFY(planes.y && planes.y == frame.bitsY());
    QVERIFY(frame.bitsY() != copy.bitsY());
    QCOMPARE(planes.y[8 * planes.strideY + 16], 50);
    QCOMPARE(planes.u[3 * planes.strideUV + 7], 60);
    QCOMPARE(planes.v[3 * planes.strideUV + 7], 70);
    planes.y[0] = 99;
    QCOMPARE(copy.bitsY()[0], 50);
    QCOMPARE(frame.id(), 11U);
    QCOMPARE(frame.streamId(), 12);
}

QTEST_APPLESS_MAIN(TestVideoFrame)
#include "tst_videoframe.moc"
