// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtp/captureclock.h"
#include "core/stream/rtp/rtppacket.h"
#include "rtpbuilder.h"

#include <QRandomGenerator>
#include <QTest>

using namespace orrin;
using namespace orrin::rtp;
using namespace std::chrono_literals;

class TestRtpPacket : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void parse_readsTheHeader();
    void parse_readsTheReplayExtension();
    void parse_ignoresOtherExtensions();
    void parse_skipsContributorsAndPadding();
    void parse_isNothing_whenMalformed_data();
    void parse_isNothing_whenMalformed();
    void rtcp_readsSenderReportAndBye();
    void rtcp_stopsAtMalformedParts();
    void ntp_isExactToTheNanosecond_andCrossesTheEra();
    void clock_prefersExtension_thenReport_thenArrival();
    void clock_followsTheReport_acrossTheWrap();
    void noise_neverCrashes();
};

void TestRtpPacket::parse_readsTheHeader()
{
    RtpBuilder builder;
    builder.sequence = 0xABCD;
    builder.timestamp = 0x12345678;
    const QByteArray bytes = builder.packet("xyz", true);
    const auto packet = RtpPacket::parse(asBytes(bytes));
    QVERIFY(packet);
    QCOMPARE(packet->sequence, 0xABCD);
    QCOMPARE(packet->timestamp, 0x12345678U);
    QCOMPARE(packet->ssrc, 7U);
    QCOMPARE(packet->payloadType, 96);
    QVERIFY(packet->marker);
    QCOMPARE(packet->payload.size(), 3U);
    QCOMPARE(packet->payload[2], 'z');
    QVERIFY(!packet->replay);
}

void TestRtpPacket::parse_readsTheReplayExtension()
{
    RtpBuilder builder;
    builder.extension = hex("abac0003" "e000000080000000" "d0070000");
    const QByteArray bytes = builder.packet("x");
    const auto packet = RtpPacket::parse(asBytes(bytes));
    QVERIFY(packet && packet->replay);
    QCOMPARE(packet->replay->ntp, 0xE000000080000000U);
    QVERIFY(packet->replay->cleanPoint);
    QVERIFY(packet->replay->end);
    QVERIFY(!packet->replay->discontinuity);
    QVERIFY(packet->replay->terminal);
    QCOMPARE(packet->replay->cseq, 7);
    QCOMPARE(packet->payload.size(), 1U);
}

void TestRtpPacket::parse_ignoresOtherExtensions()
{
    RtpBuilder builder;
    builder.extension = hex("bede0001" "10ff0000");
    const QByteArray bytes = builder.packet("x");
    const auto packet = RtpPacket::parse(asBytes(bytes));
    QVERIFY(packet && !packet->replay);
    builder.extension = hex("abac0001" "10ff0000");
    const QByteArray brief = builder.packet("x");
    const auto tooShort = RtpPacket::parse(asBytes(brief));
    QVERIFY(tooShort && !tooShort->replay);
    QCOMPARE(tooShort->payload.size(), 1U);
}

void TestRtpPacket::parse_skipsContributorsAndPadding()
{
    const QByteArray bytes = hex("a2e00001" "00000002" "00000003" "11111111" "22222222" "4142" "000003");
    const auto packet = RtpPacket::parse(asBytes(bytes));
    QVERIFY(packet);
    QCOMPARE(packet->payload.size(), 2U);
    QCOMPARE(packet->payload[0], 'A');
}

void TestRtpPacket::parse_isNothing_whenMalformed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("short") << hex("80e00001000000020000");
    QTest::newRow("version 1") << hex("40e000010000000200000003");
    QTest::newRow("contributors beyond the end") << hex("8fe00001000000020000000311111111");
    QTest::newRow("extension without header") << hex("90e000010000000200000003abac");
    QTest::newRow("extension beyond the end") << hex("90e000010000000200000003abac000411111111");
    QTest::newRow("padding beyond the end") << hex("a0e000010000000200000003414205");
    QTest::newRow("padding of zero") << hex("a0e000010000000200000003414200");
    QTest::newRow("padding of nothing") << hex("a0e000010000000200000003");
}

void TestRtpPacket::parse_isNothing_whenMalformed()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!RtpPacket::parse(asBytes(bytes)));
}

void TestRtpPacket::rtcp_readsSenderReportAndBye()
{
    const QByteArray bytes = hex("80c80006" "00000009" "e000000040000000" "00000064" "00000001" "00000002"
                                 "81ca0001" "00000009" "81cb0001" "00000009");
    const RtcpPacket packet = RtcpPacket::parse(asBytes(bytes));
    QVERIFY(packet.senderReport);
    QCOMPARE(packet.senderReport->ssrc, 9U);
    QCOMPARE(packet.senderReport->ntp, 0xE000000040000000U);
    QCOMPARE(packet.senderReport->rtpTime, 100U);
    QVERIFY(packet.bye);
}

void TestRtpPacket::rtcp_stopsAtMalformedParts()
{
    QVERIFY(!RtcpPacket::parse({}).bye);
    QVERIFY(!RtcpPacket::parse(asBytes(hex("81cb00ff00000009"))).bye);
    QVERIFY(!RtcpPacket::parse(asBytes(hex("41cb000100000009"))).bye);
    QVERIFY(!RtcpPacket::parse(asBytes(hex("80c8000100000009"))).senderReport);
}

void TestRtpPacket::ntp_isExactToTheNanosecond_andCrossesTheEra()
{
    QCOMPARE(fromNtp(quint64(2208988800) << 32).count(), 0);
    QCOMPARE(fromNtp(quint64(2208988801) << 32 | 0x80000000U).count(), 1'500'000'000);
    for (int ms = 0; ms < 1000; ++ms) {
        const quint64 fraction = quint64(ms) * (quint64(1) << 32) / 1000;
        const auto time = fromNtp(quint64(2208988800 + 5) << 32 | fraction);
        QCOMPARE(toTime300(time), 1500 + (ms * 3 + 5) / 10);
    }
    // 2036-02-07 06:28:16 UTC
    QCOMPARE(fromNtp(0), CaptureTime(std::chrono::seconds(2085978496)));
    QCOMPARE(toTime300(CaptureTime(-1s)), -300);
}

void TestRtpPacket::clock_prefersExtension_thenReport_thenArrival()
{
    CaptureClock clock(90000);
    AccessUnit unit;
    unit.rtpTime = 190000;
    QCOMPARE(clock.timeOf(unit, 5s), CaptureTime(5s));
    clock.senderReport({1, 0, 100000});
    QCOMPARE(clock.timeOf(unit, 5s), CaptureTime(5s));
    clock.senderReport({1, quint64(2208988800 + 1000) << 32, 100000});
    QCOMPARE(clock.timeOf(unit, 5s), CaptureTime(1001s));
    unit.time = 7s;
    QCOMPARE(clock.timeOf(unit, 5s), CaptureTime(7s));
}

void TestRtpPacket::clock_followsTheReport_acrossTheWrap()
{
    CaptureClock clock(90000);
    clock.senderReport({1, quint64(2208988800 + 1000) << 32, 0xFFFFFFFF - 44999});
    AccessUnit unit;
    unit.rtpTime = 45000;
    QCOMPARE(clock.timeOf(unit, 0s), CaptureTime(1001s));
    unit.rtpTime = 0xFFFFFFFF - 134999;
    QCOMPARE(clock.timeOf(unit, 0s), CaptureTime(999s));
}

void TestRtpPacket::noise_neverCrashes()
{
    QRandomGenerator random(3);
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes(random.bounded(64), 0);
        for (char &byte : bytes)
            byte = char(random.bounded(256));
        if (!bytes.isEmpty())
            bytes[0] = char(0x80 | (bytes[0] & 0x3F));
        if (const auto packet = RtpPacket::parse(asBytes(bytes)))
            QVERIFY(packet->payload.size() + 12 <= std::size_t(bytes.size()));
        RtcpPacket::parse(asBytes(bytes));
    }
}

QTEST_APPLESS_MAIN(TestRtpPacket)
#include "tst_rtppacket.moc"
