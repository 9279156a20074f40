// SPDX-License-Identifier: GPL-3.0-or-later
#include "camera/framegrid.h"
#include "demoserverprocess.h"
#include "rtspprobe.h"
#include "stripdecoder.h"

#include <QDateTime>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
namespace framegrid = orrin::demo::framegrid;
using namespace Qt::StringLiterals;

class TestRtspServer : public QObject
{
    Q_OBJECT

private:
    static QUrl stream(const DemoServerProcess &server, const QString &path, int recorder = 1,
                       const QString &scheme = u"rtsps"_s)
    {
        return QUrl(u"%1://127.0.0.1:%2%3"_s.arg(scheme, QString::number(server.rtspPort(recorder)), path));
    }

private Q_SLOTS:
    void play_givesExactTimes_fromTheFirstFrame_data()
    {
        QTest::addColumn<int>("recorder");
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("number");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("codec");
        QTest::newRow("H.264 sub") << 1 << u"/camera/1/sub"_s << 101 << QSize(640, 360)
                                   << int(AV_CODEC_ID_H264);
        QTest::newRow("H.264 main, odd size")
            << 1 << u"/camera/5/main"_s << 105 << QSize(1366, 768) << int(AV_CODEC_ID_H264);
        QTest::newRow("H.265 main") << 1 << u"/camera/6/main"_s << 106 << QSize(1280, 720)
                                    << int(AV_CODEC_ID_HEVC);
        QTest::newRow("South") << 2 << u"/camera/2/sub"_s << 202 << QSize(640, 360) << int(AV_CODEC_ID_H264);
    }

    void play_givesExactTimes_fromTheFirstFrame()
    {
        QFETCH(int, recorder);
        QFETCH(QString, path);
        QFETCH(int, number);
        QFETCH(QSize, size);
        QFETCH(int, codec);
        DemoServerProcess server;
        QVERIFY2(server.start(), qPrintable(server.errorText()));
        RtspProbe probe(stream(server, path, recorder), u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.play(), 200);
        StripDecoder decoder(static_cast<AVCodecID>(codec));
        qint64 last = 0;
        for (int i = 0; i < 40; ++i) {
            const auto unit = probe.next();
            QVERIFY2(unit, qPrintable(probe.error() + QString::number(i)));
            const auto fields = decoder.decode(unit->data);
            QVERIFY2(fields, qPrintable(QString::number(i)));
            QCOMPARE(int(fields->camera), number);
            QVERIFY2(qAbs(unit->timeMs - qint64(fields->timeMs)) <= 1,
                     qPrintable(u"%1: %2 %3"_s.arg(i).arg(unit->timeMs).arg(fields->timeMs)));
            QVERIFY(unit->timeMs > last);
            // On a busy machine a frame may be left out; those that come lie on the grid.
            QCOMPARE(framegrid::timeOf(framegrid::frameAt(unit->timeMs, 15), 15), unit->timeMs);
            if (i > 1)
                QVERIFY2(unit->timeMs - last <= 500,
                         qPrintable(u"frame %1 after %2 ms"_s.arg(i).arg(unit->timeMs - last)));
            last = unit->timeMs;
        }
        QCOMPARE(decoder.size(), size);
        QVERIFY(qAbs(QDateTime::currentMSecsSinceEpoch() - last) < 2000);
    }

    void describe_asksForALogin_andRefusesWrongOnes()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        const auto status = [&server](const QString &path, const QString &user, const QString &password,
                                      int recorder = 1) {
            RtspProbe probe(stream(server, path, recorder), user, password);
            return probe.connectToServer() ? probe.play() : -1;
        };
        QCOMPARE(status(u"/camera/1/sub"_s, {}, {}), 401);
        QCOMPARE(status(u"/camera/1/sub"_s, u"guest"_s, u"nonsense"_s), 401);
        QCOMPARE(status(u"/camera/1/sub"_s, u"nobody"_s, u"orrin-guest"_s), 401);
        QCOMPARE(status(u"/camera/1/sub"_s, u"guest"_s, u"orrin-guest"_s), 200);
        QCOMPARE(status(u"/camera/5/sub"_s, u"guest"_s, u"orrin-guest"_s, 2), 403);
        QCOMPARE(status(u"/camera/5/sub"_s, u"operator"_s, u"orrin-operator"_s, 2), 200);
        QCOMPARE(status(u"/camera/6/sub"_s, u"admin"_s, u"orrin-admin"_s, 2), 404);
        QCOMPARE(status(u"/camera/99/sub"_s, u"admin"_s, u"orrin-admin"_s), 404);
        QCOMPARE(server.command(u"camera enable South 6"_s), u"ok"_s);
        QCOMPARE(status(u"/camera/6/sub"_s, u"admin"_s, u"orrin-admin"_s, 2), 200);
        QCOMPARE(server.command(u"user lock guest 60"_s), u"ok"_s);
        QCOMPARE(status(u"/camera/1/sub"_s, u"guest"_s, u"orrin-guest"_s), 403);
        QCOMPARE(server.command(u"refuse outside-hours North"_s), u"ok"_s);
        QCOMPARE(status(u"/camera/1/sub"_s, u"admin"_s, u"orrin-admin"_s), 403);
    }

    void play_givesJpeg_fromTheMjpegCamera()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        RtspProbe probe(stream(server, u"/camera/4/sub"_s, 2), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.play(), 200);
        QCOMPARE(probe.codec(), "JPEG");
        qint64 last = 0;
        for (int i = 0; i < 20; ++i) {
            const auto unit = probe.next();
            QVERIFY(unit);
            QVERIFY(unit->timeMs > last);
            last = unit->timeMs;
            // RFC 2435: type 1 (4:2:0), 640 x 360 in blocks of 8.
            QCOMPARE(int(quint8(unit->data.at(4))), 1);
            QCOMPARE(int(quint8(unit->data.at(6))) * 8, 640);
            QCOMPARE(int(quint8(unit->data.at(7))) * 8, 360);
        }
    }

    void play_worksWithoutTls_whenToldSo()
    {
        DemoServerProcess server;
        QVERIFY(server.start({u"--plain-rtsp"_s}));
        RtspProbe probe(stream(server, u"/camera/2/sub"_s, 1, u"rtsp"_s), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.play(), 200);
        QVERIFY(probe.next());
    }

    void play_carriesTheDevicesTime_whenItsClockIsOff()
    {
        DemoServerProcess server;
        QVERIFY(server.start({u"--clock-offset"_s, u"-86400"_s}));
        RtspProbe probe(stream(server, u"/camera/1/sub"_s), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.play(), 200);
        StripDecoder decoder(AV_CODEC_ID_H264);
        for (int i = 0; i < 10; ++i) {
            const auto unit = probe.next();
            QVERIFY(unit);
            const auto fields = decoder.decode(unit->data);
            QVERIFY(fields);
            QVERIFY(qAbs(unit->timeMs - qint64(fields->timeMs)) <= 1);
            QVERIFY(qAbs(QDateTime::currentMSecsSinceEpoch() - 86400000 - unit->timeMs) < 3000);
        }
    }

    void clients_shareOneMedia_andStartWithAKeyFrame()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        const QUrl url = stream(server, u"/camera/3/sub"_s);
        RtspProbe first(url, u"guest"_s, u"orrin-guest"_s);
        QVERIFY(first.connectToServer());
        QCOMPARE(first.play(), 200);
        for (int i = 0; i < 8; ++i)
            QVERIFY(first.next());
        RtspProbe second(url, u"admin"_s, u"orrin-admin"_s);
        QVERIFY(second.connectToServer());
        QCOMPARE(second.play(), 200);
        // Whatever was under way when it came: within a few frames there is one to start from.
        StripDecoder decoder(AV_CODEC_ID_H264);
        int undecodable = 0;
        QHash<quint32, qint64> times;
        for (int i = 0; i < 12; ++i) {
            const auto unit = second.next();
            QVERIFY(unit);
            times.insert(unit->rtpTime, unit->timeMs);
            undecodable += !decoder.decode(unit->data);
        }
        QVERIFY2(undecodable <= 3, qPrintable(QString::number(undecodable)));
        int common = 0;
        for (int i = 0; i < 40; ++i) {
            const auto unit = first.next(500);
            if (unit && times.value(unit->rtpTime) == unit->timeMs)
                ++common;
        }
        QVERIFY(common >= 8);
    }
};

QTEST_GUILESS_MAIN(TestRtspServer)
#include "tst_rtspserver.moc"
