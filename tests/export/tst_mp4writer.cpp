// SPDX-License-Identifier: GPL-3.0-or-later
#include "clipreader.h"
#include "streamencoder.h"

#include "codecs/mp4writer.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

class TestMp4Writer : public QObject
{
    Q_OBJECT

private:
    QString file(const QString &name = u"clip.mp4"_s) const { return m_folder.filePath(name); }
    static std::span<const std::uint8_t> bytes(const QByteArray &data)
    {
        return {reinterpret_cast<const std::uint8_t *>(data.constData()), std::size_t(data.size())};
    }

    QTemporaryDir m_folder;

private Q_SLOTS:
    void pictures_comeBackAsTheyWere_data()
    {
        QTest::addColumn<QByteArray>("encoder");
        QTest::addColumn<int>("codec");
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("H.264") << QByteArray("libx264") << int(VideoCodec::H264) << QByteArray("h264");
        QTest::newRow("H.265") << QByteArray("libx265") << int(VideoCodec::H265) << QByteArray("hevc");
        QTest::newRow("MJPEG") << QByteArray("mjpeg") << int(VideoCodec::Mjpeg) << QByteArray("mjpeg");
    }

    void pictures_comeBackAsTheyWere()
    {
        QFETCH(QByteArray, encoder);
        QFETCH(int, codec);
        QFETCH(QByteArray, name);
        const QList<int> lumas{40, 80, 120, 160, 200, 60, 100, 140};
        const QList<StreamEncoder::Picture> pictures = StreamEncoder(encoder.constData(), 64, 48).encode(lumas, 4);
        QVERIFY2(!pictures.isEmpty(), "libavcodec lacks the encoder");
        Mp4Writer writer;
        QVERIFY2(writer.open(file(), VideoCodec(codec), 64, 48, 1'700'000'000'250), qPrintable(writer.errorText()));
        for (qsizetype i = 0; i < pictures.size(); ++i)
            QVERIFY2(writer.write(bytes(pictures.at(i).data), i * 40, pictures.at(i).key), qPrintable(writer.errorText()));
        QVERIFY2(writer.finish(), qPrintable(writer.errorText()));

        const ClipContents clip = readClip(file());
        QVERIFY(clip.readable);
        QCOMPARE(clip.codec, name);
        QCOMPARE(clip.width, 64);
        QCOMPARE(clip.height, 48);
        QCOMPARE(clip.pictures.size(), lumas.size());
        QVERIFY(clip.createdText.startsWith(u"2023-11-14T22:13:20"_s));
        for (qsizetype i = 0; i < lumas.size(); ++i) {
            QCOMPARE(clip.pictures.at(i).timeMs, i * 40);
            const int seen = std::uint8_t(clip.pictures.at(i).luma.at(64 * 24 + 32));
            QVERIFY2(std::abs(seen - lumas.at(i)) <= 6, qPrintable(QString::number(seen)));
        }
        QVERIFY(clip.pictures.at(0).key && clip.pictures.at(4).key);
    }

    void times_ascend_whenTheGivenOnesDoNot()
    {
        const QList<StreamEncoder::Picture> pictures = StreamEncoder("libx264", 64, 48).encode({40, 80, 120}, 3);
        Mp4Writer writer;
        QVERIFY(writer.open(file(), VideoCodec::H264, 64, 48, 0));
        for (const StreamEncoder::Picture &picture : pictures)
            QVERIFY(writer.write(bytes(picture.data), 100, picture.key));
        QVERIFY(writer.finish());
        const ClipContents clip = readClip(file());
        QCOMPARE(clip.pictures.size(), 3);
        QVERIFY(clip.pictures.at(0).timeMs < clip.pictures.at(1).timeMs);
        QVERIFY(clip.pictures.at(1).timeMs < clip.pictures.at(2).timeMs);
    }

    void open_fails_whereNoFileCanBe()
    {
        Mp4Writer writer;
        QVERIFY(!writer.open(file(u"no/such/folder/clip.mp4"_s), VideoCodec::H264, 64, 48, 0));
        QVERIFY(!writer.errorText().isEmpty());
        QVERIFY(!writer.open(file(), VideoCodec::Unknown, 64, 48, 0));
        QVERIFY(!writer.open(file(), VideoCodec::H264, 0, 48, 0));
        QVERIFY(!writer.isOpen());
    }

    void write_fails_onAFullDisk()
    {
        const QList<StreamEncoder::Picture> pictures = StreamEncoder("libx264", 640, 480).encode({40}, 1);
        Mp4Writer writer;
        QVERIFY(writer.open(u"/dev/full"_s, VideoCodec::H264, 640, 480, 0));
        bool whole = true;
        for (int i = 0; i < 2000 && whole; ++i)
            whole = writer.write(bytes(pictures.constFirst().data), i * 40, true);
        whole = whole && writer.finish();
        QVERIFY(!whole);
        QVERIFY(!writer.errorText().isEmpty());
    }

    void write_fails_withoutParameterSets()
    {
        Mp4Writer writer;
        QVERIFY(writer.open(file(), VideoCodec::H264, 64, 48, 0));
        QVERIFY(!writer.write(bytes(QByteArray("\0\0\0\1\x65garbage", 12)), 0, true));
        QVERIFY(!writer.finish());
    }
};

QTEST_GUILESS_MAIN(TestMp4Writer)
#include "tst_mp4writer.moc"
