// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/session/onvif/eventservice.h"
#include "core/session/onvif/soapanswer.h"

#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;
using State = EventDescription::State;

class TestEventService : public QObject
{
    Q_OBJECT

private:
    static QByteArray envelope(const QByteArray &body)
    {
        return "<e:Envelope xmlns:e=\"http://www.w3.org/2003/05/soap-envelope\" "
               "xmlns:tev=\"http://www.onvif.org/ver10/events/wsdl\" "
               "xmlns:wsnt=\"http://docs.oasis-open.org/wsn/b-2\" "
               "xmlns:wsa=\"http://www.w3.org/2005/08/addressing\" "
               "xmlns:wstop=\"http://docs.oasis-open.org/wsn/t-1\" "
               "xmlns:tns1=\"http://www.onvif.org/ver10/topics\" "
               "xmlns:tt=\"http://www.onvif.org/ver10/schema\"><e:Body>" +
               body + "</e:Body></e:Envelope>";
    }

    static SoapAnswer answer(const QByteArray &xml)
    {
        TransportResult transport;
        transport.status = 200;
        transport.body = xml;
        return SoapAnswer::read(transport);
    }

    static QByteArray message(const QByteArray &topic, const QByteArray &operation, const QByteArray &source,
                              const QByteArray &data, const QByteArray &time = "2025-07-01T12:30:05.250Z")
    {
        return "<wsnt:NotificationMessage><wsnt:Topic>" + topic +
               "</wsnt:Topic><wsnt:Message><tt:Message UtcTime=\"" + time + "\" PropertyOperation=\"" +
               operation + "\"><tt:Source><tt:SimpleItem Name=\"Source\" Value=\"" + source +
               "\"/></tt:Source><tt:Data>" + data + "</tt:Data></tt:Message></wsnt:Message>" +
               "</wsnt:NotificationMessage>";
    }

    static QByteArray item(const QByteArray &name, const QByteArray &value)
    {
        return "<tt:SimpleItem Name=\"" + name + "\" Value=\"" + value + "\"/>";
    }

    static QByteArray pull(const QByteArray &messages)
    {
        return envelope("<tev:PullMessagesResponse><tev:CurrentTime>2025-07-01T12:30:00Z</tev:CurrentTime>"
                        "<tev:TerminationTime>2025-07-01T12:31:00Z</tev:TerminationTime>" +
                        messages + "</tev:PullMessagesResponse>");
    }

    static QList<EventDescription> read(const QByteArray &messages)
    {
        return eventservice::readMessages(answer(pull(messages)).body, {{u"VS_2"_s, 2}});
    }

private Q_SLOTS:
    void messages_areRead_inTheirOrder()
    {
        const auto events =
            read(message("tns1:VideoSource/MotionAlarm", "Changed", "VS_2", item("State", "true")) +
                 message("tns1:Device/Trigger/DigitalInput", "Changed", "IN_1", item("LogicalState", "0")) +
                 message("acme:Barcode", "", "Gate", item("Code", "1")));
        QCOMPARE(events.size(), 3);
        QCOMPARE(events[0].cause, u"Motion"_s);
        QCOMPARE(events[0].state, State::Began);
        QCOMPARE(events[0].channelId, 2);
        QCOMPARE(events[0].source, u"VS_2"_s);
        QCOMPARE(events[0].time, QDateTime(QDate(2025, 7, 1), QTime(12, 30, 5, 250), QTimeZone::utc()));
        QCOMPARE(events[0].text, u"Source=VS_2, State=true"_s);
        QCOMPARE(events[1].ending, u"Input off"_s);
        QCOMPARE(events[1].state, State::Ended);
        QCOMPARE(events[1].channelId, -1);
        QCOMPARE(events[1].source, u"IN_1"_s);
        QCOMPARE(events[2].cause, u"Barcode"_s);
        QCOMPARE(events[2].state, State::Momentary);
    }

    void message_isNoEvent_whenItTellsAStateThatWasThere()
    {
        QVERIFY(read(message("tns1:VideoSource/MotionAlarm", "Initialized", "VS_2", item("State", "true")) +
                     message("tns1:VideoSource/MotionAlarm", "Deleted", "VS_2", item("State", "true")))
                    .isEmpty());
    }

    void message_isLeftOut_whenPartsAreMissing()
    {
        QVERIFY(read("<wsnt:NotificationMessage/>").isEmpty());
        QVERIFY(read("<wsnt:NotificationMessage><wsnt:Topic>a</wsnt:Topic></wsnt:NotificationMessage>")
                    .isEmpty());
        QVERIFY(read(message("", "Changed", "VS_2", "")).isEmpty());
    }

    void time_isInvalid_whenTheDeviceTellsNone()
    {
        for (const QByteArray &time : {QByteArray(), QByteArray("yesterday"), QByteArray(5000, '9')}) {
            const auto events = read(message("a", "Changed", "VS_2", "", time));
            QCOMPARE(events.size(), 1);
            QVERIFY(!events[0].time.isValid());
        }
    }

    void answer_isBounded()
    {
        QByteArray many;
        for (int i = 0; i < 3000; ++i)
            many += message("a", "Changed", "VS_2", "");
        QCOMPARE(read(many).size(), eventservice::MessageLimit);
        const QByteArray text(100000, 'x');
        QByteArray items;
        for (int i = 0; i < 1000; ++i)
            items += item("Name", text.first(400));
        const auto events = read(message(text, "Changed", text, items));
        QCOMPARE(events.size(), 1);
        QVERIFY(events[0].cause.size() <= 256);
        QCOMPARE(events[0].source.size(), 256);
        QCOMPARE(events[0].text.size(), 256);
    }

    void truncatedAnswer_isNone_whereverItEnds()
    {
        const QByteArray whole =
            pull(message("tns1:VideoSource/MotionAlarm", "Changed", "VS_2", item("State", "true")));
        QVERIFY(answer(whole).isAnswer());
        for (qsizetype end = 0; end < whole.size() - 1; ++end) {
            const SoapAnswer cut = answer(whole.first(end));
            QVERIFY2(!cut.isAnswer(), QByteArray::number(end).constData());
            QVERIFY(eventservice::readMessages(cut.body, {}).isEmpty());
        }
    }

    void hostileAnswer_isNone_data()
    {
        QTest::addColumn<QByteArray>("xml");
        QTest::newRow("document type")
            << QByteArray("<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;\">]>") + pull("&b;");
        QTest::newRow("deep") << pull(QByteArray("<a>").repeated(5000) + QByteArray("</a>").repeated(5000));
        QTest::newRow("many") << pull(QByteArray("<a/>").repeated(200000));
        QTest::newRow("binary") << QByteArray("\0\xff\xfe<\0", 5);
        QTest::newRow("broken UTF-8") << pull(message("a", "Changed", "\xff\xfe\xc3", ""));
    }

    void hostileAnswer_isNone()
    {
        QFETCH(QByteArray, xml);
        const SoapAnswer hostile = answer(xml);
        QVERIFY(!hostile.isAnswer());
        QVERIFY(eventservice::readMessages(hostile.body, {}).isEmpty());
        QVERIFY(eventservice::readCauses(hostile.body).isEmpty());
    }

    void pullPoint_keepsThePathAlone()
    {
        const auto point = [](const QByteArray &address) {
            return eventservice::readPullPoint(
                answer(envelope("<tev:CreatePullPointSubscriptionResponse><tev:SubscriptionReference>"
                                "<wsa:Address>" +
                                address +
                                "</wsa:Address></tev:SubscriptionReference>"
                                "<wsnt:CurrentTime>2025-07-01T12:30:00Z</wsnt:CurrentTime>"
                                "<wsnt:TerminationTime>2025-07-01T12:30:10Z</wsnt:TerminationTime>"
                                "</tev:CreatePullPointSubscriptionResponse>"))
                    .body);
        };
        QCOMPARE(point("http://user:x@10.1.2.3:99/sub?Idx=3&amp;a=b").path, u"/sub?Idx=3&a=b"_s);
        QCOMPARE(point("http://10.1.2.3/a").lifetime, std::chrono::seconds(10));
        QVERIFY(point("nonsense").path.isEmpty());
        QVERIFY(point("").path.isEmpty());
        QVERIFY(point(QByteArray("http://h/") + QByteArray(5000, 'a')).path.isEmpty());
    }

    void lifetime_isUnknown_whenTheTimesMakeNoSense()
    {
        const auto lifetime = [](const QByteArray &now, const QByteArray &end) {
            return eventservice::readLifetime(
                answer(envelope("<a><CurrentTime>" + now + "</CurrentTime><TerminationTime>" + end +
                                "</TerminationTime></a>"))
                    .body);
        };
        QCOMPARE(lifetime("2025-07-01T12:30:00+02:00", "2025-07-01T10:30:01Z"), std::chrono::seconds(1));
        QVERIFY(!lifetime("2025-07-01T12:30:00Z", "2025-07-01T12:29:00Z"));
        QVERIFY(!lifetime("", "2025-07-01T12:29:00Z"));
        QVERIFY(!lifetime("2025-07-01T12:30:00Z", "soon"));
    }

    void causes_areThoseOfTheTopicSet()
    {
        const QStringList causes = eventservice::readCauses(
            answer(envelope("<tev:GetEventPropertiesResponse><wstop:TopicSet><tns1:VideoSource>"
                            "<MotionAlarm wstop:topic=\"true\"><tt:MessageDescription/></MotionAlarm>"
                            "<Other/></tns1:VideoSource><tns1:RuleEngine><CellMotionDetector>"
                            "<Motion wstop:topic=\"true\"/></CellMotionDetector></tns1:RuleEngine>"
                            "<tns1:Device><Trigger><DigitalInput><tt:MessageDescription/></DigitalInput>"
                            "</Trigger></tns1:Device></wstop:TopicSet></tev:GetEventPropertiesResponse>"))
                .body);
        QCOMPARE(causes, (QStringList{u"Motion"_s, u"Input on"_s}));
    }

    void causes_areBounded()
    {
        QByteArray topics;
        for (int i = 0; i < 2000; ++i)
            topics += "<T" + QByteArray::number(i) + " wstop:topic=\"true\"/>";
        QCOMPARE(eventservice::readCauses(answer(envelope("<a><TopicSet>" + topics + "</TopicSet></a>")).body)
                     .size(),
                 eventservice::CauseLimit);
    }
};

QTEST_GUILESS_MAIN(TestEventService)
#include "tst_eventservice.moc"
