// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"
#include "httpprobe.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

using namespace orrin::test;
using namespace Qt::StringLiterals;

class TestSiteExtension : public QObject
{
    Q_OBJECT

private:
    static QString openSession(HttpProbe &probe, const DemoServerProcess &server)
    {
        return probe.send("POST", server.url(u"/orrin/v1/session"_s)).json().value("session"_L1).toString();
    }

    static QUrl changes(const DemoServerProcess &server, const QString &session, qint64 after)
    {
        return server.url(u"/orrin/v1/changes?session=%1&after=%2"_s.arg(session).arg(after));
    }

private Q_SLOTS:
    void site_describesServerAndPeersAndCameras()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        HttpProbe admin(u"admin"_s, u"orrin-admin"_s);
        const auto answer = admin.get(server.url(u"/orrin/v1/site"_s, 2));
        QCOMPARE(answer.status, 200);
        QCOMPARE(answer.contentType, "application/json");
        const QJsonObject site = answer.json();
        QCOMPARE(site["version"_L1].toInt(), 1);
        QCOMPARE(site["group"_L1]["name"_L1].toString(), u"Demo Site"_s);
        QCOMPARE(site["server"_L1]["name"_L1].toString(), u"South"_s);
        QCOMPARE(site["server"_L1]["id"_L1].toInt(), 2);
        QCOMPARE(site["server"_L1]["timeZone"_L1].toString(), u"America/New_York"_s);
        QCOMPARE(site["server"_L1]["version"_L1].toString().count(u'.'), 3);
        QVERIFY(site["server"_L1]["uid"_L1].toString().toULongLong() > 0);
        const QJsonArray peers = site["peers"_L1].toArray();
        QCOMPARE(peers.size(), 1);
        QCOMPARE(peers[0]["port"_L1].toInt(), int(server.port(1)));
        QCOMPARE(peers[0]["host"_L1].toString(), u"127.0.0.1"_s);
        const QJsonObject north = admin.get(server.url(u"/orrin/v1/site"_s, 1)).json();
        QCOMPARE(north["server"_L1]["uid"_L1].toString(), peers[0]["uid"_L1].toString());
        QCOMPARE(north["group"_L1]["uid"_L1], site["group"_L1]["uid"_L1]);
        const QJsonArray cameras = site["cameras"_L1].toArray();
        QCOMPARE(cameras.size(), 6);
        QCOMPARE(cameras[2]["ptzf"_L1].toInt(), 1);
        QCOMPARE(cameras[5]["enabled"_L1].toBool(true), false);
        QCOMPARE(cameras[1]["source"_L1].toString(), u"VS_2"_s);
        QCOMPARE(cameras[4]["permitted"_L1].toBool(false), true);
        QCOMPARE(cameras[0]["tracks"_L1][0]["type"_L1].toString(), u"track1"_s);
    }

    void site_dependsOnTheUser()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        const auto read = [&server](const QString &user) {
            HttpProbe probe(user, u"orrin-"_s + user);
            return probe.get(server.url(u"/orrin/v1/site"_s, 2)).json();
        };
        const QJsonObject guest = read(u"guest"_s);
        QCOMPARE(guest["cameras"_L1][4]["permitted"_L1].toBool(true), false);
        QCOMPARE(guest["user"_L1]["level"_L1].toString(), u"user"_s);
        QCOMPARE(guest["user"_L1]["permissions"_L1].toArray(), QJsonArray());
        QCOMPARE(read(u"operator"_s)["user"_L1]["permissions"_L1].toArray(), QJsonArray({16, 17}));
        QCOMPARE(read(u"admin"_s)["user"_L1]["permissions"_L1].toArray(), QJsonArray({16, 17, 24}));
        HttpProbe wrong(u"admin"_s, u"nonsense"_s);
        const auto refused = wrong.get(server.url(u"/orrin/v1/site"_s));
        QCOMPARE(refused.status, 401);
        QCOMPARE(refused.challenges.size(), 2);
    }

    void changes_answerWhenSomethingHappens()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        HttpProbe probe(u"operator"_s, u"orrin-operator"_s);
        const QString session = openSession(probe, server);
        QVERIFY(!session.isEmpty());
        const QJsonObject first = probe.get(changes(server, session, 0)).json();
        const qint64 revision = first["revision"_L1].toInteger();
        QVERIFY(revision > 0);
        QCOMPARE(first["changed"_L1].toArray(), QJsonArray({u"configuration"_s, u"site"_s}));

        QNetworkReply *waiting = probe.start("GET", changes(server, session, revision));
        QSignalSpy finished(waiting, &QNetworkReply::finished);
        QVERIFY(!finished.wait(500));
        QCOMPARE(server.command(u"camera rename North 1 Side Door"_s), u"ok"_s);
        const auto second = HttpProbe::finish(waiting, 5000);
        QCOMPARE(second.status, 200);
        QCOMPARE(second.json()["revision"_L1].toInteger(), revision + 1);
        QCOMPARE(second.json()["changed"_L1].toArray(), QJsonArray({u"site"_s}));
        QCOMPARE(probe.get(server.url(u"/orrin/v1/site"_s)).json()["cameras"_L1][0]["name"_L1].toString(),
                 u"Side Door"_s);

        QCOMPARE(server.command(u"notice restart North"_s), u"ok"_s);
        const QJsonObject third = probe.get(changes(server, session, revision + 1)).json();
        QCOMPARE(third["notices"_L1].toArray(), QJsonArray({u"restart"_s}));
        QCOMPARE(third["changed"_L1].toArray(), QJsonArray());
    }

    void changes_answerTheSameRevision_afterAWhile()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        HttpProbe probe(u"guest"_s, u"orrin-guest"_s);
        const QString session = openSession(probe, server);
        QElapsedTimer timer;
        timer.start();
        const auto answer = HttpProbe::finish(probe.start("GET", changes(server, session, 1)), 30000);
        QCOMPARE(answer.status, 200);
        QCOMPARE(answer.json()["revision"_L1].toInteger(), 1);
        QVERIFY2(timer.elapsed() > 18000 && timer.elapsed() < 25000,
                 qPrintable(QString::number(timer.elapsed())));
    }

    void changes_refuseSessionsOfOthers()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        HttpProbe guest(u"guest"_s, u"orrin-guest"_s);
        HttpProbe admin(u"admin"_s, u"orrin-admin"_s);
        const QString session = openSession(guest, server);
        QCOMPARE(admin.get(changes(server, session, 0)).status, 404);
        QCOMPARE(guest.get(changes(server, u"made-up"_s, 0)).status, 404);
        QCOMPARE(guest.get(server.url(u"/orrin/v1/changes?session=%1&after=x"_s.arg(session))).status, 400);
        QCOMPARE(admin.send("DELETE", server.url(u"/orrin/v1/session/"_s + session)).status, 404);
        QCOMPARE(guest.send("DELETE", server.url(u"/orrin/v1/session/"_s + session)).status, 200);
        QCOMPARE(guest.get(changes(server, session, 0)).status, 404);
        QCOMPARE(guest.send("DELETE", server.url(u"/orrin/v1/site"_s)).status, 405);
        QCOMPARE(guest.get(server.url(u"/orrin/v1/nothing"_s)).status, 404);
    }

    void sessions_areLimited()
    {
        DemoServerProcess server;
        QVERIFY(server.start({u"--max-sessions"_s, u"2"_s}));
        HttpProbe probe(u"guest"_s, u"orrin-guest"_s);
        const QString first = openSession(probe, server);
        QVERIFY(!openSession(probe, server).isEmpty());
        const auto third = probe.send("POST", server.url(u"/orrin/v1/session"_s));
        QCOMPARE(third.status, 403);
        QCOMPARE(third.json()["refusal"_L1].toString(), u"TooManyConnections"_s);
        QVERIFY(server.command(u"clients North"_s).contains("sessions=2"_L1));
        QCOMPARE(probe.send("DELETE", server.url(u"/orrin/v1/session/"_s + first)).status, 200);
        QVERIFY(!openSession(probe, server).isEmpty());
    }

    void refusals_areTold_toThoseWhoKnowThePassword()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        HttpProbe probe(u"guest"_s, u"orrin-guest"_s);
        const QUrl site = server.url(u"/orrin/v1/site"_s);
        const QUrl device = server.url(u"/onvif/device_service"_s);
        const QByteArray call =
            "<x:GetDeviceInformation xmlns:x=\"http://www.onvif.org/ver10/device/wsdl\"/>";
        const QList<QPair<QString, QString>> table{{u"too-many"_s, u"TooManyConnections"_s},
                                                   {u"outside-hours"_s, u"OutsideHours"_s},
                                                   {u"locked 77"_s, u"AccountLocked"_s},
                                                   {u"address"_s, u"AddressNotPermitted"_s}};
        for (const auto &[word, name] : table) {
            QCOMPARE(server.command(u"refuse %1 North"_s.arg(word)), u"ok"_s);
            const auto json = probe.get(site);
            QCOMPARE(json.status, 403);
            QCOMPARE(json.json()["refusal"_L1].toString(), name);
            const auto soap = probe.soap(device, call);
            QCOMPARE(soap.status, 400);
            QVERIFY(soap.body.contains(
                "<env:Value>ter:NotAuthorized</env:Value><env:Subcode><env:Value>site:" + name.toLatin1()));
            QCOMPARE(soap.contains("<site:Seconds>"), name == "AccountLocked"_L1);
            if (name == "AccountLocked"_L1)
                QVERIFY(json.json()["seconds"_L1].toInt() > 70 && json.json()["seconds"_L1].toInt() <= 77);
            HttpProbe wrong(u"guest"_s, u"nonsense"_s);
            QCOMPARE(wrong.get(site).status, 401);
            QCOMPARE(probe.get(server.url(u"/orrin/v1/site"_s, 2)).status, 200);
        }
        QCOMPARE(server.command(u"refuse none"_s), u"ok"_s);
        QCOMPARE(probe.get(site).status, 200);
    }

    void accounts_lock_afterWrongPasswords()
    {
        DemoServerProcess server;
        QVERIFY(server.start({u"--lock-after"_s, u"3"_s, u"--lock-seconds"_s, u"60"_s}));
        const QUrl site = server.url(u"/orrin/v1/site"_s);
        for (int i = 0; i < 3; ++i) {
            HttpProbe wrong(u"guest"_s, u"nonsense"_s);
            QCOMPARE(wrong.get(site).status, 401);
        }
        HttpProbe right(u"guest"_s, u"orrin-guest"_s);
        const auto locked = right.get(site);
        QCOMPARE(locked.status, 403);
        QCOMPARE(locked.json()["refusal"_L1].toString(), u"AccountLocked"_s);
        QVERIFY(locked.json()["seconds"_L1].toInt() > 50);
        QCOMPARE(right.get(server.url(u"/orrin/v1/site"_s, 2)).status, 403);
        HttpProbe admin(u"admin"_s, u"orrin-admin"_s);
        QCOMPARE(admin.get(site).status, 200);
        QCOMPARE(server.command(u"user unlock guest"_s), u"ok"_s);
        QCOMPARE(right.get(site).status, 200);
    }
};

QTEST_GUILESS_MAIN(TestSiteExtension)
#include "tst_siteextension.moc"
