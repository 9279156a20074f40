// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"
#include "rtspprobe.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Minute = 60'000;
constexpr qint64 Hour = 60 * Minute;
constexpr int Seeks = 300;
constexpr qint64 AnswerMs = 2000;

/*! The begin of an hour that has passed, away from the long gap of the week. */
qint64 pastHour()
{
    qint64 hour = QDateTime::currentMSecsSinceEpoch() / Hour * Hour - 4 * Hour;
    while ((hour / (24 * Hour)) % 7 == 0)
        hour -= 12 * Hour;
    return hour;
}

} // namespace

/*! Ranges of a recording that replace each other while they stream, as a timeline that is dragged asks for them. */
class TestReplaySeeking : public QObject
{
    Q_OBJECT

private:
    DemoServerProcess m_server;

private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_server.start({u"--plain-rtsp"_s}), qPrintable(m_server.errorText())); }

    void seeks_areAllAnswered_whileARangeStreams_data()
    {
        QTest::addColumn<bool>("pausing");
        QTest::addColumn<bool>("reading");
        QTest::addColumn<bool>("audio");
        QTest::newRow("pause, what comes is read") << true << true << false;
        QTest::newRow("pause, nothing is read") << true << false << false;
        QTest::newRow("no pause, what comes is read") << false << true << false;
        QTest::newRow("no pause, nothing is read") << false << false << false;
        QTest::newRow("pause, with sound") << true << true << true;
    }

    void seeks_areAllAnswered_whileARangeStreams()
    {
        QFETCH(bool, pausing);
        QFETCH(bool, reading);
        QFETCH(bool, audio);
        const QUrl url(u"rtsp://127.0.0.1:%1/recording/1/1/sub"_s.arg(m_server.rtspPort()));
        RtspProbe probe(url, u"operator"_s, u"orrin-operator"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.setUpReplay(audio), 200);
        const qint64 base = pastHour() + 5 * Minute;
        QRandomGenerator random(5);
        for (int i = 0; i < Seeks; ++i) {
            const qint64 from = base + random.bounded(int(10 * Minute));
            const bool backward = i % 3 == 2;
            QElapsedTimer timer;
            timer.start();
            if (pausing && i > 0)
                QCOMPARE(probe.request("PAUSE", url.toEncoded()).status, 200);
            const auto answer = probe.replay(from, backward ? from - Minute : from + Minute, backward ? "-1.0" : "1.0");
            QVERIFY2(answer.status == 200 && timer.elapsed() < AnswerMs,
                     qPrintable(u"seek %1: status %2 after %3 ms"_s.arg(i).arg(answer.status).arg(timer.elapsed())));
            // A few frames, so that the next one comes in the middle of the range.
            for (int frames = random.bounded(8); reading && frames >= 0; --frames)
                QVERIFY2(probe.next(AnswerMs), qPrintable(u"seek %1: no frame"_s.arg(i)));
        }
    }
};

QTEST_GUILESS_MAIN(TestReplaySeeking)
#include "tst_replayseeking.moc"
