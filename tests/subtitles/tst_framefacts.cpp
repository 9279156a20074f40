// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/framefacts.h"
#include "core/stream/subtitles/framerate.h"

#include <QTest>

#include <limits>

using namespace orrin;

class tst_FrameFacts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void facts_comeBack_fromTheirBytes()
    {
        FrameFacts facts;
        facts.arrivedMs = 1;
        facts.decodedMs = 2;
        facts.decodingUs = 3;
        facts.framesPerSecond = 12.5;
        const std::optional<FrameFacts> read = FrameFacts::fromBytes(facts.toBytes());
        QVERIFY(read);
        QCOMPARE(read->arrivedMs, 1);
        QCOMPARE(read->decodedMs, 2);
        QCOMPARE(read->decodingUs, 3);
        QCOMPARE(read->framesPerSecond, 12.5);
    }

    void facts_areNone_whenBytesAreOthers()
    {
        QVERIFY(!FrameFacts::fromBytes(QByteArray()));
        QVERIFY(!FrameFacts::fromBytes(FrameFacts().toBytes() + 'x'));
        FrameFacts facts;
        facts.framesPerSecond = std::numeric_limits<double>::quiet_NaN();
        QVERIFY(!FrameFacts::fromBytes(facts.toBytes()));
    }

    void rate_isUnknown_beforeTheSecondPicture()
    {
        FrameRate rate;
        QCOMPARE(rate.perSecond(), 0.0);
        rate.add(1500);
        QCOMPARE(rate.perSecond(), 0.0);
    }

    void rate_followsCaptureTimes_inEitherDirection()
    {
        for (const int direction : {1, -1}) {
            FrameRate rate;
            for (int i = 0; i < 40; ++i)
                rate.add(30'000 + direction * i * 12); // 40 ms
            QCOMPARE(rate.perSecond(), 25.0);
        }
    }

    void rate_followsChange_withinItsWindow()
    {
        FrameRate rate;
        Time300 time = 30'000;
        for (int i = 0; i < 20; ++i)
            rate.add(time += 12);
        for (int i = 0; i < 16; ++i)
            rate.add(time += 24);
        QCOMPARE(rate.perSecond(), 12.5);
    }

    void rate_beginsAnew_data()
    {
        QTest::addColumn<qlonglong>("step");
        QTest::newRow("gap") << qlonglong(3001);
        QTest::newRow("jump back") << qlonglong(-3001);
        QTest::newRow("turn") << qlonglong(-12);
        QTest::newRow("same time") << qlonglong(0);
    }

    void rate_beginsAnew()
    {
        QFETCH(qlonglong, step);
        FrameRate rate;
        rate.add(30'000);
        rate.add(30'012);
        QCOMPARE(rate.perSecond(), 25.0);
        rate.add(30'012 + step);
        QCOMPARE(rate.perSecond(), 0.0);
    }
};

QTEST_GUILESS_MAIN(tst_FrameFacts)
#include "tst_framefacts.moc"
