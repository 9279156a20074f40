// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/h265depacketiser.h"
#include "rtpbuilder.h"

#include <QRandomGenerator>
#include <QTest>

using namespace orrin;
using namespace orrin::rtp;

class TestH265Depacketiser : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void single_isOneUnit();
    void aggregate_isTakenApart();
    void fragments_arePutTogether();
    void key_isTold_byNalType();
    void parameterSets_arePutBeforeAKeyPictureWithoutItsOwn();
    void loss_inFragments_damages();
    void malformed_isDamaged_data();
    void malformed_isDamaged();
    void noise_neverCrashes();

private:
    void push(const QByteArray &payload, bool marker = false) { m_receiver->packet(asBytes(m_builder.packet(payload, marker))); }

    RtpBuilder m_builder;
    UnitRecorder m_recorder;
    H265Depacketiser *m_depacketiser = nullptr;
    std::unique_ptr<RtpReceiver> m_receiver;
};

void TestH265Depacketiser::init()
{
    m_builder = {};
    m_recorder.units.clear();
    auto depacketiser = std::make_unique<H265Depacketiser>(m_recorder);
    m_depacketiser = depacketiser.get();
    m_receiver = std::make_unique<RtpReceiver>(std::move(depacketiser), 96);
}

void TestH265Depacketiser::single_isOneUnit()
{
    push(hex("260180aa"), true);
    QCOMPARE(m_recorder.data(0), hex("00000001260180aa"));
    QVERIFY(m_recorder.units[0].key && !m_recorder.units[0].damaged);
}

void TestH265Depacketiser::aggregate_isTakenApart()
{
    push(hex("6001" "000340010c" "0003420101" "0004260180aa"), true);
    QCOMPARE(m_recorder.data(0), hex("0000000140010c" "00000001420101" "00000001260180aa"));
    QVERIFY(m_recorder.units[0].key && !m_recorder.units[0].damaged);
}

void TestH265Depacketiser::fragments_arePutTogether()
{
    push(hex("62019380aa"));
    push(hex("620113bb"));
    push(hex("620153cc"), true);
    QCOMPARE(m_recorder.data(0), hex("00000001260180aabbcc"));
    QVERIFY(m_recorder.units[0].key && !m_recorder.units[0].damaged);
}

void TestH265Depacketiser::key_isTold_byNalType()
{
    for (int type = 0; type < 32; ++type) {
        m_builder.timestamp += 3000;
        push(QByteArray(1, char(type << 1)) + hex("0180aa"), true);
        QCOMPARE(m_recorder.units.back().key, type >= 16 && type <= 21);
    }
}

void TestH265Depacketiser::parameterSets_arePutBeforeAKeyPictureWithoutItsOwn()
{
    m_depacketiser->setParameterSets({0, 0, 0, 1, 0x42, 0x01});
    push(hex("260180aa"), true);
    QCOMPARE(m_recorder.data(0), hex("000000014201" "00000001260180aa"));
}

void TestH265Depacketiser::loss_inFragments_damages()
{
    push(hex("62019380aa"));
    ++m_builder.sequence;
    push(hex("620153cc"), true);
    QVERIFY(m_recorder.units[0].damaged && m_recorder.units[0].lost);
    m_builder.timestamp += 3000;
    // The beginning is missing: the first slice segment is not the first of its picture.
    ++m_builder.sequence;
    push(hex("260100aa"), true);
    QVERIFY(m_recorder.units[1].damaged);
}

void TestH265Depacketiser::malformed_isDamaged_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("header alone") << hex("2601");
    QTest::newRow("one byte") << hex("26");
    QTest::newRow("type 50") << hex("6401aabb");
    QTest::newRow("aggregate beyond the end") << hex("6001ffff26");
    QTest::newRow("aggregate of nothing") << hex("60010000");
    QTest::newRow("aggregate of a header") << hex("600100022601");
    QTest::newRow("fragment without body") << hex("620193");
    QTest::newRow("fragment without start") << hex("620113bb");
}

void TestH265Depacketiser::malformed_isDamaged()
{
    QFETCH(QByteArray, payload);
    push(hex("260180aa"));
    push(payload, true);
    QCOMPARE(m_recorder.units.size(), 1U);
    QVERIFY(m_recorder.units[0].damaged);
}

void TestH265Depacketiser::noise_neverCrashes()
{
    QRandomGenerator random(12);
    const QList<QByteArray> seeds{hex("260180aa"), hex("6001000340010c0003420101"), hex("62019380aa"), hex("620153cc"), {}};
    for (int i = 0; i < 20000; ++i) {
        QByteArray payload = seeds[random.bounded(seeds.size())];
        if (!payload.isEmpty() && random.bounded(2))
            payload[random.bounded(payload.size())] = char(random.bounded(256));
        m_builder.sequence = quint16(m_builder.sequence + random.bounded(2));
        push(payload, random.bounded(4) == 0);
    }
    QVERIFY(!m_recorder.units.empty());
}

QTEST_APPLESS_MAIN(TestH265Depacketiser)
#include "tst_h265depacketiser.moc"
