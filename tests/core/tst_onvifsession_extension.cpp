// SPDX-License-Identifier: GPL-3.0-or-later
#include "sessionfixture.h"

#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray Site = R"({"version":1,"group":{"uid":"g-1","name":"Works"},
    "server":{"uid":"18446744073709551615","id":3,"name":"North","version":"4.2.1.7","timeZone":"America/New_York"},
    "peers":[{"uid":"12","id":4,"name":"South","host":"south.invalid","port":8602},{"uid":"0","port":1},{"uid":"13","port":70000}],
    "user":{"id":5,"localId":6,"name":"Olga","level":"operator","permissions":[16]},
    "cameras":[{"source":"2","id":7,"sortId":70,"name":"Gate","ptzf":3,"permitted":false,"tracks":[{"id":1,"name":"V","type":"track1"},
        {"id":2,"type":"audio","enabled":false},{"id":3,"type":"smell"}]},{"source":"gone","id":8},{"source":"1","id":7},{"id":0}]})";

} // namespace

class TestOnvifSessionExtension : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<FakeOnvifDevice> m_device;

private Q_SLOTS:
    void init()
    {
        m_device = std::make_unique<FakeOnvifDevice>();
        m_device->hasExtension = true;
        m_device->site = Site;
        QVERIFY(m_device->start());
    }

    void cleanup()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_device.reset();
    }

    void login_describesTheSite()
    {
        SessionFixture fixture;
        QVERIFY2(fixture.logIn(*m_device), qPrintable(fixture.loginError().detail));
        const SiteDescription site = fixture.site();
        QCOMPARE(site.groupUid, u"g-1"_s);
        QCOMPARE(site.groupName, u"Works"_s);
        QCOMPARE(site.serverUid, ~0ull);
        QCOMPARE(site.serverId, 3);
        QCOMPARE(site.serverName, u"North"_s);
        QCOMPARE(site.version, u"4.2.1.7"_s);
        QCOMPARE(site.timeZone, QTimeZone("America/New_York"));
        QCOMPARE(site.peers.size(), 1);
        QCOMPARE(site.peers.first().host, u"south.invalid"_s);
        QCOMPARE(std::get<UserLId>(site.user.id), (UserLId{3, 6}));
        QCOMPARE(site.user.permissions, QSet<int>{16});
        QCOMPARE(site.channels.size(), 2);
        const ChannelDescription gate = site.channels.first();
        QCOMPARE(gate.id, 7);
        QCOMPARE(gate.sortId, 70);
        QCOMPARE(gate.ptzf, 3);
        QVERIFY(!gate.permitted);
        QCOMPARE(gate.tracks.size(), 2);
        QCOMPARE(gate.tracks.at(1).type, TrackType::Audio);
        QVERIFY(!gate.tracks.at(1).enabled);
        QVERIFY(!m_device->operations.contains("GetUsers"));
    }

    void changes_areReadAndDescribed()
    {
        SessionFixture fixture;
        QVERIFY(fixture.logIn(*m_device));
        QTRY_VERIFY(m_device->operations.contains("GET changes"));
        m_device->site.replace("Works", "Yard");
        QSignalSpy restart(fixture.session.get(), &Session::restartRequested);
        QVERIFY(m_device->server.answerHeld(
            {200, R"({"revision":5,"changed":["site"],"notices":["restart"]})", {}}));
        QTRY_COMPARE(fixture.described->size(), 2);
        QCOMPARE(fixture.site().groupName, u"Yard"_s);
        QTRY_COMPARE(restart.size(), 1);
        const auto asksFurther = [this] {
            const QList<FakeRequest> &requests = m_device->server.requests();
            return std::any_of(requests.begin(), requests.end(),
                               [](const FakeRequest &request) { return request.target.endsWith("after=5"); });
        };
        QTRY_VERIFY(asksFurther());
        QVERIFY(fixture.lost->isEmpty());
    }

    void brokenOffRequest_losesTheSession()
    {
        SessionFixture fixture;
        QVERIFY(fixture.logIn(*m_device));
        QTRY_VERIFY(m_device->operations.contains("GET changes"));
        m_device->server.stop();
        QTRY_COMPARE(fixture.lost->size(), 1);
        QVERIFY(m_device->start());
        QTRY_COMPARE(fixture.restored->size(), 1);
        QVERIFY(m_device->operations.count("POST session") >= 2);
    }

    void forgottenSession_isRenewed()
    {
        SessionFixture fixture;
        m_device->forgottenPolls = 1;
        fixture.open(m_device->target());
        QTRY_COMPARE(fixture.opened->size(), 1);
        QTRY_COMPARE(fixture.described->size(), 2);
        QCOMPARE(m_device->forgottenPolls, 0);
        QVERIFY(m_device->operations.count("POST session") >= 2);
        QVERIFY(fixture.lost->isEmpty());
    }

    void timedOutUser_endsTheSession()
    {
        SessionFixture fixture;
        m_device->changes = R"({"revision":1,"notices":["userTimedOut","restart"]})";
        fixture.open(m_device->target());
        QSignalSpy timedOut(fixture.session.get(), &Session::userTimedOut);
        QSignalSpy restart(fixture.session.get(), &Session::restartRequested);
        QTRY_COMPARE(timedOut.size(), 1);
        QTest::qWait(200);
        QCOMPARE(restart.size(), 0);
        QVERIFY(fixture.lost->isEmpty());
    }

    void closing_endsTheSessionAtTheServer()
    {
        SessionFixture fixture;
        QVERIFY(fixture.logIn(*m_device));
        fixture.session->close();
        QTRY_VERIFY(m_device->operations.contains("DELETE session/s%201"));
    }

    void site_isRefused_whenItCannotBeRead_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("array") << QByteArray("[1]");
        QTest::newRow("cut off") << QByteArray("{\"group\":");
        QTest::newRow("nested") << QByteArray("{\"a\":").repeated(50000);
        QTest::newRow("too long") << "{\"a\":\"" + QByteArray(5 * 1024 * 1024, 'x') + "\"}";
    }

    void site_isRefused_whenItCannotBeRead()
    {
        QFETCH(QByteArray, body);
        m_device->site = body;
        SessionFixture fixture;
        QCOMPARE(fixture.failToLogIn(m_device->target()), int(LoginError::FailedToSetupConnection));
    }

    void site_takesDefaults_whenMembersAreOfTheWrongKind()
    {
        m_device->site = R"({"group":7,"server":[],"peers":"no","user":null,"cameras":{"a":1}})";
        SessionFixture fixture;
        QVERIFY(fixture.logIn(*m_device));
        QVERIFY(fixture.site().groupUid.isEmpty());
        QCOMPARE(fixture.site().serverName, u"Model 7"_s);
        QCOMPARE(fixture.site().channels.size(), 2);
    }
};

QTEST_GUILESS_MAIN(TestOnvifSessionExtension)
#include "tst_onvifsession_extension.moc"
