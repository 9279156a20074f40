// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/util/audioutils.h>

#include <QTest>

#include <cstring>

using namespace orrin;

class TestAudioUtils : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void decode_givesStandardValues_data();
    void decode_givesStandardValues();
    void decode_keepsTimeAndFormat();
    void decode_returnsTheImage_whenReadyToUse();
    void decode_isNull_whenThereIsNoSound();
};

void TestAudioUtils::decode_givesStandardValues_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("sample");
    QTest::newRow("mu-law, most negative") << 3 << 0x00 << -32124;
    QTest::newRow("mu-law, most positive") << 3 << 0x80 << 32124;
    QTest::newRow("mu-law, zero") << 3 << 0xFF << 0;
    QTest::newRow("mu-law, negative zero") << 3 << 0x7F << 0;
    QTest::newRow("mu-law, smallest step") << 3 << 0xFE << 8;
    QTest::newRow("A-law, smallest positive") << 4 << 0xD5 << 8;
    QTest::newRow("A-law, smallest negative") << 4 << 0x55 << -8;
    QTest::newRow("A-law, most positive") << 4 << 0xAA << 32256;
    QTest::newRow("A-law, most negative") << 4 << 0x2A << -32256;
    QTest::newRow("A-law, second segment") << 4 << 0xC5 << 264;
}

void TestAudioUtils::decode_givesStandardValues()
{
    QFETCH(int, kind);
    QFETCH(int, code);
    QFETCH(int, sample);
    const Image decoded = AudioUtils::decode(Image::fromAudio(ImageKind(kind), QByteArray(2, char(code)), 8000, 1));
    QCOMPARE(decoded.flags() & 15, 1);
    QCOMPARE(decoded.audioPayload().size(), 4);
    std::int16_t values[2];
    std::memcpy(values, decoded.audioPayload().constData(), sizeof values);
    QCOMPARE(values[0], sample);
    QCOMPARE(values[1], sample);
}

void TestAudioUtils::decode_keepsTimeAndFormat()
{
    Image coded = Image::fromAudio(ImageKind::AudioULaw, "abcd", 16000, 2);
    coded.setTime(42);
    const Image decoded = AudioUtils::decode(coded);
    QCOMPARE(decoded.time(), 42);
    QCOMPARE(decoded.sampleRate(), 16000);
    QCOMPARE(decoded.channels(), 2);
}

void TestAudioUtils::decode_returnsTheImage_whenReadyToUse()
{
    for (const ImageKind kind : {ImageKind::AudioPcm16, ImageKind::AudioFloat}) {
        const QByteArray payload("12345678");
        const Image decoded = AudioUtils::decode(Image::fromAudio(kind, payload, 48000, 1));
        QCOMPARE(decoded.flags() & 15, int(kind));
        QCOMPARE(decoded.audioPayload(), payload);
    }
}

void TestAudioUtils::decode_isNull_whenThereIsNoSound()
{
    QVERIFY(AudioUtils::decode(Image()).isNull());
    QVERIFY(AudioUtils::decode(Image::fromAudio(ImageKind::Video, "abc", 8000, 1)).isNull());
    QVERIFY(AudioUtils::decode(Image::fromAudio(ImageKind(9), "abc", 8000, 1)).isNull());
}

QTEST_APPLESS_MAIN(TestAudioUtils)
#include "tst_audioutils.moc"
