// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/audioencoder.h"
#include "demoserverprocess.h"
#include "rtspprobe.h"

#include <QDateTime>
#include <QTest>

using namespace orrin::test;
using namespace orrin::demo;
using namespace Qt::StringLiterals;

class TestLiveAudio : public QObject
{
    Q_OBJECT

private:
    DemoServerProcess m_server;

    QUrl stream(int camera) const
    {
        return QUrl(u"rtsps://127.0.0.1:%1/camera/%2/sub"_s.arg(QString::number(m_server.rtspPort()),
                                                               QString::number(camera)));
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void sound_carriesExactTimes_data()
    {
        QTest::addColumn<int>("camera");
        QTest::addColumn<AudioCodec>("codec");
        QTest::newRow("mu-law") << 1 << AudioCodec::Mulaw;
        QTest::newRow("A-law") << 4 << AudioCodec::Alaw;
        QTest::newRow("AAC") << 2 << AudioCodec::Aac;
    }

    void sound_carriesExactTimes()
    {
        QFETCH(int, camera);
        QFETCH(AudioCodec, codec);
        RtspProbe probe(stream(camera), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.play(true), 200);
        // G.711 of a moment is always the same, so the packet must be the one that its time says.
        AudioEncoder encoder(codec, 100 + camera);
        for (int i = 0; i < 40; ++i) {
            const auto packet = probe.nextAudio();
            QVERIFY2(packet, qPrintable(QString::number(i)));
            const qint64 number = AudioEncoder::packetAt(codec, packet->timeMs + 1);
            QVERIFY(qAbs(AudioEncoder::timeNsOf(codec, number) / 1'000'000 - packet->timeMs) <= 1);
            if (codec != AudioCodec::Aac)
                QCOMPARE(packet->data, encoder.packet(number));
            if (i > 5)
                QVERIFY(qAbs(QDateTime::currentMSecsSinceEpoch() - packet->timeMs) < 2000);
        }
        QVERIFY(probe.next());
    }

    void picture_comesAlone_whenNobodyWantsTheSound()
    {
        RtspProbe first(stream(1), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(first.connectToServer());
        QCOMPARE(first.play(), 200);
        for (int i = 0; i < 30; ++i)
            QVERIFY(first.next());
        QVERIFY(!first.nextAudio(100));
        // One that comes later may have it all the same.
        RtspProbe second(stream(1), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(second.connectToServer());
        QCOMPARE(second.play(true), 200);
        qint64 timeMs = 0;
        for (int i = 0; i < 200 && qAbs(QDateTime::currentMSecsSinceEpoch() - timeMs) > 1000; ++i) {
            const auto packet = second.nextAudio();
            QVERIFY(packet);
            timeMs = packet->timeMs;
        }
        QVERIFY(qAbs(QDateTime::currentMSecsSinceEpoch() - timeMs) < 1000);
        QVERIFY(second.next());
        QVERIFY(first.next());
    }

    void camera_withoutSound_hasNoStreamForIt()
    {
        RtspProbe probe(stream(3), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUp(), 200);
        QVERIFY(!probe.description().contains("m=audio"_L1));
    }
};

QTEST_GUILESS_MAIN(TestLiveAudio)
#include "tst_liveaudio.moc"
