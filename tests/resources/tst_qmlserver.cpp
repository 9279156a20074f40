// SPDX-License-Identifier: GPL-3.0-or-later
#include "loglines.h"
#include "signalorder.h"
#include "testsite.h"

#include "resources/qmlserver.h"

#include <contract/core/server.h>
#include <contract/core/servergroup.h>

#include <QTest>

#include <functional>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace orrin {

namespace {

const QStringList updateSignals = {u"nameChanged"_s,         u"ipChanged"_s,           u"hostChanged"_s,
                                   u"cameraCountChanged"_s,  u"versionChanged"_s,      u"majorVersionChanged"_s,
                                   u"minorVersionChanged"_s, u"buildVersionChanged"_s, u"userIdChanged"_s,
                                   u"userNameChanged"_s,     u"userLevelChanged"_s};

void view(QmlServer &view, const Server *server)
{
    view.setServerGroupId(server->group()->id());
    view.setServerId(server->id());
}

} // namespace

class TestQmlServer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ids_areUnset_atFirst()
    {
        const QmlServer server;
        QCOMPARE(server.serverGroupId(), -1);
        QCOMPARE(server.serverId(), -1);
    }

    void property_notifiesBySignalOfItsName_data() { addProperties(); }
    void property_notifiesBySignalOfItsName()
    {
        QFETCH(QByteArray, name);
        const QMetaObject &meta = QmlServer::staticMetaObject;
        const QMetaProperty property = meta.property(meta.indexOfProperty(name.constData()));
        QCOMPARE(property.notifySignal().name(), name + "Changed");
        QCOMPARE(property.isWritable(), name == "serverGroupId" || name == "serverId");
    }

    void property_readsFallback_whenTheServerIsAbsent_data() { addProperties(); }
    void property_readsFallback_whenTheServerIsAbsent()
    {
        QFETCH(QByteArray, name);
        QFETCH(QVariant, fallback);
        QmlServer server;
        QCOMPARE(server.property(name.constData()), fallback);
        std::optional<TestSite> site(std::in_place);
        QCOMPARE(server.property(name.constData()), fallback);
        site.reset();
        QCOMPARE(server.property(name.constData()), fallback);
    }

    void property_readsServer_whenItIsThere_data() { addProperties(); }
    void property_readsServer_whenItIsThere()
    {
        QFETCH(QByteArray, name);
        QFETCH(QVariant, value);
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.channels = {describeCamera(1), describeCamera(2)};
        ChannelDescription microphone = describeCamera(3);
        microphone.kind = ChannelDescription::Kind::Audio;
        description.channels.append(microphone);
        const Server *core = site.login(description);
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QCOMPARE(server.property(name.constData()), value);
    }

    void uniqueId_isTheLowHalf_whenTheUidIsLong()
    {
        TestSite site;
        const Server *core = site.login(describeServer(0x1234567800000009ull, 1));
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QCOMPARE(server.uniqueId(), 9);
    }

    void userId_isSecondMember_whenTheUserIsOfOneServer()
    {
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.user.id = UserLId{5, 77};
        const Server *core = site.login(description);
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QCOMPARE(server.userId(), 77);
    }

    void userLevel_isText_data()
    {
        QTest::addColumn<UserLevel>("level");
        QTest::addColumn<QString>("text");
        QTest::newRow("guest") << UserLevel::Guest << u"user"_s;
        QTest::newRow("user") << UserLevel::User << u"user"_s;
        QTest::newRow("administrator") << UserLevel::Administrator << u"admin"_s;
        QTest::newRow("installer") << UserLevel::Installer << u"install"_s;
        QTest::newRow("operator") << UserLevel::Operator << u"user"_s;
        QTest::newRow("unknown") << static_cast<UserLevel>(99) << u"user"_s;
    }
    void userLevel_isText()
    {
        QFETCH(UserLevel, level);
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.user.level = level;
        const Server *core = site.login(description);
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QTEST(server.userLevel(), "text");
    }

    void version_readsFallback_whenTheServerToldNone()
    {
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.version.clear();
        const Server *core = site.login(description);
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QCOMPARE(server.version(), QString());
        QCOMPARE(server.majorVersion(), 0u);
    }

    void name_isWhole_whenItIsLong()
    {
        TestSite site;
        SiteDescription description = describeServer(7, 2);
        description.serverName = QString(1000, u'\u00e4');
        const Server *core = site.login(description);
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QCOMPARE(server.name(), description.serverName);
    }

    void setId_emitsOnlyItsSignal_whenItChanges()
    {
        QmlServer server;
        SignalOrder order(&server);
        server.setServerGroupId(1);
        QCOMPARE(order.take(), QStringList{u"serverGroupIdChanged"_s});
        server.setServerId(std::numeric_limits<int>::max());
        QCOMPARE(order.take(), QStringList{u"serverIdChanged"_s});
        server.setServerGroupId(1);
        server.setServerId(std::numeric_limits<int>::max());
        QCOMPARE(order.take(), QStringList());
        QCOMPARE(server.name(), QString());
    }

    void read_emitsUpdateOnce_whenItFindsTheServer()
    {
        TestSite site;
        const Server *core = site.login(describeServer(7, 2));
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        SignalOrder order(&server);
        QCOMPARE(server.name(), u"Recorder 7"_s);
        QCOMPARE(order.take(), updateSignals);
        QCOMPARE(server.name(), u"Recorder 7"_s);
        QCOMPARE(server.userLevel(), u"admin"_s);
        QCOMPARE(order.take(), QStringList());
    }

    void serverSignal_emitsUpdate_data()
    {
        using Emit = std::function<void(Server *)>;
        QTest::addColumn<Emit>("emitSignal");
        QTest::newRow("offline") << Emit([](Server *s) { Q_EMIT s->offline(7); });
        QTest::newRow("reconnected") << Emit([](Server *s) { Q_EMIT s->reconnected(7); });
        QTest::newRow("statusChange") << Emit([](Server *s) { Q_EMIT s->statusChange(7, StatusObject()); });
        QTest::newRow("userConnectionTimedOut") << Emit([](Server *s) { Q_EMIT s->userConnectionTimedOut(7); });
        QTest::newRow("restartRequested") << Emit([](Server *s) { Q_EMIT s->restartRequested(7); });
        QTest::newRow("rebootMachineRequested") << Emit([](Server *s) { Q_EMIT s->rebootMachineRequested(7); });
        QTest::newRow("shutdownRequested") << Emit([](Server *s) { Q_EMIT s->shutdownRequested(7); });
        QTest::newRow("error") << Emit([](Server *s) { Q_EMIT s->error(7, ConnectionError()); });
        QTest::newRow("facilitiesUpdated") << Emit([](Server *s) { Q_EMIT s->facilitiesUpdated(7); });
    }
    void serverSignal_emitsUpdate()
    {
        QFETCH(std::function<void(Server *)>, emitSignal);
        TestSite site;
        Server *core = site.login(describeServer(7, 2));
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QCOMPARE(server.name(), u"Recorder 7"_s);
        SignalOrder order(&server);
        emitSignal(core);
        QCOMPARE(order.take(), updateSignals);
    }

    void serverGoes_emitsUpdateTwice_andFallbacksAreRead()
    {
        TestSite site;
        const Server *core = site.login(describeServer(7, 2));
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QCOMPARE(server.name(), u"Recorder 7"_s);
        SignalOrder order(&server);
        site.logOut();
        QCOMPARE(order.take(), updateSignals + updateSignals);
        QCOMPARE(server.name(), QString());
        QCOMPARE(server.uniqueId(), -1);
    }

    void serverReturns_emitsUpdateAtTheNextRead()
    {
        TestSite site;
        const Server *core = site.login(describeServer(7, 2));
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QCOMPARE(server.name(), u"Recorder 7"_s);
        site.logOut();
        QCOMPARE(server.name(), QString());
        SiteDescription renamed = describeServer(7, 2);
        renamed.serverName = u"Renamed"_s;
        QVERIFY(site.login(renamed));
        SignalOrder order(&server);
        QCOMPARE(server.name(), u"Renamed"_s);
        QCOMPARE(order.take(), updateSignals);
    }

    void facilities_areRead_whenTheyChange()
    {
        TestSite site;
        const Server *core = site.login(describeServer(7, 2));
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QCOMPARE(server.cameraCount(), 0);
        SiteDescription grown = describeServer(7, 2);
        grown.channels = {describeCamera(1)};
        SignalOrder order(&server);
        site.describe(grown);
        QCOMPARE(order.take(), updateSignals);
        QCOMPARE(server.cameraCount(), 1);
    }

    void server_isStillRead_whenItIsOffline()
    {
        TestSite site;
        const Server *core = site.login(describeServer(7, 2));
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        QCOMPARE(server.name(), u"Recorder 7"_s);
        SignalOrder order(&server);
        site.lose(7);
        // The error, then the loss.
        QCOMPARE(order.take(), updateSignals + updateSignals);
        QCOMPARE(server.name(), u"Recorder 7"_s);
        site.restore(7);
        QCOMPARE(order.take().last(), u"userLevelChanged"_s);
    }

    void read_isSafe_whenAHandlerDeletesTheView()
    {
        TestSite site;
        const Server *core = site.login(describeServer(7, 2));
        QVERIFY(core);
        auto *server = new QmlServer;
        view(*server, core);
        const QPointer<QmlServer> alive = server;
        connect(server, &QmlServer::ipChanged, this, [server] { delete server; });
        QCOMPARE(server->name(), u"Recorder 7"_s);
        QVERIFY(!alive);
    }

    void read_isSafe_whenAHandlerEndsTheServer()
    {
        TestSite site;
        const Server *core = site.login(describeServer(7, 2));
        QVERIFY(core);
        QmlServer server;
        view(server, core);
        connect(&server, &QmlServer::ipChanged, this, [&site] { site.logOut(); });
        QCOMPARE(server.userName(), QString());
        QCOMPARE(server.name(), QString());
    }

    void lifetime_isTraced()
    {
        LogLines lines;
        auto *server = new QmlServer;
        QVERIFY(lines.takeOnly("orrin::QmlServer::QmlServer", server));
        const void *address = server;
        delete server;
        QVERIFY(lines.takeOnly("orrin::QmlServer::~QmlServer", address));
    }

private:
    void addProperties()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QVariant>("fallback");
        QTest::addColumn<QVariant>("value");
        const auto add = [](const char *name, const QVariant &fallback, const QVariant &value) {
            QTest::newRow(name) << QByteArray(name) << fallback << value;
        };
        add("serverGroupId", -1, 1);
        add("serverId", -1, 2);
        add("uniqueId", -1, 7);
        add("name", QString(), u"Recorder 7"_s);
        add("ip", QString(), u"192.0.2.7"_s);
        add("host", QString(), u"server7"_s);
        add("cameraCount", 0, 2);
        add("version", QString(), u"7.3.0.1234"_s);
        add("majorVersion", 0u, 7u);
        add("minorVersion", 0u, 3u);
        add("buildVersion", 0u, 1234u);
        add("userId", 0, 42);
        add("userName", QString(), u"operator"_s);
        add("userLevel", QString(), u"admin"_s);
    }
};

} // namespace orrin

QTEST_GUILESS_MAIN(orrin::TestQmlServer)
#include "tst_qmlserver.moc"
