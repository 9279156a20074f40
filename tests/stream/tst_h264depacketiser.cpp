// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/h264depacketiser.h"
#include "rtpbuilder.h"

#include <QRandomGenerator>
#include <QTest>

using namespace orrin;
using namespace orrin::rtp;
using namespace std::chrono_literals;

class TestH264Depacketiser : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void single_isOneUnit_withStartCode();
    void aggregate_isTakenApart();
    void fragments_arePutTogether();
    void unit_ends_whenTheTimeChanges();
    void key_isTold_data();
    void key_isTold();
    void parameterSets_arePutBeforeAKeyPictureWithoutItsOwn();
    void parameterSets_areNotRepeated_whenInBand();
    void loss_marksTheUnit_data();
    void loss_marksTheUnit();
    void loss_betweenUnits_leavesAKeyPictureUsable();
    void stalePackets_areDropped_untilTheStreamBeginsAnew();
    void otherSource_isALoss();
    void extension_givesTheTime();
    void oversizedUnit_isDamagedAndEmpty();
    void malformed_isDamaged_data();
    void malformed_isDamaged();
    void foreignPackets_areIgnored();
    void noise_neverCrashesAndStaysBounded();

private:
    void push(const QByteArray &payload, bool marker = false) { m_receiver->packet(asBytes(m_builder.packet(payload, marker))); }
    void lose() { ++m_builder.sequence; }
    void nextTime() { m_builder.timestamp += 3600; }

    RtpBuilder m_builder;
    UnitRecorder m_recorder;
    H264Depacketiser *m_depacketiser = nullptr;
    std::unique_ptr<RtpReceiver> m_receiver;
};

void TestH264Depacketiser::init()
{
    m_builder = {};
    m_recorder.units.clear();
    auto depacketiser = std::make_unique<H264Depacketiser>(m_recorder);
    m_depacketiser = depacketiser.get();
    m_receiver = std::make_unique<RtpReceiver>(std::move(depacketiser), 96);
}

void TestH264Depacketiser::single_isOneUnit_withStartCode()
{
    push(hex("6588aabb"), true);
    QCOMPARE(m_recorder.units.size(), 1U);
    QCOMPARE(m_recorder.data(0), hex("000000016588aabb"));
    QVERIFY(m_recorder.units[0].key);
    QVERIFY(!m_recorder.units[0].lost);
    QVERIFY(!m_recorder.units[0].damaged);
    QCOMPARE(m_recorder.units[0].rtpTime, 1000U);
    QCOMPARE(m_recorder.units[0].firstSequence, 1);
}

void TestH264Depacketiser::aggregate_isTakenApart()
{
    push(hex("78" "00026742" "000168" "0003658811"), true);
    QCOMPARE(m_recorder.data(0), hex("000000016742" "0000000168" "00000001658811"));
    QVERIFY(m_recorder.units[0].key && !m_recorder.units[0].damaged);
}

void TestH264Depacketiser::fragments_arePutTogether()
{
    push(hex("6742"));
    push(hex("7c8588aa"));
    push(hex("7c05bb"));
    push(hex("7c45cc"), true);
    QCOMPARE(m_recorder.units.size(), 1U);
    QCOMPARE(m_recorder.data(0), hex("000000016742" "000000016588aabbcc"));
    QVERIFY(m_recorder.units[0].key && !m_recorder.units[0].damaged);
}

void TestH264Depacketiser::unit_ends_whenTheTimeChanges()
{
    push(hex("6588aa"));
    nextTime();
    push(hex("4188bb"));
    QCOMPARE(m_recorder.units.size(), 1U);
    QVERIFY(!m_recorder.units[0].damaged);
    nextTime();
    push(hex("4188cc"), true);
    QCOMPARE(m_recorder.units.size(), 3U);
    QVERIFY(!m_recorder.units[1].key);
}

void TestH264Depacketiser::key_isTold_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<bool>("key");
    QTest::newRow("IDR") << hex("6588") << true;
    QTest::newRow("other slice") << hex("4188") << false;
    QTest::newRow("recovery point") << hex("06060184") << true;
    QTest::newRow("other message") << hex("06050184") << false;
    QTest::newRow("recovery point behind another message") << hex("06050100060184") << true;
    QTest::newRow("message beyond the end") << hex("0605ffff") << false;
}

void TestH264Depacketiser::key_isTold()
{
    QFETCH(QByteArray, first);
    QFETCH(bool, key);
    push(first);
    push(hex("4188"), true);
    QCOMPARE(m_recorder.units[0].key, key);
}

void TestH264Depacketiser::parameterSets_arePutBeforeAKeyPictureWithoutItsOwn()
{
    m_depacketiser->setParameterSets({0, 0, 0, 1, 0x67, 0x42});
    push(hex("6588"), true);
    nextTime();
    push(hex("4188"), true);
    QCOMPARE(m_recorder.data(0), hex("000000016742" "000000016588"));
    QCOMPARE(m_recorder.data(1), hex("000000014188"));
}

void TestH264Depacketiser::parameterSets_areNotRepeated_whenInBand()
{
    m_depacketiser->setParameterSets({0, 0, 0, 1, 0x67, 0x42});
    push(hex("6755"));
    push(hex("6588"));
    push(hex("6508"), true);
    QCOMPARE(m_recorder.data(0), hex("000000016755" "000000016588" "000000016508"));
}

void TestH264Depacketiser::loss_marksTheUnit_data()
{
    QTest::addColumn<int>("missing"); // 1 start, 2 middle, 3 end
    QTest::newRow("start of a picture") << 1;
    QTest::newRow("middle") << 2;
    QTest::newRow("end") << 3;
}

void TestH264Depacketiser::loss_marksTheUnit()
{
    QFETCH(int, missing);
    push(hex("6588"), true);
    nextTime();
    const QList<QByteArray> parts{hex("7c8188aa"), hex("7c01bb"), hex("7c41cc")};
    for (int i = 0; i < 3; ++i) {
        if (missing == i + 1)
            lose();
        else
            push(parts[i], i == 2);
    }
    nextTime();
    push(hex("4188"), true);
    // Without its start nothing is left of a picture: then the next one knows of the loss.
    const bool vanished = missing == 1;
    QCOMPARE(m_recorder.units.size(), vanished ? 2U : 3U);
    QVERIFY(m_recorder.units[1].lost);
    QCOMPARE(m_recorder.units[1].damaged, !vanished);
    QVERIFY(!m_recorder.units.back().damaged);
    QCOMPARE(m_receiver->lostPackets(), 1U);
}

void TestH264Depacketiser::loss_betweenUnits_leavesAKeyPictureUsable()
{
    push(hex("4188"), true);
    lose();
    nextTime();
    push(hex("6742"));
    push(hex("6588"), true);
    QVERIFY(m_recorder.units[1].lost);
    QVERIFY(m_recorder.units[1].key);
    QVERIFY(!m_recorder.units[1].damaged);
}

void TestH264Depacketiser::stalePackets_areDropped_untilTheStreamBeginsAnew()
{
    m_builder.sequence = 5000;
    push(hex("6588"), true);
    m_builder.sequence = 4000;
    for (int i = 0; i < RtpReceiver::MaxStale - 1; ++i)
        push(hex("6588"), true);
    QCOMPARE(m_recorder.units.size(), 1U);
    QCOMPARE(m_receiver->stalePackets(), quint64(RtpReceiver::MaxStale - 1));
    push(hex("6588"), true);
    push(hex("4188"), true);
    QCOMPARE(m_recorder.units.size(), 3U);
    QVERIFY(m_recorder.units[1].lost);
    QVERIFY(!m_recorder.units[2].lost);
}

void TestH264Depacketiser::otherSource_isALoss()
{
    push(hex("6588"), true);
    m_builder.ssrc = 99;
    m_builder.sequence = 30000;
    push(hex("6588"), true);
    push(hex("4188"), true);
    QCOMPARE(m_recorder.units.size(), 3U);
    QVERIFY(m_recorder.units[1].lost);
    QVERIFY(!m_recorder.units[2].lost);
}

void TestH264Depacketiser::extension_givesTheTime()
{
    m_builder.extension = hex("abac0003" "83aa7e8180000000" "a0420000");
    push(hex("6588"));
    m_builder.extension.clear();
    push(hex("6508"), true);
    QVERIFY(m_recorder.units[0].time);
    QCOMPARE(*m_recorder.units[0].time, CaptureTime(1500ms));
    QVERIFY(m_recorder.units[0].discontinuity);
    QVERIFY(!m_recorder.units[0].end);
    QCOMPARE(m_recorder.units[0].cseq, std::uint8_t(0x42));
}

void TestH264Depacketiser::oversizedUnit_isDamagedAndEmpty()
{
    const QByteArray chunk = hex("7c05") + QByteArray(60'000, 'x');
    push(hex("7c8588"));
    for (int i = 0; i < 150; ++i)
        push(chunk);
    push(hex("7c45cc"), true);
    push(hex("6588"), true);
    // The oversized one is nothing to show; the next one knows of the loss.
    QCOMPARE(m_recorder.units.size(), 1U);
    QVERIFY(m_recorder.units[0].lost);
    QVERIFY(m_recorder.units[0].data.capacity() <= 2 * AccessUnit::MaxBytes);
}

void TestH264Depacketiser::malformed_isDamaged_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("type 0") << hex("00aabb");
    QTest::newRow("type 30") << hex("1eaabb");
    QTest::newRow("other aggregation") << hex("19000000046588");
    QTest::newRow("aggregate without length") << hex("7800");
    QTest::newRow("aggregate beyond the end") << hex("78ffff65");
    QTest::newRow("aggregate of nothing") << hex("780000");
    QTest::newRow("fragment without header") << hex("7c");
    QTest::newRow("fragment without start") << hex("7c05aa");
}

void TestH264Depacketiser::malformed_isDamaged()
{
    QFETCH(QByteArray, payload);
    push(hex("6588"));
    push(payload, true);
    QCOMPARE(m_recorder.units.size(), 1U);
    QVERIFY(m_recorder.units[0].damaged);
    nextTime();
    push(hex("6588"), true);
    QVERIFY(!m_recorder.units[1].damaged);
}

void TestH264Depacketiser::foreignPackets_areIgnored()
{
    m_builder.payloadType = 97;
    push(hex("6588"), true);
    m_receiver->packet(asBytes("short"));
    QVERIFY(m_recorder.units.empty());
    QCOMPARE(m_receiver->foreignPackets(), 2U);
}

void TestH264Depacketiser::noise_neverCrashesAndStaysBounded()
{
    QRandomGenerator random(11);
    const QList<QByteArray> seeds{hex("6588aabb"), hex("7800026742000168"), hex("7c8588aa"), hex("7c05bb"), hex("7c45cc"), {}};
    for (int i = 0; i < 20000; ++i) {
        QByteArray payload = seeds[random.bounded(seeds.size())];
        if (!payload.isEmpty() && random.bounded(2))
            payload[random.bounded(payload.size())] = char(random.bounded(256));
        if (random.bounded(10) == 0)
            lose();
        if (random.bounded(3) == 0)
            nextTime();
        push(payload, random.bounded(4) == 0);
    }
    QVERIFY(!m_recorder.units.empty());
}

QTEST_APPLESS_MAIN(TestH264Depacketiser)
#include "tst_h264depacketiser.moc"
