// SPDX-License-Identifier: GPL-3.0-or-later
#include "sessionfixture.h"

#include "core/session/onvif/deviceservice.h"

#include <QTcpServer>
#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray Password = "Secret-Pa55";

/*! The answer to a request for a stream; nothing when none came in time. */
std::optional<MediaEndpointResult> endpoint(SessionFixture &fixture, int channel,
                                            StreamQuality quality = StreamQuality::High)
{
    std::optional<MediaEndpointResult> result;
    QObject context;
    fixture.session->requestMediaEndpoint(channel, quality, &context,
                                          [&result](const MediaEndpointResult &answer) { result = answer; });
    if (result)
        return {}; // inside the call
    const bool answered = QTest::qWaitFor([&result] { return result.has_value(); }, 5000);
    return answered ? result : std::nullopt;
}

int endpointError(SessionFixture &fixture, int channel)
{
    const auto result = endpoint(fixture, channel);
    return result && std::holds_alternative<PlaybackError>(*result)
               ? std::get<PlaybackError>(*result).errorCode()
               : -1;
}

} // namespace

class TestOnvifSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void login_describesAPlainDevice()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        QVERIFY(fixture.logIn(device));
        const SiteDescription site = fixture.site();
        QVERIFY(site.groupUid.isEmpty());
        QVERIFY(site.serverUid != 0);
        QCOMPARE(site.serverName, u"Model 7"_s);
        QCOMPARE(site.version, u"2.5.1"_s);
        QCOMPARE(site.serverAddress, u"127.0.0.1"_s);
        QCOMPARE(site.clockOffsetMs, 0);
        QCOMPARE(site.timeZone.offsetFromUtc(QDateTime(QDate(2025, 1, 10), QTime(12, 0), QTimeZone::utc())),
                 3600);
        QCOMPARE(site.user.name, u"admin"_s);
        QCOMPARE(site.user.level, UserLevel::Operator);
        QCOMPARE(site.user.permissions, (QSet<int>{16, 17}));
        QCOMPARE(site.channels.size(), 2);
        QCOMPARE(site.channels.at(0).name, u"Camera 1"_s);
        QCOMPARE(site.channels.at(0).privacyMask, QByteArray("1;0,0 5000,0 5000,5000"));
        QCOMPARE(site.channels.at(1).id, 2);
        // Wrong passwords count at the device: one request without credentials is all that is spent.
        QCOMPARE(device.operations.count("GetDeviceInformation"), 2);
        QVERIFY(device.operations.contains("GetMasks"));
    }

    void login_givesRightsByLevel_data()
    {
        QTest::addColumn<QByteArray>("level");
        QTest::addColumn<UserLevel>("expected");
        QTest::addColumn<QSet<int>>("permissions");
        QTest::newRow("administrator")
            << QByteArray("Administrator") << UserLevel::Administrator << QSet<int>{16, 17, 24};
        QTest::newRow("operator") << QByteArray("Operator") << UserLevel::Operator << QSet<int>{16, 17};
        QTest::newRow("user") << QByteArray("User") << UserLevel::User << QSet<int>{};
        QTest::newRow("not told") << QByteArray() << UserLevel::User << QSet<int>{};
    }

    void login_givesRightsByLevel()
    {
        QFETCH(QByteArray, level);
        FakeOnvifDevice device;
        device.userLevel = level;
        QVERIFY(device.start());
        SessionFixture fixture;
        QVERIFY(fixture.logIn(device));
        QTEST(fixture.site().user.level, "expected");
        QTEST(fixture.site().user.permissions, "permissions");
    }

    void login_works_withAnOldDevice()
    {
        FakeOnvifDevice device;
        device.login = FakeOnvifDevice::Login::UsernameToken;
        device.hasMedia2 = false;
        device.hasGetServices = false;
        device.clockOffsetSeconds = 20 * 60;
        device.timeZone = "XYZ+5";
        QVERIFY(device.start(QString()));
        SessionFixture fixture;
        QVERIFY2(fixture.logIn(device), qPrintable(fixture.loginError().toString()));
        const SiteDescription site = fixture.site();
        QVERIFY(qAbs(site.clockOffsetMs - 20 * 60 * 1000) < 2500);
        QCOMPARE(fixture.session->connection()->getCachedServerUTCOffsetToClientUTCMSecs(),
                 site.clockOffsetMs);
        QCOMPARE(site.timeZone.offsetFromUtc(QDateTime::currentDateTimeUtc()), -5 * 3600);
        QCOMPARE(site.channels.size(), 2);
        QCOMPARE(site.channels.at(0).ptzf, 1);
        QVERIFY(!device.server.received().contains(Password));
        const auto result = endpoint(fixture, 1);
        QVERIFY(result);
        QCOMPARE(std::get<MediaEndpoint>(*result).url, QUrl(u"rtsp://127.0.0.1:554/stream/high?a=1"_s));
    }

    void uid_isStable()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture first;
        QVERIFY(first.logIn(device));
        const quint64 uid = first.site().serverUid;
        QVERIFY(first.logIn(device));
        QCOMPARE(first.site().serverUid, uid);
        // Of SHA-256 over "SN-1\nHW-1".
        QCOMPARE(uid, deviceservice::uidOf({{}, {}, {}, u"SN-1"_s, u"HW-1"_s}, u"anything"_s));
    }

    void login_fails_whenNobodyListens()
    {
        QTcpServer closed;
        QVERIFY(closed.listen(QHostAddress::LocalHost));
        const quint16 port = closed.serverPort();
        closed.close();
        SessionFixture fixture;
        QCOMPARE(fixture.failToLogIn(u"127.0.0.1:%1"_s.arg(port)), int(LoginError::ConnectionFailed));
        const LoginError error = fixture.loginError();
        QCOMPARE(error.server, u"127.0.0.1"_s);
        QCOMPARE(error.port, port);
        QCOMPARE(error.request, 9u);
        QCOMPARE(error.asGroup, 1);
    }

    void login_fails_whenTheHostIsUnknown()
    {
        SessionFixture fixture;
        QCOMPARE(fixture.failToLogIn(u"no-such-host.invalid:8601"_s), int(LoginError::ServerNotAvailable));
    }

    void login_fails_whenTheAnswerIsNoSoap_data()
    {
        QTest::addColumn<bool>("tls");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<bool>("raw");
        for (const bool tls : {true, false}) {
            const QByteArray suffix = tls ? " over TLS" : "";
            QTest::newRow(("not found" + suffix).constData())
                << tls << 404 << QByteArray("<html>Not here</html>") << false;
            QTest::newRow(("not allowed" + suffix).constData()) << tls << 405 << QByteArray() << false;
            QTest::newRow(("page" + suffix).constData())
                << tls << 200 << QByteArray("<html><body>Hello</body></html>") << false;
            QTest::newRow(("garbage" + suffix).constData())
                << tls << 0 << QByteArray("\x01\x02garbage\xff\xfe\r\n\r\n", 14) << true;
            QTest::newRow(("cut off" + suffix).constData())
                << tls << 200 << QByteArray("<e:Envelope xmlns:e=\"x\"><e:Body>") << false;
            QTest::newRow(("nested" + suffix).constData())
                << tls << 200 << QByteArray("<a>").repeated(100000) << false;
            QTest::newRow(("document type" + suffix).constData())
                << tls << 200 << QByteArray("<!DOCTYPE a [<!ENTITY b \"c\">]><a>&b;</a>") << false;
        }
    }

    void login_fails_whenTheAnswerIsNoSoap()
    {
        QFETCH(bool, tls);
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(bool, raw);
        FakeOnvifDevice device;
        device.intercept = [&](const FakeRequest &) { return FakeAnswer{status, body, {}, raw}; };
        QVERIFY(device.start(tls ? u"first"_s : QString()));
        SessionFixture fixture;
        QCOMPARE(fixture.failToLogIn(device.target()), int(LoginError::FailedToSetupConnection));
        for (const FakeRequest &request : device.server.requests())
            QVERIFY(!request.headers.contains("authorization") && !request.body.contains("Password"));
    }

    void login_fails_whenTheAnswerIsTooLong()
    {
        FakeOnvifDevice device;
        device.intercept = [](const FakeRequest &) {
            return FakeAnswer{
                200, FakeOnvifDevice::envelope("<a>" + QByteArray(6 * 1024 * 1024, 'x') + "</a>"), {}};
        };
        QVERIFY(device.start());
        SessionFixture fixture;
        QCOMPARE(fixture.failToLogIn(device.target()), int(LoginError::FailedToSetupConnection));
    }

    void login_fails_whenTheServerIsSilent()
    {
        QTcpServer silent;
        QVERIFY(silent.listen(QHostAddress::LocalHost));
        SessionFixture fixture;
        fixture.times.loginDeadline = std::chrono::milliseconds(1500);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(fixture.failToLogIn(u"127.0.0.1:%1"_s.arg(silent.serverPort())),
                 int(LoginError::FailedToSetupConnection));
        QVERIFY(timer.elapsed() >= 1400);
        QCOMPARE(OnvifTimings().loginDeadline, std::chrono::milliseconds(10000));
    }

    void login_follows_noRedirect()
    {
        FakeOnvifDevice device;
        FakeHttpServer other;
        QVERIFY(other.start(u"first"_s));
        device.intercept = [&](const FakeRequest &) {
            return FakeAnswer{307,
                              {},
                              {"Location: https://127.0.0.1:" + QByteArray::number(other.port()) +
                               "/onvif/device_service"}};
        };
        QVERIFY(device.start());
        SessionFixture fixture;
        QCOMPARE(fixture.failToLogIn(device.target()), int(LoginError::FailedToSetupConnection));
        QVERIFY(other.requests().isEmpty());
    }

    void login_fails_onceForAWrongPassword_data()
    {
        QTest::addColumn<FakeOnvifDevice::Login>("login");
        QTest::newRow("digest") << FakeOnvifDevice::Login::Digest;
        QTest::newRow("token") << FakeOnvifDevice::Login::UsernameToken;
    }

    void login_fails_onceForAWrongPassword()
    {
        QFETCH(FakeOnvifDevice::Login, login);
        FakeOnvifDevice device;
        device.login = login;
        QVERIFY(device.start());
        SessionFixture fixture;
        QCOMPARE(fixture.failToLogIn(device.target(), u"wrong"_s), int(LoginError::BadLogin));
        QCOMPARE(device.loginAttempts, 1);
    }

    void password_neverLeaves_whenTheDeviceAsksForItInTheClear()
    {
        for (const QString &key : {u"first"_s, QString()}) {
            FakeOnvifDevice device;
            device.login = FakeOnvifDevice::Login::BasicOnly;
            QVERIFY(device.start(key));
            SessionFixture fixture;
            QCOMPARE(fixture.failToLogIn(device.target()), int(LoginError::BadLogin));
            QVERIFY(!device.server.received().contains(Password));
            QVERIFY(!device.server.received().contains(("admin:" + Password).toBase64()));
            QVERIFY(!device.server.received().toLower().contains("basic "));
        }
    }

    void refusal_isToldWithItsReason_data()
    {
        QTest::addColumn<QByteArray>("soap");
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("seconds");
        QTest::newRow("too many") << QByteArray("TooManyConnections") << QByteArray() << 1 << 0;
        QTest::newRow("hours") << QByteArray("OutsideHours") << QByteArray() << 3 << 0;
        QTest::newRow("locked") << QByteArray("AccountLocked") << QByteArray() << 12 << 95;
        QTest::newRow("address") << QByteArray("AddressNotPermitted") << QByteArray() << 13 << 0;
        QTest::newRow("JSON too many")
            << QByteArray() << QByteArray(R"({"refusal":"TooManyConnections"})") << 1 << 0;
        QTest::newRow("JSON locked") << QByteArray()
                                     << QByteArray(R"({"refusal":"AccountLocked","seconds":30})") << 12 << 30;
        QTest::newRow("JSON unknown") << QByteArray() << QByteArray(R"({"refusal":"Because"})") << 6 << 0;
    }

    void refusal_isToldWithItsReason()
    {
        QFETCH(QByteArray, soap);
        QFETCH(QByteArray, json);
        FakeOnvifDevice device;
        device.refusal = soap;
        device.hasExtension = true;
        device.jsonRefusal = json;
        QVERIFY(device.start());
        SessionFixture fixture;
        QTEST(fixture.failToLogIn(device.target()), "code");
        QTEST(fixture.loginError().lockoutSeconds, "seconds");
        if (!soap.isEmpty())
            QCOMPARE(device.loginAttempts, 1);
    }

    void httpStatus_isARefusalToo()
    {
        for (const auto &[status, code] : {std::pair(503, 1), std::pair(423, 12)}) {
            FakeOnvifDevice device;
            device.intercept = [status = status](const FakeRequest &) {
                return FakeAnswer{status, {}, {"Retry-After: 40"}};
            };
            QVERIFY(device.start());
            SessionFixture fixture;
            QCOMPARE(fixture.failToLogIn(device.target()), code);
            if (code == 12)
                QCOMPARE(fixture.loginError().lockoutSeconds, 40);
        }
    }

    void cleanup() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    void endpoint_isPatchedAndTrusted()
    {
        FakeOnvifDevice device;
        device.streamUri = "rtsps://user:pw@0.0.0.0:322/stream/high";
        QVERIFY(device.start());
        SessionFixture fixture;
        QVERIFY(fixture.logIn(device));
        const auto result = endpoint(fixture, 1, StreamQuality::Low);
        QVERIFY(result);
        const auto media = std::get<MediaEndpoint>(*result);
        QCOMPARE(media.url, QUrl(u"rtsps://127.0.0.1:322/stream/high"_s));
        QCOMPARE(media.trustedKey, FakeHttpServer::derKey(u"first"_s));
        QCOMPARE(media.privacyMask, QByteArray("1;0,0 5000,0 5000,5000"));
        QCOMPARE(media.credentials->user, u"admin"_s);
        // The session may ask for other things meanwhile.
        const auto lastStreamRequest = [&device] {
            QByteArray body;
            for (const FakeRequest &request : device.server.requests()) {
                if (request.body.contains("GetStreamUri"))
                    body = request.body;
            }
            return body;
        };
        QVERIFY(lastStreamRequest().contains("ProfileToken"));
        QVERIFY(lastStreamRequest().contains(">low<"));
        QVERIFY(endpoint(fixture, 1));
        QVERIFY(lastStreamRequest().contains(">high<"));
    }

    void endpoint_isRefused()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        QVERIFY(fixture.logIn(device));
        QCOMPARE(endpointError(fixture, 99), int(PlaybackError::NotFound));
        device.refuseStream = true;
        QCOMPARE(endpointError(fixture, 1), int(PlaybackError::NotPermitted));
        device.refuseStream = false;
        device.streamUri = "http://somewhere/else";
        QCOMPARE(endpointError(fixture, 1), int(PlaybackError::NotFound));
    }

    void endpoint_isAnswered_whenTheSessionIsLostMeanwhile()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        QVERIFY(fixture.logIn(device));
        device.intercept = [&](const FakeRequest &request) -> std::optional<FakeAnswer> {
            if (request.body.contains("GetStreamUri"))
                QMetaObject::invokeMethod(&device, [&] { device.server.stop(); }, Qt::QueuedConnection);
            return {};
        };
        device.streamUri = "";
        std::optional<MediaEndpointResult> result;
        fixture.session->requestMediaEndpoint(1, StreamQuality::High, nullptr,
                                              [&](const MediaEndpointResult &answer) { result = answer; });
        QTRY_VERIFY(result);
        QTRY_COMPARE(fixture.lost->size(), 1);
        QCOMPARE(endpointError(fixture, 1), int(PlaybackError::StreamLost));
    }

    void lostDevice_isReportedOnceAndComesBack()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        QVERIFY(fixture.logIn(device));
        device.server.stop();
        QTRY_COMPARE(fixture.lost->size(), 1);
        QTest::qWait(300);
        QCOMPARE(fixture.lost->size(), 1);
        QCOMPARE(fixture.restored->size(), 0);
        QVERIFY(device.start());
        QTRY_COMPARE(fixture.restored->size(), 1);
        QCOMPARE(fixture.described->size(), 2);
        QCOMPARE(fixture.opened->size(), 1);
        QVERIFY(fixture.failed->isEmpty());
    }

    void silentDevice_isLost_afterTheSecondQuestion()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        QVERIFY(fixture.logIn(device));
        int unanswered = 0;
        device.intercept = [&](const FakeRequest &) -> std::optional<FakeAnswer> {
            ++unanswered;
            return FakeAnswer{500, "what?", {}};
        };
        QTRY_COMPARE(fixture.lost->size(), 1);
        QVERIFY(unanswered >= 2);
        QCOMPARE(fixture.lost->first().first().value<ConnectionError>().errorId(),
                 int(ConnectionError::ProtocolError));
    }

    void closedSession_saysNothingMore()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        fixture.open(device.target());
        fixture.session->close();
        QTest::qWait(300);
        QVERIFY(fixture.opened->isEmpty() && fixture.failed->isEmpty() && fixture.described->isEmpty());
        QVERIFY(device.loginAttempts == 0);
    }

    void password_isWrittenNowhere()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        QVERIFY(fixture.logIn(device));
        QVERIFY(endpoint(fixture, 1));
        device.server.stop();
        QTRY_COMPARE(fixture.lost->size(), 1);
        QTest::qWait(100);
        const QByteArray written = fixture.everythingWritten();
        QVERIFY(written.contains("connection lost"));
        QVERIFY(written.contains(FakeHttpServer::derKey(u"first"_s).toBase64()));
        QVERIFY(!written.contains(Password));
        QVERIFY(!written.contains(Password.toBase64()));
    }
};

QTEST_GUILESS_MAIN(TestOnvifSession)
#include "tst_onvifsession.moc"
