// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/digestauth.h"

#include <QCryptographicHash>
#include <QTest>

using namespace orrin::demo;
using namespace Qt::StringLiterals;

namespace {

struct Login
{
    QByteArray user = "guest";
    QByteArray password = "orrin-guest";
    QByteArray method = "GET";
    QByteArray target = "/orrin/v1/site";
    QByteArray count = "00000001";
};

QByteArray header(const QByteArray &challenge, const Login &login)
{
    const auto given = DigestAuth::parse(challenge);
    const auto algorithm =
        given.value("algorithm") == "MD5" ? QCryptographicHash::Md5 : QCryptographicHash::Sha256;
    const auto hash = [algorithm](const QByteArray &data) {
        return QCryptographicHash::hash(data, algorithm).toHex();
    };
    const QByteArray ha1 = hash(login.user + ':' + given.value("realm") + ':' + login.password);
    const QByteArray ha2 = hash(login.method + ':' + login.target);
    const QByteArray response =
        hash(ha1 + ':' + given.value("nonce") + ':' + login.count + ":c0ffee:auth:" + ha2);
    return "Digest username=\"" + login.user + "\", realm=\"" + given.value("realm") + "\", nonce=\"" +
           given.value("nonce") + "\", uri=\"" + login.target + "\", algorithm=" + given.value("algorithm") +
           ", qop=auth, nc=" + login.count + ", cnonce=\"c0ffee\", response=\"" + response + '"';
}

HttpRequest request(const QByteArray &authorization)
{
    HttpRequest result;
    result.method = "GET";
    result.target = "/orrin/v1/site";
    result.authorization = authorization;
    return result;
}

} // namespace

class TestDigestAuth : public QObject
{
    Q_OBJECT

private:
    Accounts m_accounts{Site::builtIn().users, 0, std::chrono::seconds(60)};
    using Outcome = DigestAuth::Outcome;

private Q_SLOTS:
    void challenges_offerTheBetterAlgorithmFirst()
    {
        DigestAuth auth(u"North"_s);
        const auto challenges = auth.challenges(false);
        QCOMPARE(challenges.size(), 2);
        QCOMPARE(DigestAuth::parse(challenges.at(0)).value("algorithm"), "SHA-256");
        QCOMPARE(DigestAuth::parse(challenges.at(1)).value("algorithm"), "MD5");
        QCOMPARE(DigestAuth::parse(challenges.at(0)).value("realm"), "North");
        QVERIFY(!challenges.at(0).contains("stale"));
        QCOMPARE(DigestAuth::parse(auth.challenges(true).at(1)).value("stale"), "true");
    }

    void check_accepts_eitherAlgorithm()
    {
        DigestAuth auth(u"North"_s);
        for (const QByteArray &challenge : auth.challenges(false) + auth.challenges(false).sliced(1)) {
            auto fresh = auth.challenges(false);
            const QByteArray same = challenge.contains("MD5") ? fresh.at(1) : fresh.at(0);
            const auto result = auth.check(request(header(same, {})), m_accounts);
            QCOMPARE(result.outcome, Outcome::Accepted);
            QCOMPARE(result.user, u"guest"_s);
        }
    }

    void check_rejects_whatIsWrong()
    {
        DigestAuth auth(u"North"_s);
        const QByteArray challenge = auth.challenges(false).constFirst();
        QCOMPARE(auth.check(request({}), m_accounts).outcome, Outcome::NoCredentials);
        QCOMPARE(auth.check(request("Basic Z3Vlc3Q6b3JyaW4tZ3Vlc3Q="), m_accounts).outcome, Outcome::Wrong);
        Login login;
        login.password = "orrin-admin";
        QCOMPARE(auth.check(request(header(challenge, login)), m_accounts).outcome, Outcome::Wrong);
        login = {};
        login.user = "nobody";
        QCOMPARE(auth.check(request(header(challenge, login)), m_accounts).outcome, Outcome::Wrong);
        login = {};
        login.target = "/orrin/v1/session";
        QCOMPARE(auth.check(request(header(challenge, login)), m_accounts).outcome, Outcome::Wrong);
        login = {};
        login.method = "POST";
        QCOMPARE(auth.check(request(header(challenge, login)), m_accounts).outcome, Outcome::Wrong);
        QCOMPARE(auth.check(request(header(challenge, {}).replace("qop=auth, ", "")), m_accounts).outcome,
                 Outcome::Wrong);
        QCOMPARE(auth.check(request(header(challenge, {})), m_accounts).outcome, Outcome::Accepted);
    }

    void check_acceptsEachCountOnce()
    {
        DigestAuth auth(u"North"_s);
        const QByteArray challenge = auth.challenges(false).constFirst();
        const auto outcome = [&](const char *count) {
            Login login;
            login.count = count;
            return auth.check(request(header(challenge, login)), m_accounts).outcome;
        };
        QCOMPARE(outcome("00000001"), Outcome::Accepted);
        QCOMPARE(outcome("00000001"), Outcome::Stale);
        QCOMPARE(outcome("00000003"), Outcome::Accepted);
        QCOMPARE(outcome("00000002"), Outcome::Accepted);
        QCOMPARE(outcome("00000002"), Outcome::Stale);
        QCOMPARE(outcome("00000100"), Outcome::Accepted);
        QCOMPARE(outcome("00000004"), Outcome::Stale);
        QCOMPARE(outcome("00000000"), Outcome::Wrong);
    }

    void check_isStale_forANonceOfAnotherServer()
    {
        DigestAuth auth(u"North"_s);
        DigestAuth other(u"North"_s);
        QCOMPARE(auth.check(request(header(other.challenges(false).constFirst(), {})), m_accounts).outcome,
                 Outcome::Stale);
        QCOMPARE(
            auth.check(request(header("Digest realm=\"North\", nonce=\"\", algorithm=MD5", {})), m_accounts)
                .outcome,
            Outcome::Stale);
    }

    void parse_survivesAnything_data()
    {
        QTest::addColumn<QByteArray>("header");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("name only") << QByteArray("Digest");
        QTest::newRow("open quote") << QByteArray("Digest username=\"abc");
        QTest::newRow("no value") << QByteArray("Digest username=");
        QTest::newRow("escape at the end") << QByteArray("Digest a=\"\\");
        QTest::newRow("commas") << QByteArray("Digest ,,,,=,=,=");
        QTest::newRow("long") << "Digest a=" + QByteArray(100000, 'x');
        QTest::newRow("zero") << QByteArray("Digest a=\"\0\0\", b=1", 20);
    }

    void parse_survivesAnything()
    {
        QFETCH(QByteArray, header);
        DigestAuth auth(u"North"_s);
        QVERIFY(auth.check(request(header), m_accounts).outcome != Outcome::Accepted);
    }

    void accounts_lockAfterWrongPasswords_andOnlyThen()
    {
        Accounts accounts(Site::builtIn().users, 3, std::chrono::seconds(60));
        accounts.reportWrongPassword(u"guest"_s);
        accounts.reportWrongPassword(u"guest"_s);
        accounts.reportSuccess(u"guest"_s);
        accounts.reportWrongPassword(u"guest"_s);
        accounts.reportWrongPassword(u"guest"_s);
        QVERIFY(!accounts.lockRefusal(u"guest"_s));
        accounts.reportWrongPassword(u"guest"_s);
        const Refusal refusal = accounts.lockRefusal(u"guest"_s);
        QCOMPARE(refusal.reason, Refusal::Reason::AccountLocked);
        QVERIFY(refusal.seconds > 55 && refusal.seconds <= 60);
        QVERIFY(!accounts.lockRefusal(u"admin"_s));
        accounts.lock(u"guest"_s, std::chrono::seconds(0));
        QVERIFY(!accounts.lockRefusal(u"guest"_s));
    }
};

QTEST_APPLESS_MAIN(TestDigestAuth)
#include "tst_digestauth.moc"
