// SPDX-License-Identifier: GPL-3.0-or-later
#include "rtpbuilder.h"

#include "core/stream/rtp/aacdepacketiser.h"
#include "core/stream/rtp/audiosetup.h"
#include "core/stream/rtp/g711depacketiser.h"

#include <QTest>

using namespace orrin;
using namespace orrin::rtp;

namespace {

/*! The section of headers for frames of these sizes: 13 bits of size, 3 of index. */
QByteArray headers(const QList<int> &sizes, int delta = 0)
{
    QByteArray bytes;
    RtpBuilder::append(bytes, quint16(sizes.size() * 16));
    for (qsizetype i = 0; i < sizes.size(); ++i)
        RtpBuilder::append(bytes, quint16(sizes.at(i) << 3 | (i > 0 ? delta : 0)));
    return bytes;
}

rtsp::MediaDescription medium(const char *encoding, int rate, const QByteArray &fmtp = {}, int payloadType = 96)
{
    rtsp::MediaDescription result;
    result.kind = rtsp::MediaDescription::Kind::Audio;
    result.encoding = encoding;
    result.clockRate = rate;
    result.fmtp = fmtp;
    result.payloadType = payloadType;
    return result;
}

const QByteArray AacParameters =
    "streamtype=5;profile-level-id=2;mode=AAC-hbr;config=1408;sizelength=13;indexlength=3;indexdeltalength=3";

} // namespace

class TestAudioDepacketisers : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void g711_makesAUnitOfEachPacket()
    {
        UnitRecorder sink;
        G711Depacketiser depacketiser(sink, 96);
        RtpBuilder builder;
        for (int i = 0; i < 3; ++i) {
            depacketiser.packet(asBytes(builder.packet(QByteArray(160, char('a' + i)), i == 0)));
            builder.timestamp += 160;
        }
        QCOMPARE(sink.units.size(), 3U);
        QCOMPARE(sink.data(1), QByteArray(160, 'b'));
        QCOMPARE(sink.units[2].rtpTime, 1320U);
        QVERIFY(!sink.units[2].lost);
    }

    void sequence_isWatched()
    {
        UnitRecorder sink;
        G711Depacketiser depacketiser(sink, 96);
        RtpBuilder builder;
        const auto push = [&](quint16 sequence) {
            builder.sequence = sequence;
            depacketiser.packet(asBytes(builder.packet("x")));
        };
        push(10);
        push(11);
        QVERIFY(!sink.units.back().lost);
        push(13);
        QVERIFY(sink.units.back().lost);
        push(12);
        push(13);
        QCOMPARE(sink.units.size(), 3U);
        push(14);
        QVERIFY(!sink.units.back().lost);
        builder.ssrc = 8;
        push(3);
        QVERIFY(sink.units.back().lost);
        builder.payloadType = 97;
        push(4);
        QCOMPARE(sink.units.size(), 5U);
        builder.payloadType = 96;
        depacketiser.reset();
        push(900);
        QVERIFY(!sink.units.back().lost);
        // One that has begun anew far behind is believed in the end.
        for (int i = 0; i < AudioDepacketiser::MaxStale; ++i)
            push(quint16(100 + i));
        QVERIFY(sink.units.back().lost);
        QCOMPARE(sink.units.size(), 7U);
    }

    void times_comeFromTheExtension()
    {
        UnitRecorder sink;
        AacDepacketiser depacketiser(sink, 96, {});
        RtpBuilder builder;
        builder.extension = hex("ABAC0003") + hex("EDF20C8080000000") + hex("A0050000");
        depacketiser.packet(asBytes(builder.packet(headers({3, 2}) + "abcde")));
        QCOMPARE(sink.units.size(), 2U);
        QVERIFY(sink.units[0].time);
        QCOMPARE(*sink.units[0].time, fromNtp(0xEDF20C8080000000U));
        QVERIFY(sink.units[0].discontinuity);
        QVERIFY(!sink.units[1].time);
        QVERIFY(!sink.units[1].discontinuity);
        QCOMPARE(*sink.units[1].cseq, 5);
    }

    void aac_splitsPackets_withSeveralFrames()
    {
        UnitRecorder sink;
        AacDepacketiser depacketiser(sink, 96, {});
        RtpBuilder builder;
        depacketiser.packet(asBytes(builder.packet(headers({3, 1, 2}) + "abcdef", true)));
        QCOMPARE(sink.units.size(), 3U);
        QCOMPARE(sink.data(0), QByteArray("abc"));
        QCOMPARE(sink.data(1), QByteArray("d"));
        QCOMPARE(sink.data(2), QByteArray("ef"));
        QCOMPARE(sink.units[2].rtpTime, 1000U + 2048U);
        builder.timestamp = 9000;
        depacketiser.packet(asBytes(builder.packet(headers({1, 1}, 1) + "xy", true)));
        QCOMPARE(sink.units[4].rtpTime, 9000U + 2048U);
    }

    void aac_joinsFragments()
    {
        UnitRecorder sink;
        AacDepacketiser depacketiser(sink, 96, {});
        RtpBuilder builder;
        depacketiser.packet(asBytes(builder.packet(headers({8}) + "abc")));
        depacketiser.packet(asBytes(builder.packet(headers({8}) + "de")));
        depacketiser.packet(asBytes(builder.packet(headers({8}) + "fgh", true)));
        QCOMPARE(sink.units.size(), 1U);
        QCOMPARE(sink.data(0), QByteArray("abcdefgh"));
        // One whose middle is lost is no frame, and does no harm to the next.
        builder.timestamp += 1024;
        depacketiser.packet(asBytes(builder.packet(headers({8}) + "abc")));
        ++builder.sequence;
        depacketiser.packet(asBytes(builder.packet(headers({8}) + "fgh", true)));
        QCOMPARE(sink.units.size(), 1U);
        builder.timestamp += 1024;
        depacketiser.packet(asBytes(builder.packet(headers({2}) + "ok", true)));
        QCOMPARE(sink.units.size(), 2U);
        QCOMPARE(sink.data(1), QByteArray("ok"));
        QVERIFY(sink.units[1].lost);
    }

    void aac_dropsWhatIsMalformed()
    {
        UnitRecorder sink;
        AacDepacketiser depacketiser(sink, 96, {});
        RtpBuilder builder;
        const QList<QByteArray> payloads{"", "x", hex("0010"), hex("FFFF00"), headers({}) + "abc", headers({0}) + "abc",
                                         headers({2, 9}) + "abc", headers({1}) + ""};
        for (const QByteArray &payload : payloads)
            depacketiser.packet(asBytes(builder.packet(payload, true)));
        depacketiser.packet(asBytes(QByteArray("no packet")));
        const std::size_t before = sink.units.size();
        QVERIFY(before <= 1); // the frame before the one that does not fit
        builder.timestamp += 1024;
        depacketiser.packet(asBytes(builder.packet(headers({2}) + "ok", true)));
        QCOMPARE(sink.units.size(), before + 1);
        QVERIFY(sink.units.back().lost);
    }

    void setup_knowsWhatIsPlayed()
    {
        QCOMPARE(audioFormatOf(medium("PCMU", 8000, {}, 0)).codec, AudioCodec::MuLaw);
        QCOMPARE(audioFormatOf(medium("PCMA", 8000, {}, 8)).codec, AudioCodec::ALaw);
        const AudioFormat aac = audioFormatOf(medium("MPEG4-GENERIC", 16000, AacParameters));
        QCOMPARE(aac.codec, AudioCodec::Aac);
        QCOMPARE(aac.config, hex("1408"));
        QCOMPARE(aac.sampleRate, 16000);
        for (const QByteArray &fmtp :
             {QByteArray(), QByteArray("config=1408"), QByteArray("sizelength=13"), AacParameters + ";ctsdeltalength=4",
              QByteArray("config=1408;sizelength=40"), QByteArray("config=1408;sizelength=13;indexlength=-1")})
            QVERIFY2(audioFormatOf(medium("MPEG4-GENERIC", 16000, fmtp)).codec == AudioCodec::Unknown, fmtp.constData());
        QCOMPARE(audioFormatOf(medium("OPUS", 48000)).codec, AudioCodec::Unknown);
        QCOMPARE(audioFormatOf(medium("PCMU", 0)).codec, AudioCodec::Unknown);
        UnitRecorder sink;
        QVERIFY(createAudioDepacketiser(medium("PCMU", 8000), sink));
        QVERIFY(createAudioDepacketiser(medium("MPEG4-GENERIC", 16000, AacParameters), sink));
        QVERIFY(!createAudioDepacketiser(medium("OPUS", 48000), sink));
    }
};

QTEST_GUILESS_MAIN(TestAudioDepacketisers)
#include "tst_audiodepacketisers.moc"
