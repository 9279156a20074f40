// SPDX-License-Identifier: GPL-3.0-or-later
#include "login/keyfingerprints.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/loginerror.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/publickeychecker.h>

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

using namespace orrin;
using namespace Qt::StringLiterals;

class TestKeyFingerprints : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init() { OrrinSDK::initInstance(u"orrin-tests"_s, u"tst_keyfingerprints"_s, nullptr, u"test.log"_s); }
    void cleanup() { OrrinSDK::shutdown(); }

    void fingerprint_isTheDigestInPairs()
    {
        // The digest of "abc" is a test vector of FIPS 180-2.
        QCOMPARE(KeyFingerprints::fingerprint("abc"), u"BA:78:16:BF:8F:01:CF:EA\n41:41:40:DE:5D:AE:22:23\n"
                                                      "B0:03:61:A3:96:17:7A:9C\nB4:10:FF:61:F2:00:15:AD"_s);
        QCOMPARE(KeyFingerprints::fingerprint({}), QString());
    }

    void bothKeys_areShown_whenTheKeyChanged()
    {
        PublicKeyChecker::setDerKey(u"recorder.example:8601"_s, "old");
        KeyFingerprints keys;
        QSignalSpy changed(&keys, &KeyFingerprints::changed);
        LoginError error;
        error.error = LoginError::PublicKeyChanged;
        error.server = u"recorder.example"_s;
        error.port = 8601;
        error.loginData = LoginData(u"recorder.example:8601"_s);
        error.loginData.negotiationData().derKey() = "new";
        Q_EMIT OrrinSDK::instance()->connectionManager()->loginError(error);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(keys.trusted(), KeyFingerprints::fingerprint("old"));
        QCOMPARE(keys.shown(), KeyFingerprints::fingerprint("new"));
        PublicKeyChecker::removeDerKey(u"recorder.example:8601"_s);
    }

    void otherErrors_changeNothing()
    {
        KeyFingerprints keys;
        QSignalSpy changed(&keys, &KeyFingerprints::changed);
        LoginError error;
        error.error = LoginError::BadLogin;
        Q_EMIT OrrinSDK::instance()->connectionManager()->loginError(error);
        QCOMPARE(changed.size(), 0);
    }
};

QTEST_GUILESS_MAIN(TestKeyFingerprints)
#include "tst_keyfingerprints.moc"
