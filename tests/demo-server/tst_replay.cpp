// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"
#include "rtspprobe.h"
#include "stripdecoder.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Minute = 60'000;
constexpr qint64 Hour = 60 * Minute;

qint64 now()
{
    return QDateTime::currentMSecsSinceEpoch();
}

/*! The begin of an hour that has passed, away from the long gap of the week. */
qint64 pastHour()
{
    qint64 hour = now() / Hour * Hour - 4 * Hour;
    while ((hour / (24 * Hour)) % 7 == 0)
        hour -= 12 * Hour;
    return hour;
}

/*! All units until none comes any more or the last one of the range has come. */
QList<AccessUnit> rest(RtspProbe &probe, qsizetype limit = 2000)
{
    QList<AccessUnit> units;
    while (units.size() < limit) {
        const auto unit = probe.next(3000);
        if (!unit)
            break;
        units.append(*unit);
        if (unit->flags & RtspProbe::Terminal)
            break;
    }
    return units;
}

} // namespace

class TestReplay : public QObject
{
    Q_OBJECT

private:
    DemoServerProcess m_server;
    const qint64 m_hour = pastHour();

    QUrl recording(int camera, const QString &rest = u"1/sub"_s, int recorder = 1) const
    {
        return QUrl(u"rtsps://127.0.0.1:%1/recording/%2/%3"_s.arg(
            QString::number(m_server.rtspPort(recorder)), QString::number(camera), rest));
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void play_givesTheFramesOfTheRange_data()
    {
        QTest::addColumn<int>("recorder");
        QTest::addColumn<int>("camera");
        QTest::addColumn<QString>("stream");
        QTest::addColumn<int>("codec");
        QTest::addColumn<QSize>("size");
        QTest::newRow("high") << 1 << 1 << u"1/main"_s << int(AV_CODEC_ID_H264) << QSize(1280, 720);
        QTest::newRow("low") << 1 << 1 << u"1/sub"_s << int(AV_CODEC_ID_H264) << QSize(640, 360);
        QTest::newRow("H.265") << 1 << 6 << u"1/sub"_s << int(AV_CODEC_ID_HEVC) << QSize(640, 360);
        QTest::newRow("other zone") << 2 << 1 << u"1/sub"_s << int(AV_CODEC_ID_H264) << QSize(640, 360);
    }

    void play_givesTheFramesOfTheRange()
    {
        QFETCH(int, recorder);
        QFETCH(int, camera);
        QFETCH(QString, stream);
        QFETCH(int, codec);
        QFETCH(QSize, size);
        RtspProbe probe(recording(camera, stream, recorder), u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUpReplay(), 200);
        const qint64 from = m_hour + 5 * Minute + 501;
        QCOMPARE(probe.replay(from, from + 4000).status, 200);
        const auto units = rest(probe);
        QCOMPARE(units.constFirst().timeMs, m_hour + 5 * Minute);
        QVERIFY(units.constLast().timeMs < from + 4000 && units.constLast().timeMs > from + 3900);
        QVERIFY(units.constLast().flags & RtspProbe::Terminal);
        QCOMPARE(units.size(), 68);
        StripDecoder decoder(static_cast<AVCodecID>(codec));
        for (const AccessUnit &unit : units) {
            const auto fields = decoder.decode(unit.data);
            QVERIFY(fields);
            QCOMPARE(int(fields->camera), recorder * 100 + camera);
            QVERIFY(qAbs(qint64(fields->timeMs) - unit.timeMs) <= 1);
        }
        QCOMPARE(decoder.size(), size);
    }

    void play_goesBackward_inGroups()
    {
        RtspProbe probe(recording(4), u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUpReplay(), 200);
        const qint64 end = m_hour + 5 * Minute + 3000;
        QCOMPARE(probe.replay(end, end - 6000, "-1.0").status, 200);
        const auto units = rest(probe);
        StripDecoder decoder(AV_CODEC_ID_H264);
        QHash<qint64, int> groups;
        QList<qint64> order;
        for (const AccessUnit &unit : units) {
            const auto fields = decoder.decode(unit.data);
            QVERIFY(fields);
            QVERIFY(qAbs(qint64(fields->timeMs) - unit.timeMs) <= 1);
            const qint64 group = qint64(fields->timeMs) / 2000;
            if (!order.isEmpty() && order.constLast() != group)
                QVERIFY(unit.flags & RtspProbe::Discontinuity);
            if (order.isEmpty() || order.constLast() != group)
                order.append(group);
            ++groups[group];
        }
        const qint64 last = end / 2000;
        QCOMPARE(order, (QList<qint64>{last, last - 1, last - 2, last - 3}));
        QCOMPARE(groups.value(last - 1), 30);
        QCOMPARE(groups.value(last), 16);
    }

    void play_givesKeyFramesOnly_whenAsked()
    {
        RtspProbe probe(recording(4), u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUpReplay(), 200);
        const qint64 from = m_hour + 5 * Minute;
        QCOMPARE(probe.replay(from, from + 20'000, "1.0", "intra/4000").status, 200);
        auto units = rest(probe);
        QCOMPARE(units.size(), 5);
        for (qsizetype i = 0; i < units.size(); ++i)
            QCOMPARE(units.at(i).timeMs, from + 4000 * i);
        QCOMPARE(probe.replay(from + 20'000, from, "-1.0", "intra").status, 200);
        units = rest(probe);
        QCOMPARE(units.size(), 11);
        StripDecoder decoder(AV_CODEC_ID_H264);
        for (qsizetype i = 0; i < units.size(); ++i) {
            QCOMPARE(units.at(i).timeMs, from + 20'000 - 2000 * i);
            QVERIFY(decoder.decode(units.at(i).data));
        }
    }

    void play_leapsOverGaps_andMarksThem()
    {
        RtspProbe probe(recording(2), u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUpReplay(), 200);
        const qint64 gap = m_hour + 20 * Minute;
        QCOMPARE(probe.replay(gap - 2000, gap + 3 * Minute + 2000).status, 200);
        const auto units = rest(probe);
        QCOMPARE(units.size(), 60);
        QVERIFY(units.at(29).timeMs < gap);
        QCOMPARE(units.at(30).timeMs, gap + 3 * Minute);
        QVERIFY(units.at(30).flags & RtspProbe::Discontinuity);
        QVERIFY(!(units.at(31).flags & RtspProbe::Discontinuity));
    }

    void play_isRefused_whereNothingWasRecorded_andTheSessionGoesOn()
    {
        RtspProbe probe(recording(2), u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUpReplay(), 200);
        QVERIFY(probe.replay(now() + Hour, now() + 2 * Hour).status >= 400);
        const qint64 from = m_hour + 5 * Minute;
        QCOMPARE(probe.replay(from, from + 2000).status, 200);
        QCOMPARE(rest(probe).size(), 30);
        RtspProbe empty(recording(5), u"operator"_s, u"orrin-operator"_s);
        QVERIFY(empty.connectToServer());
        QCOMPARE(empty.setUpReplay(), 200);
        QVERIFY(empty.replay(from, now()).status >= 400);
        QVERIFY(!empty.next(500));
    }

    void play_givesARecordingThatHasJustBegun_asItGrows()
    {
        RtspProbe probe(recording(3), u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUpReplay(), 200);
        QTRY_VERIFY_WITH_TIMEOUT(probe.replay(now() - Minute, now() + Minute).status == 200, 10'000);
        const auto first = rest(probe);
        QVERIFY(!first.isEmpty());
        QVERIFY(first.constFirst().timeMs <= now());
        const qint64 last = first.constLast().timeMs;
        QVERIFY(last <= now());
        QTRY_VERIFY_WITH_TIMEOUT(now() > last + 2000, 5000);
        QCOMPARE(probe.replay(now() - Minute, now() + Minute).status, 200);
        const auto second = rest(probe);
        QCOMPARE(second.constFirst().timeMs, first.constFirst().timeMs);
        QVERIFY(second.constLast().timeMs > last + 1500 && second.constLast().timeMs <= now());
    }

    void play_again_seeks()
    {
        RtspProbe probe(recording(1, u"1/main"_s), u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUpReplay(), 200);
        StripDecoder decoder(AV_CODEC_ID_H264);
        for (int i = 0; i < 6; ++i) {
            const qint64 from = m_hour + (30 - 5 * i) * Minute + 300;
            QCOMPARE(probe.replay(from, from + Hour).status, 200);
            // What was under way when the request came may still arrive.
            qint64 timeMs = 0;
            for (int j = 0; j < 200 && qAbs(timeMs - from) > 400; ++j) {
                const auto unit = probe.next();
                QVERIFY(unit);
                timeMs = unit->timeMs;
            }
            QVERIFY(qAbs(timeMs - from) <= 400);
            QCOMPARE(probe.request("PAUSE", recording(1, u"1/main"_s).toEncoded()).status, 200);
        }
    }

    void recordings_areForThoseWhoMayPlayBack()
    {
        const auto status = [this](const QUrl &url, const QString &user) {
            RtspProbe probe(url, user, u"orrin-"_s + user);
            return probe.connectToServer() ? probe.setUpReplay() : -1;
        };
        QCOMPARE(status(recording(1), u"guest"_s), 403);
        QCOMPARE(status(recording(1), u"operator"_s), 200);
        QCOMPARE(status(recording(1), u"admin"_s), 200);
        QCOMPARE(status(recording(1), u"nobody"_s), 401);
        QCOMPARE(status(recording(1, u"2/sub"_s), u"operator"_s), 200);
        QCOMPARE(status(recording(1, u"3/sub"_s), u"operator"_s), 404);
        QCOMPARE(status(recording(6, u"1/sub"_s, 2), u"operator"_s), 404);
    }

    void sound_comesBesideThePicture_forwardOnly_data()
    {
        QTest::addColumn<int>("camera");
        QTest::addColumn<QString>("codec");
        QTest::addColumn<int>("packetMs");
        QTest::newRow("mu-law") << 1 << u"PCMU/8000"_s << 20;
        QTest::newRow("A-law") << 4 << u"PCMA/8000"_s << 20;
        QTest::newRow("AAC") << 2 << u"MPEG4-GENERIC/16000"_s << 64;
    }

    void sound_comesBesideThePicture_forwardOnly()
    {
        QFETCH(int, camera);
        QFETCH(QString, codec);
        QFETCH(int, packetMs);
        RtspProbe probe(recording(camera), u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUpReplay(true), 200);
        QVERIFY(probe.description().contains(codec, Qt::CaseInsensitive));
        const qint64 from = m_hour + 5 * Minute;
        QCOMPARE(probe.replay(from, from + 4000).status, 200);
        QList<AccessUnit> packets;
        while (packets.isEmpty() || !(packets.constLast().flags & RtspProbe::Terminal)) {
            const auto packet = probe.nextAudio();
            QVERIFY2(packet, qPrintable(QString::number(packets.size())));
            packets.append(*packet);
        }
        QVERIFY(qAbs(packets.constFirst().timeMs - from) <= packetMs);
        QVERIFY(qAbs(packets.constLast().timeMs - (from + 4000)) <= packetMs);
        for (qsizetype i = 1; i < packets.size(); ++i)
            QVERIFY(qAbs(packets.at(i).timeMs - packets.at(i - 1).timeMs - packetMs) <= 1);
        QCOMPARE(probe.replay(from + 4000, from, "-1.0").status, 200);
        QVERIFY(rest(probe).size() > 50);
        int stray = 0;
        while (probe.nextAudio(500))
            ++stray;
        QVERIFY2(stray <= 1, qPrintable(QString::number(stray)));
    }

    void replay_misbehaves_whenToldSo()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        const QUrl url(u"rtsps://127.0.0.1:%1/recording/4/1/sub"_s.arg(server.rtspPort()));
        const qint64 from = m_hour + 5 * Minute;
        RtspProbe probe(url, u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUpReplay(), 200);

        QCOMPARE(server.command(u"replay late 1.5 North"_s), u"ok"_s);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(probe.replay(from, from + 2000).status, 200);
        QVERIFY(timer.elapsed() >= 1500);
        QCOMPARE(rest(probe).size(), 30);
        QCOMPARE(server.command(u"replay late 0"_s), u"ok"_s);

        QCOMPARE(server.command(u"replay wrong-range on"_s), u"ok"_s);
        QCOMPARE(probe.replay(from, from + 2000).status, 200);
        QCOMPARE(rest(probe).constFirst().timeMs, from - Hour);
        QCOMPARE(server.command(u"replay wrong-range off"_s), u"ok"_s);

        QCOMPARE(server.command(u"replay silent on"_s), u"ok"_s);
        QCOMPARE(probe.replay(from, from + 60'000).status, 200);
        int frames = 0;
        while (probe.next(700))
            ++frames;
        QVERIFY2(frames <= 4, qPrintable(QString::number(frames)));
        QVERIFY(probe.isConnected());
        QCOMPARE(server.command(u"replay silent off"_s), u"ok"_s);
        QVERIFY(probe.next());

        QCOMPARE(server.command(u"replay drop North"_s), u"ok"_s);
        while (probe.next(700)) {
        }
        QCOMPARE(probe.replay(from, from + 2000).status, 454);
        for (const QString &line : {u"replay"_s, u"replay late"_s, u"replay late 21"_s, u"replay late -1"_s,
                                    u"replay silent"_s, u"replay drop West"_s})
            QVERIFY2(server.command(line).startsWith("error "_L1), qPrintable(line));
    }
};

QTEST_GUILESS_MAIN(TestReplay)
#include "tst_replay.moc"
