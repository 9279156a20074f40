// SPDX-License-Identifier: GPL-3.0-or-later
#include "../codecs/testpicture.h"

#include <contract/core/mask.h>

#include <QTest>

using namespace orrin;

class TestMask : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void encoded_isKept();
    void polygons_areRead();
    void encode_isReadBack();
    void badTexts_areEmptyMasks_data();
    void badTexts_areEmptyMasks();
    void coordinates_areClamped();
    void apply_paintsACopy();
    void apply_leavesTheFrame_whenThereIsNothingToDo();
};

void TestMask::encoded_isKept()
{
    const Mask mask(QStringLiteral("nonsense"), MaskType::Privacy);
    QCOMPARE(mask.encodedMaskString(), QStringLiteral("nonsense"));
    QCOMPARE(mask.type(), MaskType::Privacy);
    QCOMPARE(int(MaskType::Privacy), 2);
}

void TestMask::polygons_areRead()
{
    const Mask mask(QStringLiteral("1;0,0 5000,0 5000,5000;1,2 3,4;0,0  10000,0 10000,10000 0,10000"), MaskType::Privacy);
    QCOMPARE(mask.polygons().size(), 2U);
    QCOMPARE(mask.polygons()[0].size(), 3U);
    QCOMPARE(mask.polygons()[0][2], QPointF(0.5, 0.5));
    QCOMPARE(mask.polygons()[1][1], QPointF(1, 0));
}

void TestMask::encode_isReadBack()
{
    const std::vector<Mask::Polygon> polygons{{{0, 0}, {0.25, 0}, {0.25, 0.3333}}, {{1, 1}, {0.5, 1}, {0.5, 0.5}, {1, 0.5}}};
    const QString text = Mask::encode(polygons);
    QCOMPARE(text, QStringLiteral("1;0,0 2500,0 2500,3333;10000,10000 5000,10000 5000,5000 10000,5000"));
    QCOMPARE(Mask::encode(Mask(text, MaskType::Privacy).polygons()), text);
    QCOMPARE(Mask::encode({}), QStringLiteral("1"));
    QCOMPARE(Mask::encode({{{qQNaN(), -4}, {qInf(), 2}, {0.5, 0.5}}}), QStringLiteral("1;0,0 0,10000 5000,5000"));
}

void TestMask::badTexts_areEmptyMasks_data()
{
    QTest::addColumn<QString>("text");
    const QString polygon = QStringLiteral(";0,0 5000,0 5000,5000");
    QTest::newRow("empty") << QString();
    QTest::newRow("another version") << QStringLiteral("2") + polygon;
    QTest::newRow("no version") << polygon;
    QTest::newRow("no comma") << QStringLiteral("1;0,0 5000 5000,5000");
    QTest::newRow("a letter") << QStringLiteral("1;0,0 5000,x 5000,5000");
    QTest::newRow("a fraction") << QStringLiteral("1;0,0 0.5,0 5000,5000");
    QTest::newRow("three numbers") << QStringLiteral("1;0,0,0 5000,0 5000,5000");
    QTest::newRow("one bad among good") << QStringLiteral("1") + polygon + QStringLiteral(";1,") + polygon;
    QTest::newRow("too many polygons") << QStringLiteral("1") + polygon.repeated(257);
    QTest::newRow("too many points") << QStringLiteral("1;") + QStringLiteral("0,0 ").repeated(4097);
    QTest::newRow("too long") << QStringLiteral("1") + polygon + QString(70'000, u' ');
}

void TestMask::badTexts_areEmptyMasks()
{
    QFETCH(QString, text);
    QVERIFY(Mask(text, MaskType::Privacy).polygons().empty());
}

void TestMask::coordinates_areClamped()
{
    const Mask mask(QStringLiteral("1;-5,-99999999999999999999 20000,0 99999999999999999999,10001"), MaskType::Privacy);
    QCOMPARE(mask.polygons().size(), 1U);
    QCOMPARE(mask.polygons()[0], (Mask::Polygon{{0, 0}, {1, 0}, {1, 1}}));
}

void TestMask::apply_paintsACopy()
{
    VideoFrame frame(testPicture(100, 50, 200, 90, 90), 5, 6);
    const VideoFrame before = frame;
    Mask(QStringLiteral("1;0,0 5000,0 5000,10000 0,10000"), MaskType::Privacy).applyMaskToVideoFrame(frame);
    QCOMPARE(frame.bitsY()[0], 16);
    QCOMPARE(frame.bitsY()[49], 16);
    QCOMPARE(frame.bitsY()[50], 200);
    QCOMPARE(frame.bitsU()[24], 128);
    QCOMPARE(frame.bitsV()[25], 90);
    QCOMPARE(before.bitsY()[0], 200);
    QCOMPARE(frame.id(), 5U);
}

void TestMask::apply_leavesTheFrame_whenThereIsNothingToDo()
{
    VideoFrame frame(testPicture(16, 16, 200, 90, 90));
    const std::uint8_t *bits = frame.bitsY();
    Mask(QStringLiteral("1"), MaskType::Privacy).applyMaskToVideoFrame(frame);
    QCOMPARE(frame.bitsY(), bits);
    VideoFrame none;
    Mask(QStringLiteral("1;0,0 5000,0 5000,5000"), MaskType::Privacy).applyMaskToVideoFrame(none);
    QVERIFY(!none.isValid());
}

QTEST_APPLESS_MAIN(TestMask)
#include "tst_mask.moc"
