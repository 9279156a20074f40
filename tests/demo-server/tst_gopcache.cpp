// SPDX-License-Identifier: GPL-3.0-or-later
#include "recordings/gopcache.h"
#include "recordings/recordedvideo.h"
#include "stripdecoder.h"

#include <QGuiApplication>
#include <QTest>

using namespace orrin::demo;

class TestGopCache : public QObject
{
    Q_OBJECT

private:
    static GopCache::Gop gop(int frames, int size)
    {
        GopCache::Gop result;
        for (int i = 0; i < frames; ++i) {
            AVPacket *packet = av_packet_alloc();
            av_new_packet(packet, size);
            result.emplace_back(packet, [](const AVPacket *data) { PacketDeleter()(const_cast<AVPacket *>(data)); });
        }
        return result;
    }

    static QByteArray bytes(const GopCache::PacketRef &packet)
    {
        return QByteArray(reinterpret_cast<const char *>(packet->data), packet->size);
    }

private Q_SLOTS:
    void cache_forgetsWhatWasUsedLongestAgo()
    {
        GopCache cache(1000);
        cache.put({1, 1}, gop(2, 200));
        cache.put({1, 2}, gop(2, 200));
        QCOMPARE(cache.bytes(), 800);
        QCOMPARE(cache.find({1, 1}).size(), 2);
        cache.put({1, 3}, gop(2, 200));
        QCOMPARE(cache.bytes(), 800);
        QVERIFY(cache.find({1, 2}).empty());
        QCOMPARE(cache.find({1, 1}).size(), 2);
        QCOMPARE(cache.find({1, 3}).size(), 2);
        QVERIFY(cache.find({2, 1}).empty());
    }

    void cache_keepsTheLongerGroup()
    {
        GopCache cache(1000);
        cache.put({1, 1}, gop(2, 100));
        cache.put({1, 1}, gop(1, 100));
        QCOMPARE(cache.find({1, 1}).size(), 2);
        cache.put({1, 1}, gop(3, 100));
        QCOMPARE(cache.find({1, 1}).size(), 3);
        QCOMPARE(cache.bytes(), 300);
    }

    void recordedVideo_givesTheSameFrames_whateverWasBefore_data()
    {
        QTest::addColumn<VideoCodec>("codec");
        QTest::addColumn<int>("decoder");
        QTest::newRow("H.264") << VideoCodec::H264 << int(AV_CODEC_ID_H264);
        QTest::newRow("H.265") << VideoCodec::H265 << int(AV_CODEC_ID_HEVC);
        QTest::newRow("MJPEG") << VideoCodec::Mjpeg << int(AV_CODEC_ID_MJPEG);
    }

    void recordedVideo_givesTheSameFrames_whateverWasBefore()
    {
        QFETCH(VideoCodec, codec);
        QFETCH(int, decoder);
        Camera camera = *Site::builtIn().recorders.first().camera(1);
        camera.codec = codec;
        const Profile profile = *camera.profile(u"sub");
        constexpr qint64 Gop = 880'000'000;
        RecordedVideo one(camera, profile, "Europe/Berlin", std::make_shared<GopCache>());
        RecordedVideo other(camera, profile, "Europe/Berlin", std::make_shared<GopCache>());
        QCOMPARE(one.gopFrames(), 30);
        for (int i = 0; i < 7; ++i)
            QVERIFY(other.frame(Gop - 5, i));
        orrin::test::StripDecoder decode(static_cast<AVCodecID>(decoder));
        orrin::test::StripDecoder mixed(static_cast<AVCodecID>(decoder));
        for (int i = 0; i < one.gopFrames(); ++i) {
            const auto first = one.frame(Gop, i);
            const auto second = other.frame(Gop, i);
            QVERIFY(first && second);
            const auto fields = decode.decode(bytes(first));
            QVERIFY2(fields, qPrintable(QString::number(i)));
            QCOMPARE(qint64(fields->timeMs), one.timeOf(Gop, i));
            // Frames of both make one stream, to the last pixel.
            QVERIFY(mixed.decode(bytes(i % 2 ? first : second)));
            QVERIFY2(mixed.luma() == decode.luma(), qPrintable(QString::number(i)));
        }
        // A frame from the middle alone comes with all that it stands on, and out of the cache.
        const auto again = one.frame(Gop, 12);
        QCOMPARE(again, one.frame(Gop, 12));
    }
};

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    TestGopCache test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_gopcache.moc"
