// SPDX-License-Identifier: GPL-3.0-or-later
#include "sessionfixture.h"

#include <contract/core/orrinsdk.h>
#include <contract/core/preferences.h>
#include <contract/core/publickeychecker.h>
#include <contract/core/securitypreferences.h>

#include <QTest>

using namespace orrin;
using namespace orrin::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray first()
{
    return FakeHttpServer::derKey(u"first"_s);
}

QByteArray second()
{
    return FakeHttpServer::derKey(u"second"_s);
}

void setKeyCheck(bool on)
{
    const auto group = QSharedPointer<SecurityPreferences>::create();
    group->item(SecurityPreferences::PUBLIC_KEY_CHECK, QString())->setValue(on);
    OrrinSDK::instance()->preferences()->addPreferenceGroup(group);
}

} // namespace

class TestOnvifSessionTrust : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    void key_isPinned_atTheFirstLogin()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        QCOMPARE(PublicKeyChecker::derKey(device.target()), QByteArray());
        QVERIFY(fixture.logIn(device));
        QCOMPARE(PublicKeyChecker::derKey(device.target()), first());
    }

    void key_isNotPinned_whenTheLoginFails()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        QCOMPARE(fixture.failToLogIn(device.target(), u"wrong"_s), int(LoginError::BadLogin));
        QCOMPARE(PublicKeyChecker::derKey(device.target()), QByteArray());
    }

    void changedKey_stopsTheLogin_beforeAnyRequest()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start(u"second"_s));
        SessionFixture fixture;
        PublicKeyChecker::setDerKey(device.target(), first());
        QCOMPARE(fixture.failToLogIn(device.target()), int(LoginError::PublicKeyChanged));
        LoginError error = fixture.loginError();
        QCOMPARE(error.loginData.targetAndPort(), device.target());
        QCOMPARE(error.loginData.negotiationData().derKey(), second());
        QVERIFY(device.server.requests().isEmpty());
        QCOMPARE(PublicKeyChecker::derKey(device.target()), first());

        PublicKeyChecker::setDerKey(error.loginData.targetAndPort(),
                                    error.loginData.negotiationData().derKey());
        QVERIFY(fixture.logIn(device));
    }

    void changedKey_isTaken_whenTheOptionIsOff()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start(u"second"_s));
        SessionFixture fixture;
        setKeyCheck(false);
        PublicKeyChecker::setDerKey(device.target(), first());
        QVERIFY(fixture.logIn(device));
        QCOMPARE(PublicKeyChecker::derKey(device.target()), first());
    }

    void unknownKey_isNotPinned_whenTheOptionIsOff()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        setKeyCheck(false);
        QVERIFY(fixture.logIn(device));
        QCOMPARE(PublicKeyChecker::derKey(device.target()), QByteArray());
    }

    void pinnedTarget_isNotSpokenTo_withoutTls()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start(QString()));
        SessionFixture fixture;
        PublicKeyChecker::setDerKey(device.target(), first());
        QCOMPARE(fixture.failToLogIn(device.target()), int(LoginError::FailedToSetupConnection));
        QVERIFY(device.server.requests().isEmpty());
    }

    void standingSession_isLostForGood_whenTheKeyChanges()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        QVERIFY(fixture.logIn(device));
        device.server.stop();
        device.server.forget();
        QVERIFY(device.start(u"second"_s));
        QTRY_COMPARE(fixture.lost->size(), 1);
        QTest::qWait(500);
        QVERIFY(fixture.restored->isEmpty());
        QVERIFY(device.server.requests().isEmpty());
        // The user trusts the new key: the session comes back by itself.
        PublicKeyChecker::setDerKey(device.target(), second());
        QTRY_COMPARE(fixture.restored->size(), 1);
    }

    void standingSession_isNotContinued_withoutTls()
    {
        FakeOnvifDevice device;
        QVERIFY(device.start());
        SessionFixture fixture;
        setKeyCheck(false);
        QVERIFY(fixture.logIn(device));
        device.server.stop();
        device.server.forget();
        QVERIFY(device.start(QString()));
        QTRY_COMPARE(fixture.lost->size(), 1);
        QTest::qWait(1000);
        QVERIFY(fixture.restored->isEmpty());
        for (const FakeRequest &request : device.server.requests())
            QVERIFY(!request.headers.contains("authorization"));
    }
};

QTEST_GUILESS_MAIN(TestOnvifSessionTrust)
#include "tst_onvifsession_trust.moc"
