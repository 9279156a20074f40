// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/videodecoder.h"
#include "core/stream/rtp/mjpegdepacketiser.h"
#include "rtpbuilder.h"
#include "streamencoder.h"

#include <QRandomGenerator>
#include <QTest>

using namespace orrin;
using namespace orrin::rtp;

namespace {

/*! The parts of a JPEG file that go into RTP. */
struct JpegParts
{
    QByteArray tables; // luma, then chroma
    QByteArray scan;

    explicit JpegParts(const QByteArray &file)
    {
        qsizetype at = 2;
        while (at + 4 <= file.size()) {
            const int marker = quint8(file[at + 1]);
            const qsizetype length = quint8(file[at + 2]) << 8 | quint8(file[at + 3]);
            const QByteArray body = file.mid(at + 4, length - 2);
            at += 2 + length;
            if (marker == 0xDB) {
                for (qsizetype table = 0; table + 65 <= body.size(); table += 65)
                    tables += body.mid(table + 1, 64);
            } else if (marker == 0xDA) {
                scan = file.mid(at);
                return;
            }
        }
    }
};

QByteArray mainHeader(int offset, int type, int quality, int width, int height)
{
    QByteArray header;
    RtpBuilder::append(header, quint32(offset));
    return header + char(type) + char(quality) + char(width / 8) + char(height / 8);
}

} // namespace

class TestMjpegDepacketiser : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void picture_decodes_withTablesInBand();
    void picture_decodes_withTablesKept();
    void tablesByQuality_areTheStandards();
    void header_holdsRestartInterval();
    void loss_damages();
    void malformed_isDamaged_data();
    void malformed_isDamaged();
    void noise_neverCrashes();

private:
    void push(const QByteArray &payload, bool marker = false) { m_receiver->packet(asBytes(m_builder.packet(payload, marker))); }
    void pushPicture(const JpegParts &parts, bool withTables);
    int lumaOf(const AccessUnit &unit);

    RtpBuilder m_builder;
    UnitRecorder m_recorder;
    std::unique_ptr<RtpReceiver> m_receiver;
};

void TestMjpegDepacketiser::init()
{
    m_builder = {};
    m_recorder.units.clear();
    m_receiver = std::make_unique<RtpReceiver>(std::make_unique<MjpegDepacketiser>(m_recorder), 96);
}

void TestMjpegDepacketiser::pushPicture(const JpegParts &parts, bool withTables)
{
    constexpr int Chunk = 100;
    for (int at = 0; at < parts.scan.size(); at += Chunk) {
        QByteArray payload = mainHeader(at, 1, 200, 160, 120);
        if (at == 0) {
            const QByteArray tables = withTables ? parts.tables.size() == 64 ? parts.tables + parts.tables : parts.tables
                                                 : QByteArray();
            payload += hex("0000");
            RtpBuilder::append(payload, quint16(tables.size()));
            payload += tables;
        }
        push(payload + parts.scan.mid(at, Chunk), at + Chunk >= parts.scan.size());
    }
    m_builder.timestamp += 3600;
}

int TestMjpegDepacketiser::lumaOf(const AccessUnit &unit)
{
    VideoDecoder decoder;
    decoder.open(VideoCodec::Mjpeg);
    Image image;
    if (decoder.send(unit.data, 0) != VideoDecoder::Status::Ok || decoder.receive(&image, nullptr) != VideoDecoder::Status::Ok)
        return -1;
    return image.width() == 160 && image.height() == 120 ? image.planes().y[100] : -2;
}

void TestMjpegDepacketiser::picture_decodes_withTablesInBand()
{
    const auto pictures = StreamEncoder("mjpeg", 160, 120).encode({80, 160}, 1);
    QCOMPARE(pictures.size(), 2);
    for (const auto &picture : pictures)
        pushPicture(JpegParts(picture.data), true);
    QCOMPARE(m_recorder.units.size(), 2U);
    QVERIFY(m_recorder.units[0].key && !m_recorder.units[0].damaged);
    QVERIFY(qAbs(lumaOf(m_recorder.units[0]) - (16 + 80 * 219 / 255)) <= 3);
    QVERIFY(qAbs(lumaOf(m_recorder.units[1]) - (16 + 160 * 219 / 255)) <= 3);
}

void TestMjpegDepacketiser::picture_decodes_withTablesKept()
{
    const auto pictures = StreamEncoder("mjpeg", 160, 120).encode({80, 80}, 1);
    pushPicture(JpegParts(pictures[0].data), false);
    QVERIFY(m_recorder.units.empty() || m_recorder.units[0].damaged);
    m_recorder.units.clear();
    pushPicture(JpegParts(pictures[0].data), true);
    pushPicture(JpegParts(pictures[0].data), false);
    QCOMPARE(m_recorder.units.size(), 2U);
    QVERIFY(!m_recorder.units[1].damaged);
    QCOMPARE(m_recorder.data(0), m_recorder.data(1));
}

void TestMjpegDepacketiser::tablesByQuality_areTheStandards()
{
    const auto half = QuantisationTables::forQuality(50);
    // Zigzag order of the table K.1 begins 16 11 12 14 12 10, that of K.2 17 18 18 24 21 24.
    QCOMPARE(QList<int>(half.luma.begin(), half.luma.begin() + 6), (QList<int>{16, 11, 12, 14, 12, 10}));
    QCOMPARE(QList<int>(half.chroma.begin(), half.chroma.begin() + 6), (QList<int>{17, 18, 18, 24, 21, 24}));
    QCOMPARE(half.luma[63], 99);
    QCOMPARE(QuantisationTables::forQuality(99).luma[0], 1);
    QCOMPARE(QuantisationTables::forQuality(1).luma[0], 255);
    QCOMPARE(QuantisationTables::forQuality(25).luma[1], 22);
}

void TestMjpegDepacketiser::header_holdsRestartInterval()
{
    push(mainHeader(0, 65, 50, 160, 120) + hex("0004ffff") + "scan", true);
    QCOMPARE(m_recorder.units.size(), 1U);
    QVERIFY(!m_recorder.units[0].damaged);
    QVERIFY(m_recorder.data(0).contains(hex("ffdd00040004")));
    QVERIFY(m_recorder.data(0).contains(hex("ffc0001108007800a003012200021101031101")));
    QVERIFY(m_recorder.data(0).endsWith("scan" + hex("ffd9")));
}

void TestMjpegDepacketiser::loss_damages()
{
    push(mainHeader(0, 1, 50, 160, 120) + "aaaa");
    ++m_builder.sequence;
    push(mainHeader(8, 1, 50, 160, 120) + "cccc", true);
    QVERIFY(m_recorder.units[0].damaged);
    m_builder.timestamp += 3600;
    push(mainHeader(4, 1, 50, 160, 120) + "bbbb", true);
    m_builder.timestamp += 3600;
    push(mainHeader(0, 1, 50, 160, 120) + "aaaa", true);
    QVERIFY(!m_recorder.units.back().damaged);
    QVERIFY(m_recorder.units.back().lost);
}

void TestMjpegDepacketiser::malformed_isDamaged_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("short") << hex("0000000001");
    QTest::newRow("unknown type") << mainHeader(0, 2, 50, 160, 120) + "aa";
    QTest::newRow("quality 0") << mainHeader(0, 1, 0, 160, 120) + "aa";
    QTest::newRow("quality 100") << mainHeader(0, 1, 100, 160, 120) + "aa";
    QTest::newRow("no width") << mainHeader(0, 1, 50, 0, 120) + "aa";
    QTest::newRow("tables beyond the end") << mainHeader(0, 1, 200, 160, 120) + hex("0000ffff00");
    QTest::newRow("short tables") << mainHeader(0, 1, 200, 160, 120) + hex("0000000411111111");
    QTest::newRow("wide tables cut off") << mainHeader(0, 1, 255, 160, 120) + hex("00010040") + QByteArray(64, 1);
    QTest::newRow("no tables at 255") << mainHeader(0, 1, 255, 160, 120) + hex("00000000aa");
    QTest::newRow("restart cut off") << mainHeader(0, 65, 50, 160, 120) + hex("00");
}

void TestMjpegDepacketiser::malformed_isDamaged()
{
    QFETCH(QByteArray, payload);
    push(payload, true);
    QVERIFY(m_recorder.units.empty() || m_recorder.units[0].damaged);
    m_builder.timestamp += 3600;
    push(mainHeader(0, 1, 50, 160, 120) + "aaaa", true);
    QVERIFY(!m_recorder.units.back().damaged);
}

void TestMjpegDepacketiser::noise_neverCrashes()
{
    QRandomGenerator random(13);
    for (int i = 0; i < 20000; ++i) {
        QByteArray payload = mainHeader(0, random.bounded(130), random.bounded(256), 160, 120);
        for (int k = random.bounded(40); k > 0; --k)
            payload += char(random.bounded(256));
        payload.truncate(random.bounded(payload.size() + 1));
        push(payload, random.bounded(2) == 0);
    }
}

QTEST_APPLESS_MAIN(TestMjpegDepacketiser)
#include "tst_mjpegdepacketiser.moc"
