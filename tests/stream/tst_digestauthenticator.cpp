// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/stream/rtsp/digestauthenticator.h"
#include "core/stream/rtsp/parameterlist.h"

#include <QTest>

using namespace orrin::rtsp;

class TestDigestAuthenticator : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void authorization_matchesTheStandardsExamples_data();
    void authorization_matchesTheStandardsExamples();
    void authorization_answersWithoutQop();
    void authorization_countsTheNonce();
    void challenge_prefersTheStrongest();
    void challenge_isRefused_whenItCannotBeAnsweredSafely_data();
    void challenge_isRefused_whenItCannotBeAnsweredSafely();
    void basic_isAnswered_whenAllowed();
    void quotes_areEscaped();
};

// RFC 7616, section 3.9.1.
void TestDigestAuthenticator::authorization_matchesTheStandardsExamples_data()
{
    QTest::addColumn<QByteArray>("algorithm");
    QTest::addColumn<QByteArray>("response");
    QTest::newRow("MD5") << QByteArray("MD5") << QByteArray("8ca523f5e9506fed4657c9700eebdbec");
    QTest::newRow("SHA-256") << QByteArray("SHA-256")
                             << QByteArray("753927fa0e85d155564e2e272a28d1802ca10daf4496794697cf8db5856cb6c1");
}

void TestDigestAuthenticator::authorization_matchesTheStandardsExamples()
{
    QFETCH(QByteArray, algorithm);
    QFETCH(QByteArray, response);
    DigestAuthenticator authenticator;
    authenticator.setCredentials(QStringLiteral("Mufasa"), QStringLiteral("Circle of Life"), false);
    authenticator.setClientNonce("f2/wE4q74E6zIJEtWaHKaf5wv/H5QzzpXusqGemxURZJ");
    QVERIFY(authenticator.challenge({"Digest realm=\"http-auth@example.org\", qop=\"auth, auth-int\", algorithm=" + algorithm
                                     + ", nonce=\"7ypf/xlj9XXwfDPEoM4URrv/xwf94BcCAzFZH4GiTo0v\","
                                       " opaque=\"FQhe/qaU925kfnzjCev0ciny7QMkPqMAFRtzCUYo5tdS\""}));
    const QByteArray value = authenticator.authorization("GET", "/dir/index.html");
    QVERIFY(value.startsWith("Digest "));
    const ParameterList parameters(QByteArrayView(value).sliced(7), ',');
    QCOMPARE(parameters.value("response"), response);
    QCOMPARE(parameters.value("nc"), QByteArray("00000001"));
    QCOMPARE(parameters.value("qop"), QByteArray("auth"));
    QCOMPARE(parameters.value("algorithm"), algorithm);
    QCOMPARE(parameters.value("opaque"), QByteArray("FQhe/qaU925kfnzjCev0ciny7QMkPqMAFRtzCUYo5tdS"));
    QVERIFY(!value.contains("Circle"));
}

// RFC 2617's user in the form without qop.
void TestDigestAuthenticator::authorization_answersWithoutQop()
{
    DigestAuthenticator authenticator;
    authenticator.setCredentials(QStringLiteral("Mufasa"), QStringLiteral("Circle Of Life"), false);
    QVERIFY(authenticator.challenge({"Digest realm=\"testrealm@host.com\", nonce=\"dcd98b7102dd2f0e8b11d0f600bfb0c093\""}));
    const QByteArray value = authenticator.authorization("GET", "/dir/index.html");
    const ParameterList parameters(QByteArrayView(value).sliced(7), ',');
    QCOMPARE(parameters.value("response"), QByteArray("670fd8c2df070c60b045671b8b24ff02"));
    QVERIFY(!parameters.contains("qop"));
    QVERIFY(!parameters.contains("algorithm"));
}

void TestDigestAuthenticator::authorization_countsTheNonce()
{
    DigestAuthenticator authenticator;
    authenticator.setCredentials(QStringLiteral("u"), QStringLiteral("p"), false);
    QVERIFY(authenticator.authorization("PLAY", "*").isEmpty());
    QVERIFY(authenticator.challenge({"Digest realm=r, nonce=n, qop=auth"}));
    QVERIFY(authenticator.authorization("PLAY", "*").contains("nc=00000001"));
    QVERIFY(authenticator.authorization("PLAY", "*").contains("nc=00000002"));
    QVERIFY(authenticator.challenge({"Digest realm=r, nonce=m, qop=auth"}));
    QVERIFY(authenticator.authorization("PLAY", "*").contains("nc=00000001"));
}

void TestDigestAuthenticator::challenge_prefersTheStrongest()
{
    DigestAuthenticator authenticator;
    authenticator.setCredentials(QStringLiteral("u"), QStringLiteral("p"), true);
    QVERIFY(authenticator.challenge({"Basic realm=r", "Digest realm=r, nonce=n, algorithm=SHA-256",
                                     "Digest realm=r, nonce=n, algorithm=MD5"}));
    QVERIFY(authenticator.authorization("PLAY", "*").contains("SHA-256"));
}

void TestDigestAuthenticator::challenge_isRefused_whenItCannotBeAnsweredSafely_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("basic in the clear") << QByteArray("Basic realm=\"x\"");
    QTest::newRow("unknown algorithm") << QByteArray("Digest realm=r, nonce=n, algorithm=MD4");
    QTest::newRow("integrity only") << QByteArray("Digest realm=r, nonce=n, qop=auth-int");
    QTest::newRow("no nonce") << QByteArray("Digest realm=r");
    QTest::newRow("another scheme") << QByteArray("Bearer abc");
    QTest::newRow("empty") << QByteArray();
}

void TestDigestAuthenticator::challenge_isRefused_whenItCannotBeAnsweredSafely()
{
    QFETCH(QByteArray, text);
    DigestAuthenticator authenticator;
    authenticator.setCredentials(QStringLiteral("u"), QStringLiteral("p"), false);
    QVERIFY(!authenticator.challenge({text}));
    QVERIFY(authenticator.authorization("PLAY", "*").isEmpty());
}

void TestDigestAuthenticator::basic_isAnswered_whenAllowed()
{
    DigestAuthenticator authenticator;
    authenticator.setCredentials(QStringLiteral("Aladdin"), QStringLiteral("open sesame"), true);
    QVERIFY(authenticator.challenge({"Basic realm=\"x\""}));
    QCOMPARE(authenticator.authorization("PLAY", "*"), QByteArray("Basic QWxhZGRpbjpvcGVuIHNlc2FtZQ=="));
}

void TestDigestAuthenticator::quotes_areEscaped()
{
    DigestAuthenticator authenticator;
    authenticator.setCredentials(QStringLiteral("a\"b\\c"), QStringLiteral("p"), false);
    QVERIFY(authenticator.challenge({"Digest realm=\"r\", nonce=\"n\""}));
    QVERIFY(authenticator.authorization("PLAY", "*").contains("username=\"a\\\"b\\\\c\""));
}

QTEST_APPLESS_MAIN(TestDigestAuthenticator)
#include "tst_digestauthenticator.moc"
