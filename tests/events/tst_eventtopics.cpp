// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/events/eventtopics.h"

#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;

class TestEventTopics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void topic_becomesWords_data()
    {
        QTest::addColumn<QString>("topic");
        QTest::addColumn<QString>("cause");
        QTest::addColumn<QString>("ending");
        QTest::newRow("motion") << u"tns1:VideoSource/MotionAlarm"_s << u"Motion"_s << u"Motion ended"_s;
        QTest::newRow("no prefix") << u"VideoSource/MotionAlarm"_s << u"Motion"_s << u"Motion ended"_s;
        QTest::newRow("prefix everywhere")
            << u" tt:VideoSource/tt:motionalarm "_s << u"Motion"_s << u"Motion ended"_s;
        QTest::newRow("cells") << u"tns1:RuleEngine/CellMotionDetector/Motion"_s << u"Motion"_s
                               << u"Motion ended"_s;
        QTest::newRow("loss") << u"tns1:VideoSource/SignalLoss"_s << u"Video loss"_s << u"Video restored"_s;
        QTest::newRow("any last") << u"tns1:VideoSource/ImageTooDark/ImagingService"_s
                                  << u"Picture too dark"_s << u"Picture bright again"_s;
        QTest::newRow("input") << u"tns1:Device/Trigger/DigitalInput"_s << u"Input on"_s << u"Input off"_s;
        QTest::newRow("door") << u"tns1:Door/State/DoorPhysicalState"_s << u"Door open"_s << u"Door closed"_s;
        QTest::newRow("disk") << u"tns1:Device/HardwareFailure/StorageFailure"_s << u"Storage failure"_s
                              << u"Storage repaired"_s;
        QTest::newRow("login") << u"x:User/Login"_s << u"Login"_s << u"Login ended"_s;
        QTest::newRow("unknown") << u"tns1:Some/PersonDetected"_s << u"Person detected"_s
                                 << u"Person detected ended"_s;
        QTest::newRow("capitals") << u"acme:USBAlarm"_s << u"USB alarm"_s << u"USB alarm ended"_s;
        QTest::newRow("underscore") << u"acme:fire_in_tunnel"_s << u"Fire in tunnel"_s
                                    << u"Fire in tunnel ended"_s;
        QTest::newRow("parent only") << u"tns1:VideoSource"_s << u"Video source"_s << u"Video source ended"_s;
        QTest::newRow("empty") << u""_s << u"Event"_s << u"Event ended"_s;
        QTest::newRow("nothing in it") << u"://:/ "_s << u"Event"_s << u"Event ended"_s;
    }

    void topic_becomesWords()
    {
        QFETCH(QString, topic);
        const EventTopic meaning = EventTopic::fromTopic(topic);
        QTEST(meaning.cause, "cause");
        QTEST(meaning.ending, "ending");
    }

    void words_areCut_whenTheTopicIsEndless()
    {
        const EventTopic one = EventTopic::fromTopic(QString(100000, u'a'));
        QCOMPARE(one.cause.size(), 256);
        QVERIFY(one.ending.size() <= 256);
        const EventTopic many = EventTopic::fromTopic(QString(100000, u'/') + u"x"_s);
        QVERIFY(many.cause.size() <= 256);
    }
};

QTEST_GUILESS_MAIN(TestEventTopics)
#include "tst_eventtopics.moc"
