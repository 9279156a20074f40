// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"
#include "httpprobe.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

using namespace orrin::test;
using namespace Qt::StringLiterals;

/*! The event service of the demo server, as any client of ONVIF sees it. */
class TestDemoServerEvents : public QObject
{
    Q_OBJECT

private:
    using Answer = HttpProbe::Answer;

    static QByteArray tev(const QByteArray &name, const QByteArray &content = {})
    {
        return "<n:" + name + " xmlns:n=\"http://www.onvif.org/ver10/events/wsdl\">" + content + "</n:" +
               name + ">";
    }

    static QByteArray wsnt(const QByteArray &name, const QByteArray &content = {})
    {
        return "<n:" + name + " xmlns:n=\"http://docs.oasis-open.org/wsn/b-2\">" + content + "</n:" + name +
               ">";
    }

    static QByteArray pullBody(const QByteArray &timeout = "PT0S", int limit = 100)
    {
        return tev("PullMessages", "<n:Timeout>" + timeout + "</n:Timeout><n:MessageLimit>" +
                                       QByteArray::number(limit) + "</n:MessageLimit>");
    }

    Answer call(const QUrl &url, const QByteArray &body, const QString &user = u"admin"_s)
    {
        HttpProbe probe(user, u"orrin-"_s + user);
        return probe.soap(url, body);
    }

    QUrl service(int recorder = 1) const { return m_server.url(u"/onvif/event_service"_s, recorder); }

    QUrl subscribe(int recorder = 1, const QString &user = u"admin"_s)
    {
        const Answer answer = call(service(recorder), tev("CreatePullPointSubscription"), user);
        static const QRegularExpression address(u":Address>([^<]+)<"_s);
        return QUrl(address.match(QString::fromUtf8(answer.body)).captured(1));
    }

    DemoServerProcess m_server;

private Q_SLOTS:
    void init()
    {
        QVERIFY2(m_server.start({u"--command"_s, u"event rate 0"_s}), qPrintable(m_server.errorText()));
    }
    void cleanup() { m_server.stop(); }

    void service_isAdvertised()
    {
        const QByteArray device = "http://www.onvif.org/ver10/device/wsdl";
        const QUrl url = m_server.url(u"/onvif/device_service"_s);
        const auto ask = [&](const QByteArray &name) {
            return call(url, "<d:" + name + " xmlns:d=\"" + device + "\"/>").body;
        };
        QVERIFY(ask("GetServices").contains("/onvif/event_service<"));
        const QByteArray capabilities = ask("GetCapabilities");
        QVERIFY(capabilities.contains("/onvif/event_service<"));
        QVERIFY(capabilities.contains("WSPullPointSupport>true"));
        QVERIFY(call(service(), tev("GetServiceCapabilities")).body.contains("MaxPullPoints=\"64\""));
        const QByteArray properties = call(service(), tev("GetEventProperties")).body;
        QVERIFY(properties.contains("MotionAlarm wstop:topic=\"true\""));
    }

    void pull_waits_untilSomethingHappens()
    {
        const QUrl point = subscribe();
        HttpProbe probe(u"admin"_s, u"orrin-admin"_s);
        QVERIFY(probe.soap(point, pullBody()).body.contains("PullMessagesResponse"));
        const QByteArray body = "<e:Envelope xmlns:e=\"http://www.w3.org/2003/05/soap-envelope\"><e:Body>" +
                                pullBody("PT20S") + "</e:Body></e:Envelope>";
        QNetworkReply *waiting = probe.start("POST", point, body, "application/soap+xml");
        QVERIFY(!QTest::qWaitFor([&] { return waiting->isFinished(); }, 500));
        QCOMPARE(m_server.command(u"event motion 1 2"_s), u"ok"_s);
        QElapsedTimer elapsed;
        elapsed.start();
        const Answer answer = HttpProbe::finish(waiting);
        QVERIFY(elapsed.elapsed() < 5000);
        QCOMPARE(answer.status, 200);
        QVERIFY(answer.contains("tns1:VideoSource/MotionAlarm"));
        QVERIFY(answer.contains("Value=\"VS_2\""));
        QVERIFY(answer.contains("PropertyOperation=\"Changed\""));
    }

    void pull_givesAtMostTheLimit_andNoMoreThanOnce()
    {
        const QUrl point = subscribe();
        for (int i = 0; i < 5; ++i)
            QCOMPARE(m_server.command(u"event login 1"_s), u"ok"_s);
        QCOMPARE(call(point, pullBody("PT1S", 2)).body.count("<wsnt:NotificationMessage>"), 2);
        QCOMPARE(call(point, pullBody("PT1S", 100)).body.count("<wsnt:NotificationMessage>"), 3);
        QCOMPARE(call(point, pullBody()).body.count("<wsnt:NotificationMessage>"), 0);
        QCOMPARE(call(point, pullBody("soon")).status, 400);
        QCOMPARE(call(point, pullBody("PT1S", 0)).status, 400);
    }

    void states_areTold_whenAskedFor()
    {
        QCOMPARE(m_server.command(u"event disk 1"_s), u"ok"_s);
        const QUrl point = subscribe();
        QVERIFY(call(point, pullBody()).contains("PropertyOperation=\"Initialized\""));
        QVERIFY(!call(point, pullBody()).contains("Initialized"));
        QCOMPARE(call(point, tev("SetSynchronizationPoint")).status, 200);
        QVERIFY(call(point, pullBody()).contains("Initialized"));
    }

    void subscription_isRenewedAndEnds()
    {
        const QUrl point = subscribe();
        QCOMPARE(
            call(point, wsnt("Renew", "<n:TerminationTime>PT60S</n:TerminationTime>")).status, 200);
        QCOMPARE(call(point, wsnt("Renew", "<n:TerminationTime>x</n:TerminationTime>")).status, 400);
        // It belongs to its user.
        QCOMPARE(call(point, pullBody(), u"operator"_s).status, 400);
        QCOMPARE(call(point, wsnt("Unsubscribe"), u"operator"_s).status, 400);
        QCOMPARE(call(point, wsnt("Unsubscribe")).status, 200);
        QCOMPARE(call(point, pullBody()).status, 400);
    }

    void subscriptions_areBounded()
    {
        for (int i = 0; i < 64; ++i)
            QVERIFY(subscribe().isValid());
        QVERIFY(subscribe().isEmpty());
        QVERIFY(subscribe(2).isValid());
    }

    void events_ofHiddenCameras_areNotTold()
    {
        const QUrl guest = subscribe(2, u"guest"_s);
        const QUrl admin = subscribe(2);
        QCOMPARE(m_server.command(u"event motion South 5"_s), u"ok"_s);
        QVERIFY(call(admin, pullBody()).contains("VS_5"));
        QVERIFY(!call(guest, pullBody(), u"guest"_s).contains("VS_5"));
    }

    void events_comeAtTheirPace()
    {
        const QUrl point = subscribe();
        QCOMPARE(m_server.command(u"event rate 100 1"_s), u"ok"_s);
        int count = 0;
        QElapsedTimer elapsed;
        elapsed.start();
        while (count < 100 && elapsed.elapsed() < 10000)
            count += call(point, pullBody("PT1S", 20)).body.count("<wsnt:NotificationMessage>");
        QVERIFY(count >= 100);
        QVERIFY(elapsed.elapsed() > 500);
    }

    void console_refusesNonsense()
    {
        for (const QString &line : {u"event"_s, u"event rain 1"_s, u"event motion 1"_s, u"event motion 1 99"_s,
                                    u"event motion West 1"_s, u"event rate 501"_s, u"event rate -1"_s,
                                    u"event rate nan"_s, u"camera add 1"_s, u"camera remove 1 99"_s,
                                    u"server leave"_s, u"server leave West"_s})
            QVERIFY2(m_server.command(line).startsWith("error "_L1), qPrintable(line));
    }

    void site_changes_withCamerasAndServers()
    {
        const auto site = [this](int recorder) {
            HttpProbe probe(u"admin"_s, u"orrin-admin"_s);
            return probe.get(m_server.url(u"/orrin/v1/site"_s, recorder)).json();
        };
        QCOMPARE(m_server.command(u"camera add 1 Back Door"_s), u"ok 7"_s);
        const QJsonArray cameras = site(1).value("cameras"_L1).toArray();
        QCOMPARE(cameras.size(), 7);
        QCOMPARE(cameras.last().toObject().value("name"_L1).toString(), u"Back Door"_s);
        QCOMPARE(m_server.command(u"camera remove 1 7"_s), u"ok"_s);
        QCOMPARE(site(1).value("cameras"_L1).toArray().size(), 6);
        QCOMPARE(m_server.command(u"server leave South"_s), u"ok"_s);
        QVERIFY(site(1).value("peers"_L1).toArray().isEmpty());
        QVERIFY(site(2).value("group"_L1).toObject().isEmpty());
        QCOMPARE(m_server.command(u"server join South"_s), u"ok"_s);
        QCOMPARE(site(1).value("peers"_L1).toArray().size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestDemoServerEvents)
#include "tst_demoserverevents.moc"
