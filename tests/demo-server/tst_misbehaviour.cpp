// SPDX-License-Identifier: GPL-3.0-or-later
#include "demoserverprocess.h"
#include "httpprobe.h"
#include "rtspprobe.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QSslKey>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin::test;
using namespace Qt::StringLiterals;

class TestMisbehaviour : public QObject
{
    Q_OBJECT

private:
    static QUrl stream(const DemoServerProcess &server)
    {
        return QUrl(u"rtsps://127.0.0.1:%1/camera/1/sub"_s.arg(server.rtspPort()));
    }

    static QByteArray key(const DemoServerProcess &server)
    {
        HttpProbe probe;
        return probe.get(server.url(u"/"_s)).publicKeySha256;
    }

private Q_SLOTS:
    void console_answersEachLine()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        QVERIFY(server.command(u"help"_s).startsWith("ok refuse"_L1));
        for (const QString &line :
             {u""_s, u"nonsense"_s, u"refuse"_s, u"refuse locked"_s, u"refuse address West"_s,
              u"rtsp stall"_s, u"rtsp drop West"_s, u"http silent"_s, u"key renew"_s, u"listener stop"_s,
              u"camera enable North 99"_s, u"user lock nobody 5"_s, u"notice lunch"_s, u"change everything"_s,
              u"clients West"_s, QString(9000, u'x')})
            QVERIFY2(server.command(line).startsWith("error "_L1), qPrintable(line));
        QCOMPARE(server.command(u"clients"_s),
                 u"ok sessions=0 rtspConnections=0 rtspSessions=0 rtspMedia=0"_s);
        QCOMPARE(server.command(u"quit"_s), u"ok"_s);
        QTRY_VERIFY_WITH_TIMEOUT(!server.isRunning(), 10000);
    }

    void start_fails_whenAPortIsBusy()
    {
        QTcpServer busy;
        QVERIFY(busy.listen(QHostAddress::LocalHost));
        for (const QString &option : {u"--north-port"_s, u"--south-rtsp-port"_s}) {
            QProcess process;
            process.start(
                QStringLiteral(ORRIN_DEMO_SERVER_PATH),
                {u"--free-ports"_s, u"--exit-with-stdin"_s, option, QString::number(busy.serverPort())});
            QVERIFY(process.waitForFinished(20000));
            QCOMPARE(process.exitCode(), 2);
            QVERIFY(process.readAllStandardError().contains(QByteArray::number(busy.serverPort())));
            QVERIFY(process.readAllStandardOutput().isEmpty());
        }
    }

    void start_fails_whenAnOptionMakesNoSense()
    {
        for (const QStringList &arguments : {QStringList{u"--north-port"_s, u"70000"_s},
                                             {u"--user"_s, u"a:b"_s},
                                             {u"--bind"_s, u"here"_s},
                                             {u"--no-such-option"_s},
                                             {u"stray"_s},
                                             {u"--command"_s, u"nonsense"_s, u"--free-ports"_s}}) {
            QProcess process;
            process.start(QStringLiteral(ORRIN_DEMO_SERVER_PATH), arguments);
            QVERIFY(process.waitForFinished(20000));
            QCOMPARE(process.exitCode(), 2);
            QVERIFY(!process.readAllStandardError().isEmpty());
        }
    }

    void commands_runAtStart()
    {
        DemoServerProcess server;
        QVERIFY(server.start({u"--command"_s, u"refuse outside-hours North"_s}));
        HttpProbe probe(u"guest"_s, u"orrin-guest"_s);
        QCOMPARE(probe.get(server.url(u"/orrin/v1/site"_s)).status, 403);
    }

    void key_isKept_inTheStateFolder()
    {
        QTemporaryDir folder;
        QByteArray first;
        {
            DemoServerProcess server;
            QVERIFY(server.start({u"--state-dir"_s, folder.filePath(u"keys"_s)}));
            first = key(server);
            QCOMPARE(first, server.recorders().constFirst().publicKeySha256);
            QVERIFY(key(server) != server.recorders().constLast().publicKeySha256);
        }
        const QFileInfo file(folder.filePath(u"keys/north-key.pem"_s));
        QVERIFY(file.exists());
        QVERIFY(!(file.permissions() &
                  (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther)));
        DemoServerProcess server;
        QVERIFY(server.start({u"--state-dir"_s, folder.filePath(u"keys"_s)}));
        QCOMPARE(key(server), first);
        QVERIFY(server.command(u"key renew North"_s).startsWith("ok "_L1));
        QVERIFY(key(server) != first);
    }

    void key_changes_whenRenewed()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        const QByteArray before = key(server);
        const QString answer = server.command(u"key renew 1"_s);
        QVERIFY(key(server) != before);
        QCOMPARE(answer, u"ok "_s + QString::fromLatin1(key(server)));
        RtspProbe probe(stream(server), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(
            QString::fromLatin1(QCryptographicHash::hash(probe.socket().peerCertificate().publicKey().toDer(),
                                                         QCryptographicHash::Sha256)
                                    .toHex()),
            answer.sliced(3));
    }

    void http_staysSilent_whenToldSo()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        HttpProbe probe(u"guest"_s, u"orrin-guest"_s);
        QCOMPARE(server.command(u"http silent on North"_s), u"ok"_s);
        QNetworkReply *reply = probe.start("GET", server.url(u"/orrin/v1/site"_s));
        QSignalSpy finished(reply, &QNetworkReply::finished);
        QVERIFY(!finished.wait(1000));
        reply->abort();
        QNetworkReply *kept = probe.start("GET", server.url(u"/orrin/v1/site"_s));
        QSignalSpy keptFinished(kept, &QNetworkReply::finished);
        QVERIFY(!keptFinished.wait(500));
        QCOMPARE(server.command(u"http silent off North"_s), u"ok"_s);
        QVERIFY(HttpProbe::finish(kept, 5000).status != 0 || keptFinished.size() == 1);
        probe.clearConnections();
        QCOMPARE(probe.get(server.url(u"/orrin/v1/site"_s)).status, 200);
    }

    void http_answersGarbage_whenToldSo()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        QCOMPARE(server.command(u"http garbage on"_s), u"ok"_s);
        for (int i = 0; i < 5; ++i) {
            HttpProbe probe;
            const auto answer = probe.get(server.url(u"/orrin/v1/site"_s));
            QCOMPARE(answer.status, 0);
            QVERIFY(answer.error != QNetworkReply::NoError);
        }
        QCOMPARE(server.command(u"http garbage off"_s), u"ok"_s);
        HttpProbe probe(u"guest"_s, u"orrin-guest"_s);
        QCOMPARE(probe.get(server.url(u"/orrin/v1/site"_s)).status, 200);
    }

    void listener_comesBackOnTheSamePort()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        HttpProbe probe(u"guest"_s, u"orrin-guest"_s);
        RtspProbe rtsp(stream(server), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(rtsp.connectToServer());
        QCOMPARE(rtsp.play(), 200);
        QVERIFY(rtsp.next());
        const QString session =
            probe.send("POST", server.url(u"/orrin/v1/session"_s)).json().value("session"_L1).toString();
        QNetworkReply *waiting =
            probe.start("GET", server.url(u"/orrin/v1/changes?session=%1&after=1"_s.arg(session)));
        QSignalSpy finished(waiting, &QNetworkReply::finished);
        QVERIFY(!finished.wait(300));
        QCOMPARE(server.command(u"listener stop North"_s), u"ok"_s);
        QVERIFY(HttpProbe::finish(waiting, 5000).status != 200);
        QTRY_VERIFY_WITH_TIMEOUT(!rtsp.isConnected() || !rtsp.next(50), 10000);
        QCOMPARE(probe.get(server.url(u"/orrin/v1/site"_s)).error, QNetworkReply::ConnectionRefusedError);
        RtspProbe refused(stream(server), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(!refused.connectToServer());
        QCOMPARE(probe.get(server.url(u"/orrin/v1/site"_s, 2)).status, 200);
        QCOMPARE(server.command(u"listener start North"_s), u"ok"_s);
        QCOMPARE(probe.get(server.url(u"/orrin/v1/site"_s)).status, 200);
        QCOMPARE(probe.get(server.url(u"/orrin/v1/changes?session=%1&after=0"_s.arg(session))).status, 404);
        RtspProbe again(stream(server), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(again.connectToServer());
        QCOMPARE(again.play(), 200);
        QVERIFY(again.next());
    }

    void rtsp_stalls_andGoesOn()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        RtspProbe probe(stream(server), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.play(), 200);
        for (int i = 0; i < 5; ++i)
            QVERIFY(probe.next());
        QCOMPARE(server.command(u"clients North"_s),
                 u"ok sessions=0 rtspConnections=1 rtspSessions=1 rtspMedia=1"_s);
        QCOMPARE(server.command(u"rtsp stall on North"_s), u"ok"_s);
        while (probe.next(300)) {
        }
        QVERIFY(!probe.next(1000));
        QVERIFY(probe.isConnected());
        QCOMPARE(server.command(u"rtsp stall off"_s), u"ok"_s);
        QVERIFY(probe.next());
        QCOMPARE(server.command(u"rtsp drop"_s), u"ok"_s);
        while (probe.next(500)) {
        }
        QTRY_VERIFY_WITH_TIMEOUT(!probe.isConnected(), 5000);
        QTRY_COMPARE_WITH_TIMEOUT(server.command(u"clients North"_s),
                                  u"ok sessions=0 rtspConnections=0 rtspSessions=0 rtspMedia=0"_s, 10000);
    }

    void rtsp_sendsGarbage_whenToldSo()
    {
        DemoServerProcess server;
        QVERIFY(server.start());
        RtspProbe probe(stream(server), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(probe.connectToServer());
        QCOMPARE(probe.play(), 200);
        QVERIFY(probe.next());
        QCOMPARE(server.command(u"rtsp garbage on"_s), u"ok"_s);
        for (int i = 0; i < 100 && probe.error().isEmpty(); ++i)
            probe.next(500);
        QVERIFY(!probe.error().isEmpty());
        QCOMPARE(server.command(u"rtsp garbage off"_s), u"ok"_s);
        RtspProbe again(stream(server), u"guest"_s, u"orrin-guest"_s);
        QVERIFY(again.connectToServer());
        QCOMPARE(again.play(), 200);
        for (int i = 0; i < 20; ++i)
            QVERIFY2(again.next(), qPrintable(again.error()));
    }
};

QTEST_GUILESS_MAIN(TestMisbehaviour)
#include "tst_misbehaviour.moc"
