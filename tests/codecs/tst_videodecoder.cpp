// SPDX-License-Identifier: GPL-3.0-or-later
#include "../stream/streamencoder.h"
#include "codecs/framefacts.h"
#include "codecs/videodecoder.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <QTest>

#include <chrono>

#include <optional>

using namespace orrin;
using Status = VideoDecoder::Status;

class TestVideoDecoder : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void decode_givesEachPictureAtOnce_data();
    void decode_givesEachPictureAtOnce();
    void decode_sharesMemory_whenLinesFit();
    void decode_limitsRange_whenMjpeg();
    void pictures_tellHowTheyCameAbout();
    void pictures_outliveTheDecoder();
    void decode_reportsCorrupt_whenBytesAreNoise();
    void decode_recovers_afterNoise();
    void send_failsWithUnsupported_whenNotOpen();
    void hardware_fallsBackToSoftware_whenThereIsNone();

private:
    static std::span<const std::uint8_t> bytes(const QByteArray &data)
    {
        return {reinterpret_cast<const std::uint8_t *>(data.constData()), std::size_t(data.size())};
    }
};

void TestVideoDecoder::decode_givesEachPictureAtOnce_data()
{
    QTest::addColumn<QByteArray>("encoder");
    QTest::addColumn<int>("codec");
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(640, 360), QSize(176, 144), QSize(322, 182), QSize(1366, 768)})
        QTest::addRow("H.264 %dx%d", size.width(), size.height()) << QByteArray("libx264") << int(VideoCodec::H264) << size;
    for (const QSize size : {QSize(320, 240), QSize(160, 120), QSize(161, 121)})
        QTest::addRow("MJPEG %dx%d", size.width(), size.height()) << QByteArray("mjpeg") << int(VideoCodec::Mjpeg) << size;
    if (!StreamEncoder("libx265", 320, 240).encode({100}, 1).isEmpty())
        QTest::newRow("H.265 320x240") << QByteArray("libx265") << int(VideoCodec::H265) << QSize(320, 240);
}

void TestVideoDecoder::decode_givesEachPictureAtOnce()
{
    QFETCH(QByteArray, encoder);
    QFETCH(int, codec);
    QFETCH(QSize, size);
    const QList<int> lumas{40, 90, 140, 190, 60};
    const auto pictures = StreamEncoder(encoder.constData(), size.width(), size.height()).encode(lumas, 2);
    QCOMPARE(pictures.size(), lumas.size());
    VideoDecoder decoder;
    QCOMPARE(decoder.open(VideoCodec(codec)), Status::Ok);
    const bool full = VideoCodec(codec) == VideoCodec::Mjpeg;
    for (int i = 0; i < pictures.size(); ++i) {
        QCOMPARE(decoder.send(bytes(pictures[i].data), 100 + i), Status::Ok);
        Image image;
        std::int64_t tag = 0;
        QCOMPARE(decoder.receive(&image, &tag), Status::Ok);
        QCOMPARE(tag, 100 + i);
        QCOMPARE(QSize(image.width(), image.height()), size);
        QCOMPARE(image.planes().strideY, (size.width() + 3) / 4 * 4);
        QCOMPARE(image.planes().strideUV, (size.width() / 2 + 3) / 4 * 4);
        const int expected = full ? 16 + lumas[i] * 219 / 255 : lumas[i];
        const int last = (size.height() - 1) * image.planes().strideY + size.width() - 1;
        QVERIFY(qAbs(image.planes().y[0] - expected) <= 3);
        QVERIFY(qAbs(image.planes().y[last] - expected) <= 3);
        const int lastChroma = (size.height() / 2 - 1) * image.planes().strideUV + size.width() / 2 - 1;
        QVERIFY(qAbs(image.planes().u[lastChroma] - 102) <= 4);
        QVERIFY(qAbs(image.planes().v[lastChroma] - 149) <= 4);
        QCOMPARE(decoder.receive(&image, &tag), Status::NeedsMore);
    }
}

void TestVideoDecoder::decode_sharesMemory_whenLinesFit()
{
    const auto pictures = StreamEncoder("libx264", 640, 360).encode({50}, 1);
    VideoDecoder decoder;
    decoder.open(VideoCodec::H264);
    decoder.send(bytes(pictures[0].data), 0);
    Image image;
    QCOMPARE(decoder.receive(&image, nullptr), Status::Ok);
    // One block of the pool holds its planes one behind the other; a frame of the decoder has room between.
    QVERIFY(image.planes().u != image.planes().y + 640 * 360);
}

void TestVideoDecoder::decode_limitsRange_whenMjpeg()
{
    VideoDecoder decoder;
    decoder.open(VideoCodec::Mjpeg);
    const auto pictures = StreamEncoder("mjpeg", 320, 240).encode({0, 255}, 1);
    Image image;
    decoder.send(bytes(pictures[0].data), 0);
    QCOMPARE(decoder.receive(&image, nullptr), Status::Ok);
    QVERIFY(qAbs(image.planes().y[5] - 16) <= 1);
    decoder.send(bytes(pictures[1].data), 1);
    QCOMPARE(decoder.receive(&image, nullptr), Status::Ok);
    QVERIFY(qAbs(image.planes().y[5] - 235) <= 1);
}

void TestVideoDecoder::pictures_tellHowTheyCameAbout()
{
    const auto pictures = StreamEncoder("libx264", 640, 360).encode({100, 110}, 2);
    VideoDecoder decoder;
    QCOMPARE(decoder.open(VideoCodec::H264), Status::Ok);
    // QDateTime rounds to the nearest millisecond, which may lie ahead.
    const auto clock = [] {
        using namespace std::chrono;
        return qint64(duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count());
    };
    const qint64 before = clock();
    for (const auto &picture : pictures) {
        QCOMPARE(decoder.send(bytes(picture.data), 1), Status::Ok);
        Image image;
        QCOMPARE(decoder.receive(&image, nullptr), Status::Ok);
        const std::optional<FrameFacts> facts = FrameFacts::fromBytes(image.extension(FrameFactsExtension));
        QVERIFY(facts);
        const qint64 now = clock();
        QVERIFY(facts->arrivedMs >= before && facts->arrivedMs <= facts->decodedMs);
        QVERIFY(facts->decodedMs <= now);
        QVERIFY(facts->decodingUs > 0 && facts->decodingUs <= 1000 * (now - before + 2));
        QCOMPARE(facts->framesPerSecond, 0.0); // the stream knows
    }
}

void TestVideoDecoder::pictures_outliveTheDecoder()
{
    Image image;
    {
        VideoDecoder decoder;
        decoder.open(VideoCodec::H264);
        decoder.send(bytes(StreamEncoder("libx264", 640, 360).encode({50}, 1)[0].data), 0);
        QCOMPARE(decoder.receive(&image, nullptr), Status::Ok);
    }
    QVERIFY(qAbs(image.planes().y[640 * 359 + 639] - 50) <= 2);
}

void TestVideoDecoder::decode_reportsCorrupt_whenBytesAreNoise()
{
    QRandomGenerator random(7);
    for (const VideoCodec codec : {VideoCodec::H264, VideoCodec::H265, VideoCodec::Mjpeg}) {
        VideoDecoder decoder;
        QCOMPARE(decoder.open(codec), Status::Ok);
        for (int i = 0; i < 50; ++i) {
            QByteArray noise(200 + i, 0);
            for (char &byte : noise)
                byte = char(random.bounded(256));
            noise.prepend(QByteArray::fromHex("0000000165"));
            const Status sent = decoder.send(bytes(noise), i);
            Image image;
            const Status received = decoder.receive(&image, nullptr);
            QVERIFY(sent != Status::Ok || received != Status::Ok);
        }
    }
}

void TestVideoDecoder::decode_recovers_afterNoise()
{
    const auto pictures = StreamEncoder("libx264", 320, 240).encode({50, 60, 70}, 1);
    VideoDecoder decoder;
    decoder.open(VideoCodec::H264);
    Image image;
    decoder.send(bytes(pictures[0].data), 0);
    QCOMPARE(decoder.receive(&image, nullptr), Status::Ok);
    decoder.send(bytes(QByteArray::fromHex("00000001650102030405060708")), 1);
    decoder.receive(&image, nullptr);
    decoder.flush();
    decoder.send(bytes(pictures[2].data), 2);
    QCOMPARE(decoder.receive(&image, nullptr), Status::Ok);
    QVERIFY(qAbs(image.planes().y[0] - 70) <= 2);
}

void TestVideoDecoder::send_failsWithUnsupported_whenNotOpen()
{
    VideoDecoder decoder;
    QVERIFY(!decoder.isOpen());
    QCOMPARE(decoder.send(bytes("abc"), 0), Status::Unsupported);
    Image image;
    QCOMPARE(decoder.receive(&image, nullptr), Status::Unsupported);
    QCOMPARE(decoder.open(VideoCodec::Unknown), Status::Unsupported);
    decoder.flush();
}

void TestVideoDecoder::hardware_fallsBackToSoftware_whenThereIsNone()
{
    const auto pictures = StreamEncoder("libx264", 320, 240).encode({50}, 1);
    VideoDecoder decoder;
    QCOMPARE(decoder.open(VideoCodec::H264, {.hardware = true}), Status::Ok);
    decoder.send(bytes(pictures[0].data), 0);
    Image image;
    QCOMPARE(decoder.receive(&image, nullptr), Status::Ok);
    QVERIFY(qAbs(image.planes().y[0] - 50) <= 2);
}

QTEST_APPLESS_MAIN(TestVideoDecoder)
#include "tst_videodecoder.moc"
