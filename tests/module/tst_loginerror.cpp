// SPDX-License-Identifier: GPL-3.0-or-later
#include <contract/core/loginerror.h>

#include <QMetaType>
#include <QTest>
#include <QTranslator>

using namespace orrin;

// Referenced so that the module, which registers the types, is linked.
extern void qml_register_types_orrinsdkqml();
static void (*const volatile registrar)() = &qml_register_types_orrinsdkqml;

namespace {

/*! Marks every text with the context that it is asked in. */
class MarkingTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *sourceText, const char *, int) const override
    {
        return QLatin1Char('[') + QLatin1StringView(context) + QLatin1Char(']') +
               QLatin1StringView(sourceText);
    }
};

LoginError makeError(int code)
{
    LoginError error;
    error.error = code;
    error.server = QStringLiteral("recorder.example");
    error.port = 8601;
    return error;
}

} // namespace

class tst_LoginError : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(registrar); }

    void toString_givesText_whenCodeIs_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        const QString end = QStringLiteral(" Server: recorder.example, port: 8601");
        const auto row = [&end](int code, const char *text, bool withServer = true) {
            QTest::addRow("%d", code) << code << QString::fromLatin1(text) + (withServer ? end : QString());
        };
        row(0, "No error", false);
        row(1, "Too many open connections.");
        row(2, "Invalid username or password.");
        row(3, "Login not permitted at this time.");
        row(4, "Failed to connect to the server.");
        row(5, "Server is not available.");
        row(6, "Failed to set up connection.");
        row(7, "Password required for encrypted archive recorder.example.", false);
        row(8, "Unknown error.");
        row(9, "No such file or directory.", false);
        row(10, "File is not a recognized archive.", false);
        row(11, "Server's public key has changed.");
        row(13, "Login not permitted from this address.");
        row(14, "Unknown error.");
        row(-1, "Unknown error.");
    }

    void toString_givesText_whenCodeIs()
    {
        QFETCH(int, code);
        QFETCH(QString, text);
        QCOMPARE(makeError(code).toString(), text);
    }

    void toString_givesLockTime_whenAccountIsLocked_data()
    {
        QTest::addColumn<int>("seconds");
        QTest::addColumn<QString>("time");
        QTest::newRow("0") << 0 << QStringLiteral("0 seconds");
        QTest::newRow("1") << 1 << QStringLiteral("1 seconds");
        QTest::newRow("60") << 60 << QStringLiteral("60 seconds");
        QTest::newRow("61") << 61 << QStringLiteral("1 minute");
        QTest::newRow("119") << 119 << QStringLiteral("1 minute");
        QTest::newRow("120") << 120 << QStringLiteral("2 minutes");
        QTest::newRow("179") << 179 << QStringLiteral("2 minutes");
        QTest::newRow("3600") << 3600 << QStringLiteral("60 minutes");
    }

    void toString_givesLockTime_whenAccountIsLocked()
    {
        QFETCH(int, seconds);
        QFETCH(QString, time);
        LoginError error = makeError(12);
        error.lockoutSeconds = seconds;
        QCOMPARE(
            error.toString(),
            QStringLiteral("Your account is locked for %1. Server: recorder.example, port: 8601").arg(time));
    }

    void toString_keepsHost_whenHostLooksLikePlaceholder()
    {
        LoginError error = makeError(2);
        error.server = QStringLiteral("%2");
        QCOMPARE(error.toString(), QStringLiteral("Invalid username or password. Server: %2, port: 8601"));
    }

    void toString_isTranslated_inItsContext()
    {
        MarkingTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        QCOMPARE(makeError(0).toString(), QStringLiteral("[orrin::LoginError]No error"));
        QVERIFY(makeError(12).toString().startsWith(QStringLiteral("[orrin::LoginError]Your account")));
        QVERIFY(makeError(2).toString().startsWith(QStringLiteral("[orrin::LoginError]Invalid")));
        QCoreApplication::removeTranslator(&translator);
    }

    void newObject_hasNoError()
    {
        const LoginError error;
        QVERIFY(!error.hasError());
        QCOMPARE(error.errorId(), 0);
        QCOMPARE(error.port, 0);
        QCOMPARE(error.retryPossible, 1);
        QCOMPARE(error.asGroup, 0);
        QVERIFY(error.server.isEmpty());
        QCOMPARE(error.toString(), QStringLiteral("No error"));
    }

    void reset_clearsCodeHostAndPort_andLeavesTheRest()
    {
        LoginError error = makeError(12);
        error.detail = QStringLiteral("detail");
        error.retryPossible = 0;
        error.request = 7;
        error.asGroup = 1;
        error.lockoutSeconds = 30;
        error.loginData = LoginData(QStringLiteral("recorder.example:8601"));
        QVERIFY(error.hasError());

        error.reset();
        QVERIFY(!error.hasError());
        QCOMPARE(error.errorId(), 0);
        QCOMPARE(error.retryPossible, 1);
        QVERIFY(error.server.isEmpty());
        QCOMPARE(error.port, 0);
        QCOMPARE(error.detail, QStringLiteral("detail"));
        QCOMPARE(error.request, 7u);
        QCOMPARE(error.asGroup, 1);
        QCOMPARE(error.lockoutSeconds, 30);
        QCOMPARE(error.loginData.targetAndPort(), QStringLiteral("recorder.example:8601"));
    }

    void metaTypes_areKnownByName_onceTheModuleIsLoaded()
    {
        QVERIFY(QMetaType::fromName("orrin::LoginError").isValid());
        QVERIFY(QMetaType::fromName("orrin::Server*").isValid());
    }
};

QTEST_GUILESS_MAIN(tst_LoginError)
#include "tst_loginerror.moc"
