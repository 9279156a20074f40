// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/qmlconnectionmanager.h"

#include "core/connectionmanager_p.h"

#include <contract/core/connectionmanager.h>
#include <contract/core/loginerror.h>
#include <contract/core/orrinsdk.h>
#include <contract/core/publickeychecker.h>

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace orrin;

namespace {

/*! A login that was asked for. */
struct Request
{
    QString hostAndPort;
    QString user;
    QString password;
    bool asGroup;

    friend bool operator==(const Request &, const Request &) = default;
};

/*! A session that never answers. */
class SilentSession : public Session
{
public:
    void open() override {}
    void close() override {}
    void requestMediaEndpoint(int, StreamQuality, QObject *, MediaEndpointCallback) override {}
    Connection *connection() override { return nullptr; }
};

class SilentConnector : public Connector
{
public:
    explicit SilentConnector(QList<Request> &requests) : requests(requests) {}

    std::unique_ptr<Session> createSession(const CorvaneUrl &url, const SharedCredentials &credentials,
                                           bool asGroup, unsigned) override
    {
        requests.append({url.hostAndPort(), credentials->user, credentials->password, asGroup});
        return std::make_unique<SilentSession>();
    }

private:
    QList<Request> &requests;
};

/*! Notes the signals of an object in their order, with the values that a handler finds. */
class SignalLog
{
public:
    explicit SignalLog(QmlConnectionManager *object)
    {
        const auto note = [this, object](const char *name) {
            return [this, object, name] {
                entries.append(QStringLiteral("%1 %2 %3")
                                   .arg(QLatin1StringView(name), object->statusString())
                                   .arg(int(object->error())));
            };
        };
        QObject::connect(object, &QmlConnectionManager::hostAndPortChanged, object, note("host"));
        QObject::connect(object, &QmlConnectionManager::usernameChanged, object, note("username"));
        QObject::connect(object, &QmlConnectionManager::passwordChanged, object, note("password"));
        QObject::connect(object, &QmlConnectionManager::statusChanged, object, note("status"));
        QObject::connect(object, &QmlConnectionManager::errorChanged, object, note("error"));
    }

    QStringList take() { return std::exchange(entries, {}); }

private:
    QStringList entries;
};

LoginError makeError(int code, const QString &target = {}, const QByteArray &key = {})
{
    LoginError error;
    error.error = code;
    error.server = QStringLiteral("recorder.example");
    error.port = 8601;
    error.loginData = LoginData(target);
    error.loginData.negotiationData().derKey() = key;
    return error;
}

} // namespace

class tst_QmlConnectionManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(home.isValid());
        qputenv("HOME", QFile::encodeName(home.path()));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()) + "/config");
        QStandardPaths::setTestModeEnabled(true);
    }

    void init()
    {
        requests.clear();
        OrrinSDK::initInstance(QStringLiteral("Orrinworks"), QStringLiteral("test"), nullptr,
                               QStringLiteral("test.log"));
        core = OrrinSDK::instance()->connectionManager();
        core->d_func()->setConnector(std::make_unique<SilentConnector>(requests));
    }

    void cleanup() { OrrinSDK::shutdown(); }

    void newObject_isInvalidWithoutError()
    {
        const QmlConnectionManager manager;
        QCOMPARE(manager.status(), QmlConnectionManager::Invalid);
        QCOMPARE(manager.statusString(), QStringLiteral("Invalid"));
        QCOMPARE(manager.error(), QmlConnectionManager::SUCCESSFUL);
        QCOMPARE(manager.errorString(), QStringLiteral("No error"));
        QCOMPARE(manager.hostAndPort(), QString());
        QCOMPARE(manager.username(), QString());
        QCOMPARE(manager.password(), QString());
    }

    void enums_haveTheirValues()
    {
        QCOMPARE(int(QmlConnectionManager::Invalid), 0);
        QCOMPARE(int(QmlConnectionManager::Disconnected), 1);
        QCOMPARE(int(QmlConnectionManager::Error), 2);
        QCOMPARE(int(QmlConnectionManager::Connecting), 3);
        QCOMPARE(int(QmlConnectionManager::Connected), 4);
        const QMetaEnum errors = QMetaEnum::fromType<QmlConnectionManager::ErrorType>();
        const QList<QByteArray> names = {"SUCCESSFUL",
                                         "TOO_MANY_OPEN_CONNECTIONS",
                                         "BAD_LOGIN",
                                         "LOGIN_NOT_PERMITTED",
                                         "CONNECTION_FAILED",
                                         "SERVER_NOT_AVAILABLE",
                                         "FAILED_TO_SETUP_CONNECTION",
                                         "PASSWORD_REQUIRED_FOR_ENCRYPTED_ARCHIVE",
                                         "UNKNOWN_ERROR",
                                         "NO_SUCH_FILE_OR_DIRECTORY",
                                         "FILE_IS_NOT_RECOGNIZED_ARCHIVE",
                                         "PUBLIC_KEY_CHANGED"};
        QCOMPARE(errors.keyCount(), names.size());
        for (int i = 0; i < names.size(); ++i) {
            QCOMPARE(errors.key(i), names.at(i));
            QCOMPARE(errors.value(i), i);
        }
    }

    void signals_standInTheirOrder()
    {
        const QMetaObject &meta = QmlConnectionManager::staticMetaObject;
        QList<QByteArray> names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            if (meta.method(i).methodType() == QMetaMethod::Signal)
                names.append(meta.method(i).name());
        }
        QCOMPARE(names, QList<QByteArray>({"hostAndPortChanged", "usernameChanged", "passwordChanged",
                                           "statusChanged", "errorChanged"}));
    }

    void setHostAndPort_takesDefaultPort_whenTextHasNone()
    {
        QmlConnectionManager manager;
        QSignalSpy changed(&manager, &QmlConnectionManager::hostAndPortChanged);
        manager.setHostAndPort(QStringLiteral("recorder.example"));
        QCOMPARE(manager.hostAndPort(), QStringLiteral("recorder.example:8601"));
        QCOMPARE(changed.count(), 1);
        manager.setHostAndPort(QStringLiteral("recorder.example:9000"));
        QCOMPARE(manager.hostAndPort(), QStringLiteral("recorder.example:9000"));
        QCOMPARE(changed.count(), 2);
    }

    void setHostAndPort_isSilent_whenTextIsWhatIsRead()
    {
        QmlConnectionManager manager;
        QSignalSpy changed(&manager, &QmlConnectionManager::hostAndPortChanged);
        manager.setHostAndPort(QStringLiteral("recorder.example:8601"));
        manager.setHostAndPort(QStringLiteral("recorder.example:8601"));
        QCOMPARE(changed.count(), 1);
        // Compared is the canonical form: the short one differs from it.
        manager.setHostAndPort(QStringLiteral("recorder.example"));
        QCOMPARE(changed.count(), 2);
    }

    void setUserAndPassword_signalOnChangeOnly()
    {
        QmlConnectionManager manager;
        SignalLog log(&manager);
        manager.setUsername(QStringLiteral("anna"));
        manager.setUsername(QStringLiteral("anna"));
        manager.setPassword(QStringLiteral("secret"));
        manager.setPassword(QStringLiteral("secret"));
        QCOMPARE(log.take(),
                 QStringList({QStringLiteral("username Invalid 0"), QStringLiteral("password Invalid 0")}));
        QCOMPARE(manager.username(), QStringLiteral("anna"));
        QCOMPARE(manager.password(), QStringLiteral("secret"));
    }

    void connectServers_doesNothing_whenAFieldIsEmpty_data()
    {
        QTest::addColumn<QString>("host");
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("password");
        const QString text = QStringLiteral("text");
        QTest::newRow("host") << QString() << text << text;
        QTest::newRow("user") << text << QString() << text;
        QTest::newRow("password") << text << text << QString();
    }

    void connectServers_doesNothing_whenAFieldIsEmpty()
    {
        QFETCH(QString, host);
        QFETCH(QString, user);
        QFETCH(QString, password);
        QmlConnectionManager manager;
        manager.setHostAndPort(host);
        manager.setUsername(user);
        manager.setPassword(password);
        SignalLog log(&manager);
        manager.connectServers();
        Q_EMIT core->serverConnected(nullptr);
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(manager.status(), QmlConnectionManager::Invalid);
        QVERIFY(requests.isEmpty());
    }

    void connectServers_asksCoreAndIsConnecting()
    {
        QmlConnectionManager manager;
        fill(manager);
        SignalLog log(&manager);
        manager.connectServers();
        QCOMPARE(log.take(), QStringList({QStringLiteral("status Connecting 0")}));
        QTRY_COMPARE(requests.size(), 1);
        const Request expected = {QStringLiteral("recorder.example:8601"), QStringLiteral("anna"),
                                  QStringLiteral("secret"), false};
        QCOMPARE(requests.first(), expected);

        manager.connectServers(true);
        QTRY_COMPARE(requests.size(), 2);
        QVERIFY(requests.last().asGroup);
    }

    void errorChanged_comesAheadOfStatus_whenLoginFails()
    {
        QmlConnectionManager manager;
        fill(manager);
        manager.connectServers();
        SignalLog log(&manager);
        Q_EMIT core->loginError(makeError(2));
        QCOMPARE(log.take(),
                 QStringList({QStringLiteral("error Connecting 2"), QStringLiteral("status Error 2")}));
        QCOMPARE(manager.error(), QmlConnectionManager::BAD_LOGIN);
        QCOMPARE(manager.errorString(),
                 QStringLiteral("Invalid username or password. Server: recorder.example, port: 8601"));

        // A second failure: the status is what it was.
        Q_EMIT core->loginError(makeError(12));
        QCOMPARE(log.take(), QStringList({QStringLiteral("error Error 12")}));
        QCOMPARE(int(manager.error()), 12);
    }

    void status_followsCore_inEveryTransition()
    {
        QmlConnectionManager manager;
        fill(manager);
        manager.connectServers();
        const QList<std::pair<QmlConnectionManager::Status, std::function<void()>>> events = {
            {QmlConnectionManager::Connected, [this] { Q_EMIT core->serverConnected(nullptr); }},
            {QmlConnectionManager::Error, [this] { Q_EMIT core->userConnectionTimedOut(1, 2); }},
            {QmlConnectionManager::Error, [this] { Q_EMIT core->loginError(makeError(4)); }},
            {QmlConnectionManager::Disconnected, [this] { Q_EMIT core->allServersDisconnected(1); }},
            {QmlConnectionManager::Connecting, [&manager] { manager.connectServers(); }},
        };
        for (const auto &[from, enter] : events) {
            for (const auto &[to, happen] : events) {
                enter();
                QCOMPARE(manager.status(), from);
                QSignalSpy changed(&manager, &QmlConnectionManager::statusChanged);
                happen();
                QCOMPARE(manager.status(), to);
                QCOMPARE(changed.count(), from == to ? 0 : 1);
            }
        }
        // Nothing else moves it.
        Q_EMIT core->serverConnected(nullptr);
        Q_EMIT core->serverOffline(nullptr);
        Q_EMIT core->serverReconnected(nullptr);
        Q_EMIT core->initialConnectionComplete();
        QCOMPARE(manager.status(), QmlConnectionManager::Connected);
    }

    void timeOut_leavesErrorAlone()
    {
        QmlConnectionManager manager;
        fill(manager);
        manager.connectServers();
        SignalLog log(&manager);
        Q_EMIT core->userConnectionTimedOut(1, 2);
        QCOMPARE(log.take(), QStringList({QStringLiteral("status Error 0")}));
    }

    void error_staysAfterLaterSuccess()
    {
        QmlConnectionManager manager;
        fill(manager);
        manager.connectServers();
        Q_EMIT core->loginError(makeError(2));
        manager.connectServers();
        Q_EMIT core->serverConnected(nullptr);
        QCOMPARE(manager.status(), QmlConnectionManager::Connected);
        QCOMPARE(manager.error(), QmlConnectionManager::BAD_LOGIN);
    }

    void errorChanged_comesOncePerLogin_whenSeveralWereStarted()
    {
        QmlConnectionManager manager;
        fill(manager);
        manager.connectServers();
        manager.connectServers();
        manager.connectServers();
        SignalLog log(&manager);
        Q_EMIT core->loginError(makeError(2));
        QCOMPARE(log.take(),
                 QStringList({QStringLiteral("error Connecting 2"), QStringLiteral("status Error 2"),
                              QStringLiteral("error Error 2"), QStringLiteral("error Error 2")}));
    }

    void disconnectServers_changesStatus_whenCoreHasDone()
    {
        QmlConnectionManager manager;
        fill(manager);
        manager.connectServers();
        Q_EMIT core->serverConnected(nullptr);
        QSignalSpy disconnected(core, &ConnectionManager::allServersDisconnected);
        manager.disconnectServers();
        QCOMPARE(manager.status(), QmlConnectionManager::Connected);
        QTRY_COMPARE(disconnected.count(), 1);
        QCOMPARE(manager.status(), QmlConnectionManager::Disconnected);
    }

    void disconnectServers_leavesObjectAlone_whenItNeverConnected()
    {
        QmlConnectionManager manager;
        QSignalSpy disconnected(core, &ConnectionManager::allServersDisconnected);
        manager.disconnectServers();
        QTRY_COMPARE(disconnected.count(), 1);
        QCOMPARE(manager.status(), QmlConnectionManager::Invalid);
    }

    void statusString_namesEachStatus()
    {
        QmlConnectionManager manager;
        fill(manager);
        manager.connectServers();
        QCOMPARE(manager.statusString(), QStringLiteral("Connecting"));
        Q_EMIT core->serverConnected(nullptr);
        QCOMPARE(manager.statusString(), QStringLiteral("Connected"));
        Q_EMIT core->userConnectionTimedOut(1, 1);
        QCOMPARE(manager.statusString(), QStringLiteral("Error"));
        Q_EMIT core->allServersDisconnected(0);
        QCOMPARE(manager.statusString(), QStringLiteral("Disconnected"));
    }

    void overwritePublicKey_onlyWritesDebugLine_whenErrorIsAnother()
    {
        QmlConnectionManager manager;
        fill(manager);
        manager.connectServers();
        const QString target = QStringLiteral("recorder.example:8601");
        Q_EMIT core->loginError(makeError(2, target, QByteArrayLiteral("key")));
        QTest::ignoreMessage(QtDebugMsg,
                             "attempt to overwrite failed, last error ID is not PUBLIC_KEY_CHANGED");
        SignalLog log(&manager);
        manager.overwritePublicKey();
        QVERIFY(PublicKeyChecker::derKey(target).isEmpty());
        QCOMPARE(log.take(), QStringList());
    }

    void overwritePublicKey_recordsOfferedKey_andClearsNothing()
    {
        QmlConnectionManager manager;
        fill(manager);
        manager.connectServers();
        const QString target = QStringLiteral("recorder.example:8601");
        PublicKeyChecker::setDerKey(target, QByteArrayLiteral("old"));
        Q_EMIT core->loginError(makeError(11, target, QByteArrayLiteral("new")));
        QCoreApplication::processEvents();
        const qsizetype asked = requests.size();
        SignalLog log(&manager);
        manager.overwritePublicKey();
        QCOMPARE(PublicKeyChecker::derKey(target), QByteArrayLiteral("new"));
        QCOMPARE(manager.error(), QmlConnectionManager::PUBLIC_KEY_CHANGED);
        QCOMPARE(manager.status(), QmlConnectionManager::Error);
        QCoreApplication::processEvents();
        QCOMPARE(requests.size(), asked);
        QCOMPARE(log.take(), QStringList());
    }

    void signals_areHarmless_whenObjectIsGone()
    {
        {
            QmlConnectionManager manager;
            fill(manager);
            manager.connectServers();
        }
        Q_EMIT core->loginError(makeError(2));
        Q_EMIT core->serverConnected(nullptr);
    }

    void objects_followTheSameCore_sideBySide()
    {
        QmlConnectionManager first;
        QmlConnectionManager second;
        fill(first);
        fill(second);
        first.connectServers();
        second.connectServers();
        Q_EMIT core->serverConnected(nullptr);
        QCOMPARE(first.status(), QmlConnectionManager::Connected);
        QCOMPARE(second.status(), QmlConnectionManager::Connected);
    }

    void connectServers_doesNothing_withoutRootObject()
    {
        OrrinSDK::shutdown();
        QmlConnectionManager manager;
        fill(manager);
        manager.connectServers();
        manager.disconnectServers();
        QCOMPARE(manager.status(), QmlConnectionManager::Invalid);
    }

private:
    static void fill(QmlConnectionManager &manager)
    {
        manager.setHostAndPort(QStringLiteral("recorder.example"));
        manager.setUsername(QStringLiteral("anna"));
        manager.setPassword(QStringLiteral("secret"));
    }

    QTemporaryDir home;
    QList<Request> requests;
    ConnectionManager *core = nullptr;
};

QTEST_GUILESS_MAIN(tst_QmlConnectionManager)
#include "tst_qmlconnectionmanager.moc"
