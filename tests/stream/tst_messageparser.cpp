// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/messageparser.h"

#include <QRandomGenerator>
#include <QTest>

using namespace orrin::rtsp;
using Event = MessageParser::Event;

static const QByteArray Response = "RTSP/1.0 200 OK\r\nCSeq: 2\r\nContent-Length: 4\r\nX-Long: a\r\n b\r\n\r\nbody";
static const QByteArray Packet = QByteArray("$\0\0\x0c", 4) + QByteArray::fromHex("80e0000100000002000000030405");

class TestMessageParser : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void response_isRead_withBodyAndFoldedHeader();
    void request_isRead();
    void bareLineFeeds_areTaken();
    void interleaved_isReadInPlace();
    void mixture_isReadInOrder_whateverTheCuts_data();
    void mixture_isReadInOrder_whateverTheCuts();
    void garbage_isSkipped_upToTheNextMessage();
    void garbage_isSkipped_upToTheNextPacket();
    void foreignChannel_isGarbage();
    void error_staysUntilReset_data();
    void error_staysUntilReset();
    void manyPackets_doNotGrowTheBuffer();
    void noise_neverCrashes();
};

void TestMessageParser::response_isRead_withBodyAndFoldedHeader()
{
    MessageParser parser;
    parser.feed("\r\n" + Response);
    QCOMPARE(parser.next(), Event::Message);
    QVERIFY(!parser.message().isRequest());
    QCOMPARE(parser.message().status, 200);
    QCOMPARE(parser.message().cseq(), 2);
    QCOMPARE(parser.message().header("x-long"), QByteArray("a b"));
    QCOMPARE(parser.message().body, QByteArray("body"));
    QCOMPARE(parser.next(), Event::NeedsMore);
}

void TestMessageParser::request_isRead()
{
    MessageParser parser;
    parser.feed("GET_PARAMETER rtsp://host/x RTSP/1.0\r\nCSeq: 9\r\nA: 1\r\na: 2\r\n\r\n");
    QCOMPARE(parser.next(), Event::Message);
    QVERIFY(parser.message().isRequest());
    QCOMPARE(parser.message().method, QByteArray("GET_PARAMETER"));
    QCOMPARE(parser.message().uri, QByteArray("rtsp://host/x"));
    QCOMPARE(parser.message().headersNamed("a"), (QList<QByteArray>{"1", "2"}));
    QCOMPARE(parser.message().header("none"), QByteArray());
}

void TestMessageParser::bareLineFeeds_areTaken()
{
    MessageParser parser;
    parser.feed("RTSP/1.0 404 Not Found\nCSeq: 3\n\n");
    QCOMPARE(parser.next(), Event::Message);
    QCOMPARE(parser.message().status, 404);
    QCOMPARE(parser.message().cseq(), 3);
}

void TestMessageParser::interleaved_isReadInPlace()
{
    MessageParser parser;
    parser.feed(QByteArray("$\x03\x00\x02", 4) + "ab");
    QCOMPARE(parser.next(), Event::Interleaved);
    QCOMPARE(parser.channel(), 3);
    QCOMPARE(parser.payload().size(), 2U);
    QCOMPARE(parser.payload()[1], 'b');
    QCOMPARE(parser.next(), Event::NeedsMore);
}

void TestMessageParser::mixture_isReadInOrder_whateverTheCuts_data()
{
    QTest::addColumn<int>("cut");
    for (const int cut : {1, 2, 3, 5, 7, 11, 50, 1000})
        QTest::addRow("%d", cut) << cut;
}

void TestMessageParser::mixture_isReadInOrder_whateverTheCuts()
{
    QFETCH(int, cut);
    const QByteArray packet = QByteArray("$\x01\x00\x05", 4) + "$RTSP";
    const QByteArray bytes = Response + packet + packet + "OPTIONS * RTSP/1.0\r\nCSeq: 1\r\n\r\n" + packet + Response;
    MessageParser parser;
    QList<Event> events;
    for (qsizetype at = 0; at < bytes.size(); at += cut) {
        parser.feed(bytes.mid(at, cut));
        for (Event event = parser.next(); event != Event::NeedsMore; event = parser.next()) {
            QVERIFY(event != Event::Error);
            events.append(event);
            if (event == Event::Interleaved)
                QCOMPARE(QByteArray(reinterpret_cast<const char *>(parser.payload().data()), 5), QByteArray("$RTSP"));
        }
    }
    QCOMPARE(events, (QList<Event>{Event::Message, Event::Interleaved, Event::Interleaved, Event::Message, Event::Interleaved,
                                   Event::Message}));
    QCOMPARE(parser.garbageBytes(), 0U);
}

void TestMessageParser::garbage_isSkipped_upToTheNextMessage()
{
    MessageParser parser;
    parser.feed("\x01\x02 lower CASE nonsense\x7f" + Response);
    QCOMPARE(parser.next(), Event::Message);
    QCOMPARE(parser.message().status, 200);
    QVERIFY(parser.garbageBytes() > 10);
}

void TestMessageParser::garbage_isSkipped_upToTheNextPacket()
{
    MessageParser parser;
    const QByteArray packet = QByteArray("$\x00\x00\x0c", 4) + QByteArray::fromHex("80e000010000000200000003");
    // The first mark stands in garbage: what follows it is no RTP.
    parser.feed(QByteArray("\x05\x06$\x00\x00\x09zzzzzzzzz", 15) + packet);
    QCOMPARE(parser.next(), Event::Interleaved);
    QCOMPARE(parser.payload().size(), 12U);
    QCOMPARE(parser.payload()[0], 0x80);
}

void TestMessageParser::foreignChannel_isGarbage()
{
    MessageParser parser;
    parser.setChannelCount(2);
    parser.feed(QByteArray("$\x02\x00\x01x", 5) + Response);
    QCOMPARE(parser.next(), Event::Message);
    QCOMPARE(parser.garbageBytes(), 5U);
}

void TestMessageParser::error_staysUntilReset_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray start = "RTSP/1.0 200 OK\r\nCSeq: 1\r\n";
    QByteArray many = start;
    for (int i = 0; i < 200; ++i)
        many += "A: b\r\n";
    QTest::newRow("endless header") << start + "X: " + QByteArray(20'000, 'x');
    QTest::newRow("oversized header") << start + "X: " + QByteArray(20'000, 'x') + "\r\n\r\n";
    QTest::newRow("too many headers") << many + "\r\n";
    QTest::newRow("oversized body") << start + "Content-Length: 1048577\r\n\r\n";
    QTest::newRow("huge body") << start + "Content-Length: 99999999999999999999\r\n\r\n";
    QTest::newRow("negative body") << start + "Content-Length: -1\r\n\r\n";
    QTest::newRow("no number") << start + "Content-Length: four\r\n\r\n";
    QTest::newRow("bad status") << QByteArray("RTSP/1.0 abc\r\n\r\n");
    QTest::newRow("much garbage") << QByteArray(70'000, '\x01');
    QTest::newRow("garbage in capitals") << QByteArray(70'000, 'A');
}

void TestMessageParser::error_staysUntilReset()
{
    QFETCH(QByteArray, bytes);
    MessageParser parser;
    parser.feed(bytes);
    QCOMPARE(parser.next(), Event::Error);
    parser.feed(Response);
    QCOMPARE(parser.next(), Event::Error);
    parser.reset();
    parser.feed(Response);
    QCOMPARE(parser.next(), Event::Message);
}

void TestMessageParser::manyPackets_doNotGrowTheBuffer()
{
    MessageParser parser;
    const QByteArray packet = QByteArray("$\x00\x04\x00", 4) + QByteArray(1024, 'x');
    const char *memory = nullptr;
    for (int i = 0; i < 5000; ++i) {
        const auto place = parser.prepare(std::size_t(packet.size()));
        if (i == 10)
            memory = place.data();
        if (i > 10)
            QVERIFY(qAbs(place.data() - memory) < 64 * 1024);
        std::copy(packet.begin(), packet.end(), place.begin());
        parser.commit(place.size());
        QCOMPARE(parser.next(), Event::Interleaved);
        QCOMPARE(parser.next(), Event::NeedsMore);
    }
}

void TestMessageParser::noise_neverCrashes()
{
    QRandomGenerator random(42);
    for (int round = 0; round < 300; ++round) {
        MessageParser parser;
        for (int piece = 0; piece < 20; ++piece) {
            QByteArray bytes = random.bounded(3) == 0 ? Response : Packet;
            for (int i = 0; i < 3; ++i)
                bytes[random.bounded(bytes.size())] = char(random.bounded(256));
            parser.feed(bytes.left(random.bounded(bytes.size() + 1)));
            for (int i = 0; i < 100 && parser.next() != Event::NeedsMore; ++i) {
            }
        }
    }
}

QTEST_APPLESS_MAIN(TestMessageParser)
#include "tst_messageparser.moc"
